#include "VisibleRecords.h"
#include <algorithm>
#include <tuple>

namespace HPS::render
{
namespace
{

void count(Record const& record, std::uint32_t times, FrameCounts& counts)
{
    counts.records += times;
    switch (record.pipeline.primitive) {
    case Primitive::Faces:
    case Primitive::Glyphs:
        counts.triangles += std::uint64_t(record.range.indexCount / 3) * times;
        break;
    case Primitive::Lines:
    case Primitive::ThinLines:
    case Primitive::Strokes:
    case Primitive::ViewEdges:
        counts.lineSegments += std::uint64_t(record.range.indexCount / 6) * times;
        break;
    case Primitive::Markers:
        counts.markers += std::uint64_t(record.range.indexCount / 6) * times;
        break;
    }
}

/// That the size of an instance has on the screen.
double pixelsOf(Instance const& instance, Viewing const& viewing, Box const& box)
{
    if ((instance.flags & SizeInWorld) != 0) return instance.size * viewing.pixelsPerUnit(box);
    return (instance.flags & SizeInWindow) != 0 ? instance.size * viewing.windowHeight() : instance.size;
}

} // namespace

void VisibleRecords::choose(FrameContext const& context)
{
    parts_.clear();
    opaque_.clear();
    transparent_.clear();
    single_.clear();
    single_.reserve(context.list.records.size()); // parts point into it
    for (auto& overlay : overlays_) overlay.clear();
    for (RecordGroup const& group : context.list.groups)
        if (group.runs > 0) choose(context, group);

    std::sort(parts_.begin(), parts_.end(), [](Part const& a, Part const& b) {
        return std::tuple(a.pipeline, -a.depth, a.order) < std::tuple(b.pipeline, -b.depth, b.order);
    });
    distribute(context.list, context.counts);
    std::sort(transparent_.begin(), transparent_.end(), [](Entry const& a, Entry const& b) {
        return a.depth != b.depth ? a.depth < b.depth : a.record < b.record;
    });
}

void VisibleRecords::distribute(DrawList const& list, FrameCounts& counts)
{
    for (Part const& part : parts_) {
        auto const kind = list.records[part.runs->first].pipeline.placing.overlay;
        auto& runs = kind == Drawing::Overlay::None ? opaque_ : overlays_[std::size_t(kind)];
        for (std::uint32_t i = 0; i < part.count; ++i) {
            runs.push_back(part.runs[i]);
            count(list.records[part.runs[i].first], part.runs[i].count, counts);
        }
    }
}

void VisibleRecords::choose(FrameContext const& context, RecordGroup const& group)
{
    DrawList const& list = context.list;
    Pipeline const& pipeline = list.records[group.first].pipeline;
    bool const faces = pipeline.primitive == Primitive::Faces;
    if (context.scene.faceStyle == FaceStyle::None && faces) return;
    Viewing::Sight const sight = context.viewing.sight(group.box);
    if (sight == Viewing::Sight::None && !group.single) {
        context.counts.culledRecords += group.count;
        return;
    }
    double const smallest = std::max(double(pipeline.placing.smallest), faces ? context.scene.smallest : 0);
    bool const someSmall =
        smallest > 0 && group.smallest * context.viewing.pixelsPerUnit(group.box) < smallest;
    if (context.scene.sections.any()) {
        chooseSingly(context, group, smallest, false);
        return chooseSingly(context, group, smallest, true);
    }
    if (sight != Viewing::Sight::Whole || someSmall || pipeline.transparent || group.single)
        return chooseSingly(context, group, smallest, false);
    double const depth = context.viewing.toView(group.box.centre()).z;
    parts_.push_back({group.pipeline, group.first, depth, &list.runs[group.first], group.runs});
}

// Of those that sections run through, or of the rest.
void VisibleRecords::chooseSingly(FrameContext const& context, RecordGroup const& group, double smallest,
                                  bool cut)
{
    DrawList const& list = context.list;
    Viewing const& viewing = context.viewing;
    Pipeline const& pipeline = list.records[group.first].pipeline;
    bool const sorted = pipeline.transparent && pipeline.placing.overlay == Drawing::Overlay::None;
    std::size_t const firstSingle = single_.size();
    for (std::uint32_t r = 0; r < group.runs; ++r) {
        RecordRun const& run = list.runs[group.first + r];
        for (std::uint32_t i = run.first; i < run.first + run.count; ++i) {
            Record const& record = list.records[i];
            CutReach const reach =
                context.scene.sections.reach(list.instances[i].material >> materialBits, record.world);
            if (reach != CutReach::Gone && (reach == CutReach::Cut) != cut) continue;
            if (reach == CutReach::Gone && cut) continue; // counted before
            bool drawn = reach != CutReach::Gone && viewing.sees(record.world, record.reach) &&
                         (smallest == 0 || record.reach > 0 ||
                          record.world.diagonal() * viewing.pixelsPerUnit(record.world) >= smallest);
            bool fine = false;
            if (drawn && group.single) {
                double const pixels = pixelsOf(list.instances[i], viewing, record.world);
                drawn = pixels >= record.from && pixels < record.to;
                fine = record.fine.indexCount > 0 && pixels >= Record::fineFrom;
            }
            if (!drawn) {
                ++context.counts.culledRecords;
            } else if (sorted) {
                transparent_.push_back({viewing.toView(record.world.centre()).z, i, fine, cut});
                count(record, 1, context.counts);
            } else if (i > run.first && single_.size() > firstSingle &&
                       single_.back().first + single_.back().count == i && single_.back().fine == fine) {
                ++single_.back().count;
            } else {
                single_.push_back({i, 1, fine, cut});
            }
        }
    }
    if (single_.size() == firstSingle) return;
    double const depth = viewing.toView(group.box.centre()).z;
    parts_.push_back({group.pipeline, group.first, depth, &single_[firstSingle],
                      std::uint32_t(single_.size() - firstSingle)});
}

} // namespace HPS::render
