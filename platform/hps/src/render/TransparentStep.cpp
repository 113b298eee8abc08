#include "TransparentStep.h"
#include "full_screen.h"
#include <algorithm>
#include <cmath>

namespace HPS::render
{
namespace
{

bool isFace(Record const& record)
{
    return record.pipeline.primitive == Primitive::Faces;
}

/// Around all that is seen through, the whole target where that cannot be told.
PixelArea areaOf(FrameContext const& context, VisibleRecords const& visible)
{
    int const w = context.target.width(), h = context.target.height();
    PixelArea const whole{0, 0, w, h};
    double low[2] = {1, 1}, high[2] = {-1, -1};
    for (auto const& entry : visible.transparent()) {
        Record const& record = context.list.records[entry.record];
        if (!isFace(record)) return whole; // strokes are wider than their boxes
        for (int i = 0; i < 8; ++i) {
            Vec3 const p = context.viewing.toView(record.world.corner(i));
            Mat4 const& m = context.viewing.projection;
            double const depth = p.z * m[11] + m[15];
            if (!(depth > 1e-6 * context.viewing.distance)) return whole;
            double const at[2] = {(p.x * m[0] + p.z * m[8] + m[12]) / depth,
                                  (p.y * m[5] + p.z * m[9] + m[13]) / depth};
            for (int axis = 0; axis < 2; ++axis) {
                low[axis] = std::min(low[axis], at[axis]);
                high[axis] = std::max(high[axis], at[axis]);
            }
        }
    }
    auto pixel = [](double at, int size) {
        return std::clamp(int(std::floor((at * 0.5 + 0.5) * size)), 0, size);
    };
    PixelArea area{std::max(pixel(std::clamp(low[0], -1.0, 1.0), w) - 1, 0),
                   std::max(pixel(std::clamp(low[1], -1.0, 1.0), h) - 1, 0), 0, 0};
    area.width = std::min(pixel(std::clamp(high[0], -1.0, 1.0), w) + 2, w) - area.x;
    area.height = std::min(pixel(std::clamp(high[1], -1.0, 1.0), h) + 2, h) - area.y;
    return area;
}

} // namespace

void TransparentStep::draw(FrameContext const& context, VisibleRecords const& visible)
{
    using Order = Transparency::Order;
    if (visible.transparent().empty()) return;
    Order const order = context.scene.transparency.order;
    // While somebody interacts the order is a cheaper one for moments only.
    if (context.scene.quality == Quality::Resting) {
        if (order != Order::Peeled) layers_.reset();
        if (order != Order::Weighted) weighted_.reset();
        if (order != Order::Triangles && order != Order::SplitTriangles) triangles_.reset();
    }
    calls_.clear();
    switch (order) {
    case Order::Scene:
        return drawAll(context, visible);
    case Order::Objects:
        return drawObjects(context, visible);
    case Order::Triangles:
        return drawTriangles(context, visible, false);
    case Order::SplitTriangles:
        return drawTriangles(context, visible, true);
    case Order::Peeled:
        return peel(context, visible);
    case Order::Weighted:
        return weigh(context, visible);
    }
}

void TransparentStep::pushAll(FrameContext const& context, VisibleRecords const& visible)
{
    std::vector<VisibleRecords::Entry> entries = visible.transparent();
    std::sort(entries.begin(), entries.end(),
              [](auto const& a, auto const& b) { return a.record < b.record; });
    for (auto const& entry : entries) push(context, entry);
}

void TransparentStep::push(FrameContext const& context, VisibleRecords::Entry const& entry)
{
    calls_.push(context.list.records[entry.record].cutBy(entry.cut), context.instanceBuffer,
                VisibleRecords::rangeOf(context.list, entry), entry.record);
}

void TransparentStep::drawAll(FrameContext const& context, VisibleRecords const& visible)
{
    pushAll(context, visible);
    calls_.submit(context);
}

void TransparentStep::drawObjects(FrameContext const& context, VisibleRecords const& visible)
{
    sorted_.clear();
    buffer_.create();
    for (VisibleRecords::Entry const& entry : visible.transparent()) {
        Record const& record = context.list.records[entry.record];
        MeshRange const& range = VisibleRecords::rangeOf(context.list, entry);
        Pipeline const pipeline = record.cutBy(entry.cut);
        auto emit = [&](std::uint32_t side) {
            calls_.push(pipeline, buffer_.name(), range, std::uint32_t(sorted_.size()));
            sorted_.push_back(context.list.instances[entry.record]);
            sorted_.back().flags |= side;
        };
        // Both halves of one body in order, in one call with all others: the shader drops the other half.
        if (isFace(record)) {
            emit(BackOnly);
            emit(FrontOnly);
        } else {
            emit(0);
        }
    }
    buffer_.fill(std::span<Instance const>(sorted_));
    calls_.submit(context);
}

void TransparentStep::drawTriangles(FrameContext const& context, VisibleRecords const& visible, bool split)
{
    if (!triangles_) triangles_.emplace();
    bool const faces = std::any_of(visible.transparent().begin(), visible.transparent().end(),
                                   [&](auto const& e) { return isFace(context.list.records[e.record]); });
    if (faces) {
        Pass pass;
        pass.indices = triangles_->push(context, split, calls_);
        calls_.submit(context, pass);
        calls_.clear();
    }
    for (auto const& entry : visible.transparent())
        if (!isFace(context.list.records[entry.record])) push(context, entry);
    calls_.submit(context);
}

void TransparentStep::peel(FrameContext const& context, VisibleRecords const& visible)
{
    if (!layers_) layers_.emplace();
    pushAll(context, visible);
    Pass pass;
    pass.features = PeeledLayers::features(context.target, context.scene.transparency);
    pass.keepBlending = true;
    layers_->draw(context.target, areaOf(context, visible), context.scene.transparency,
                  [&] { calls_.submit(context, pass); });
    setSceneState();
}

void TransparentStep::weigh(FrameContext const& context, VisibleRecords const& visible)
{
    if (!weighted_) weighted_.emplace();
    pushAll(context, visible);
    Pass pass;
    pass.features = {Feature::Weighted};
    pass.keepBlending = true;
    weighted_->draw(context.target, areaOf(context, visible), [&] { calls_.submit(context, pass); });
    setSceneState();
}

} // namespace HPS::render
