#include "VisibleRecords.h"
#include <algorithm>

namespace HPS::render
{
namespace
{

void count(Record const& record, FrameCounts& counts)
{
    ++counts.records;
    switch (record.pipeline.primitive) {
    case Primitive::Faces:
        counts.triangles += record.range.indexCount / 3;
        break;
    case Primitive::Lines:
    case Primitive::ThinLines:
        counts.lineSegments += record.range.indexCount / 6;
        break;
    case Primitive::Markers:
        counts.markers += record.range.indexCount / 6;
        break;
    }
}

} // namespace

void VisibleRecords::choose(FrameContext const& context)
{
    opaque_.clear();
    transparent_.clear();
    auto const& records = context.list.records;
    for (std::uint32_t i = 0; i < records.size(); ++i) {
        Record const& record = records[i];
        if (context.scene.faceStyle == FaceStyle::None && record.pipeline.primitive == Primitive::Faces)
            continue;
        if (!context.viewing.sees(record.world)) {
            ++context.counts.culledRecords;
            continue;
        }
        count(record, context.counts);
        double const depth = context.viewing.toView(record.world.centre()).z;
        (record.pipeline.transparent ? transparent_ : opaque_).push_back({depth, i});
    }
    for (auto first = opaque_.begin(); first != opaque_.end();) {
        Pipeline const& pipeline = records[first->record].pipeline;
        auto const last = std::find_if(
            first, opaque_.end(), [&](Entry const& e) { return !(records[e.record].pipeline == pipeline); });
        std::sort(first, last, [](Entry const& a, Entry const& b) {
            return a.depth != b.depth ? a.depth > b.depth : a.record < b.record;
        });
        first = last;
    }
    std::sort(transparent_.begin(), transparent_.end(), [](Entry const& a, Entry const& b) {
        return a.depth != b.depth ? a.depth < b.depth : a.record < b.record;
    });
}

} // namespace HPS::render
