// Planar outlines with holes: which loops are holes, and the shell of an outer loop with its holes.

#include "ZELRenderer.h"

#include <algorithm>

namespace ZelVizBase
{

using NarMetaVisu::PolygonLoopRep;
using NarMetaVisu::VisuPolygonLoopType;

namespace
{

struct LoopShell {
    std::vector<HPS::Point> Points;
    std::vector<int> Facelist;

    /// Each edge becomes a face of its own; a negative count makes it a hole of the face before.
    void Append(PolygonLoopRep const& loop)
    {
        for (auto const& edge : loop.GetEdges()) {
            std::vector<float> const& xyz = edge->GetPoints();
            int const count = static_cast<int>(xyz.size() / 3);
            int const offset = static_cast<int>(Points.size());
            Facelist.push_back(loop.GetType() == VisuPolygonLoopType::Inner ? -count : count);
            for (int i = 0; i < count; ++i) {
                Points.emplace_back(xyz[3 * i], xyz[3 * i + 1], xyz[3 * i + 2]);
                Facelist.push_back(offset + i);
            }
        }
    }

    HPS::ShellKey InsertInto(HPS::SegmentKey& segment) const
    {
        return segment.InsertShell(Points.size(), Points.data(), Facelist.size(), Facelist.data());
    }
};

bool isUnclassified(PolygonLoopRep const& loop)
{
    return loop.GetType() == VisuPolygonLoopType::Unclassified;
}

} // namespace

void ZELRenderer::classifyPolygonLoops(std::vector<PolygonLoopRep>& loops)
{
    // The scene library does not tell yet how two shells lie to each other, and a loop that nothing is known of
    // counts as an outer one.
    for (PolygonLoopRep& loop : loops) {
        if (isUnclassified(loop)) loop.SetType(VisuPolygonLoopType::Outer);
    }
}

void ZELRenderer::insertPolygonLoops(HPS::SegmentKey& segment, std::vector<PolygonLoopRep>& loops)
{
    if (loops.empty()) return;
    if (std::any_of(loops.begin(), loops.end(), isUnclassified)) classifyPolygonLoops(loops);
    LoopShell shell;
    auto const isOuter = [](PolygonLoopRep const& loop) {
        return loop.GetType() == VisuPolygonLoopType::Outer;
    };
    auto const outer = std::find_if(loops.begin(), loops.end(), isOuter);
    if (outer != loops.end()) shell.Append(*outer);
    for (PolygonLoopRep const& loop : loops) {
        if (loop.GetType() == VisuPolygonLoopType::Inner) shell.Append(loop);
    }
    if (!shell.Points.empty()) shell.InsertInto(segment);
}

} // namespace ZelVizBase
