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

struct Extent {
    HPS::Point Low;
    HPS::Point High;

    static Extent Of(std::vector<HPS::Point> const& points)
    {
        if (points.empty()) return {};
        Extent extent{points.front(), points.front()};
        for (float HPS::Point::*axis : axes) {
            for (HPS::Point const& point : points) {
                extent.Low.*axis = std::min(extent.Low.*axis, point.*axis);
                extent.High.*axis = std::max(extent.High.*axis, point.*axis);
            }
        }
        return extent;
    }
    bool IsApartFrom(Extent const& other) const
    {
        return std::any_of(std::begin(axes), std::end(axes), [&](float HPS::Point::*axis) {
            return Low.*axis > other.High.*axis || other.Low.*axis > High.*axis;
        });
    }

private:
    static constexpr float HPS::Point::*axes[] = {&HPS::Point::x, &HPS::Point::y, &HPS::Point::z};
};

bool isUnclassified(PolygonLoopRep const& loop)
{
    return loop.GetType() == VisuPolygonLoopType::Unclassified;
}

} // namespace

void ZELRenderer::classifyPolygonLoops(std::vector<PolygonLoopRep>& loops)
{
    if (ScratchKey.Type() == HPS::Type::None)
        ScratchKey = HPS::Database::CreateRootSegment();
    else
        ScratchKey.Flush(HPS::Search::Type::Everything, HPS::Search::Space::SegmentOnly);
    if (loops.size() == 1) {
        loops.front().SetType(VisuPolygonLoopType::Outer);
        return;
    }
    std::vector<HPS::ShellKey> shells;
    std::vector<Extent> extents;
    for (PolygonLoopRep const& loop : loops) {
        LoopShell shell;
        shell.Append(loop);
        shells.push_back(shell.InsertInto(ScratchKey));
        extents.push_back(Extent::Of(shell.Points));
    }
    auto const options = HPS::ShellRelationOptionsKit::GetDefault()
                             .SetTest(HPS::Shell::RelationTest::Outline)
                             .SetNearestFaceCalculation(false);
    for (size_t i = 0; i < loops.size(); ++i) {
        for (size_t j = 0; j < loops.size() && isUnclassified(loops[i]); ++j) {
            if (shells[i] == shells[j] || !isUnclassified(loops[j])) continue;
            if (extents[i].IsApartFrom(extents[j])) continue; // spares most questions among many loops
            HPS::ShellRelationResultsKit results;
            HPS::ShellRelationArray relations;
            shells[i].ComputeRelation(shells[j], options, results);
            if (!results.ShowRelations(relations)) continue;
            switch (relations.front()) {
            case HPS::Shell::Relation::Apart:
            case HPS::Shell::Relation::Meeting:
                break;
            case HPS::Shell::Relation::Holds:
                loops[j].SetType(VisuPolygonLoopType::Inner);
                break;
            case HPS::Shell::Relation::Within:
                loops[i].SetType(VisuPolygonLoopType::Inner);
                break;
            }
        }
    }
    for (PolygonLoopRep& loop : loops) {
        if (isUnclassified(loop)) loop.SetType(VisuPolygonLoopType::Outer);
    }
    ScratchKey.Flush(HPS::Search::Type::Everything, HPS::Search::Space::SegmentOnly);
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
