#include "TransparentStep.h"

namespace HPS::render
{

void TransparentStep::draw(FrameContext const& context, VisibleRecords const& visible)
{
    if (visible.transparent().empty()) return;
    calls_.clear();
    sorted_.clear();
    buffer_.create();
    for (VisibleRecords::Entry const& entry : visible.transparent()) {
        std::uint32_t const i = entry.record;
        Record const& record = context.list.records[i];
        MeshRange const& range = VisibleRecords::rangeOf(context.list, entry);
        Pipeline const pipeline = record.cutBy(entry.cut);
        auto emit = [&](std::uint32_t side) {
            calls_.push(pipeline, buffer_.name(), range, std::uint32_t(sorted_.size()));
            sorted_.push_back(context.list.instances[i]);
            sorted_.back().flags |= side;
        };
        // Both halves of one body in order, in one call with all others: the shader drops the other half.
        if (record.pipeline.primitive == Primitive::Faces) {
            emit(BackOnly);
            emit(FrontOnly);
        } else {
            emit(0);
        }
    }
    buffer_.fill(std::span<Instance const>(sorted_));
    calls_.submit(context);
}

} // namespace HPS::render
