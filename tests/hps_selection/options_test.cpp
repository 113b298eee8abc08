// What the words of the options, and of the attributes that selections respect, do.
#include "Stage.h"

namespace HPS
{
namespace
{

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class Options : public Stage
{
protected:
    SegmentKey frontSegment = root.Subsegment("front"), backSegment = root.Subsegment("back");
    ShellKey front = addSquare(frontSegment, {0, 0, 2});
    ShellKey back = addSquare(backSegment, {0, 0, -2}, 3);
};

TEST_F(Options, NearerOnesComeFirst)
{
    EXPECT_THAT(keysOf(atPoint(0, 0, nearestFirst())), ElementsAre(front, back));
    EXPECT_THAT(keysOf(atPoint(2, 0, nearestFirst())), ElementsAre(back));
    look({0, 0, -50}, Camera::Projection::Orthographic);
    EXPECT_THAT(keysOf(atPoint(0, 0, nearestFirst())), ElementsAre(back, front));
}

TEST_F(Options, LimitOfRelatedCountsFurtherResults)
{
    EXPECT_THAT(keysOf(atPoint(0, 0, nearestFirst().SetRelatedLimit(0))), ElementsAre(front));
    EXPECT_THAT(keysOf(atPoint(0, 0, nearestFirst().SetRelatedLimit(1))), ElementsAre(front, back));
    EXPECT_EQ(atPoint(0, 0, everything().SetRelatedLimit(0)).GetCount(), 1u);
}

TEST_F(Options, WhatTheKitLeavesOpenIsTheWindowsAffair)
{
    SelectionResults results;
    EXPECT_EQ(control().SelectByPoint({0, 0, 0}, results), 1u) << "by default one segment";
    EXPECT_THAT(keysOf(results), ElementsAre(frontSegment));
    SelectionOptionsKit ofWindow;
    ofWindow.SetLevel(Selection::Level::Entity).SetRelatedLimit(5);
    canvas.GetWindowKey().SetSelectionOptions(ofWindow);
    control().SelectByPoint({0, 0, 0}, results);
    EXPECT_THAT(keysOf(results), ElementsAre(front, back));
    control().SelectByPoint({0, 0, 0}, SelectionOptionsKit().SetRelatedLimit(0), results);
    EXPECT_THAT(keysOf(results), ElementsAre(front));
}

TEST_F(Options, LevelOfSegmentsGivesEachSegmentOnce)
{
    addSquare(frontSegment, {0, 0, 1});
    auto const results = atPoint(0, 0, nearestFirst().SetLevel(Selection::Level::Segment));
    EXPECT_THAT(keysOf(results), ElementsAre(frontSegment, backSegment));
    EXPECT_EQ(positionOf(results), Point(0, 0, 2));
    EXPECT_EQ(pathOf(results).Front(), frontSegment);
}

TEST_F(Options, VisualAlgorithmSeesNothingBehindFaces)
{
    auto visual = nearestFirst().SetAlgorithm(Selection::Algorithm::Visual);
    EXPECT_THAT(keysOf(atPoint(0, 0, visual)), ElementsAre(front));
    EXPECT_THAT(keysOf(around(0, 0, 4, visual)), ElementsAre(front));
    EXPECT_THAT(keysOf(around(1, 0, 4, visual)), ElementsAre(front, back))
        << "across the border of the one in front";
    EXPECT_THAT(keysOf(around(1, 0, 4, visual.SetRelatedLimit(0))), ElementsAre(front));

    LineKey const hidden = root.InsertLine({-0.5f, 0, 0}, {0.5f, 0, 0}),
                  seen = root.InsertLine({-9, 2, -1}, {9, 2, -1});
    visual.SetRelatedLimit(100);
    EXPECT_THAT(keysOf(around(0, 0, 4, visual)), ElementsAre(front));
    EXPECT_THAT(keysOf(around(0, 2, 4, visual)), ElementsAre(seen, back));
    frontSegment.GetMaterialMappingControl().SetFaceAlpha(0.5f);
    EXPECT_THAT(keysOf(around(0, 0, 4, visual)), ElementsAre(front, hidden, back)) << "glass hides nothing";
    frontSegment.GetVisibilityControl().SetFaces(false);
    EXPECT_THAT(keysOf(around(0, 0, 4, visual)), ElementsAre(hidden, back));
}

TEST_F(Options, ProximityReachesBesideLinesButNotBesideFaces)
{
    LineKey const line = root.InsertLine({-9, 5, 0}, {9, 5, 0});
    MarkerKey const marker = root.InsertMarker({5, 6, 0});
    root.GetMarkerAttributeControl().SetSize(1, Marker::SizeUnits::Pixels);
    auto options = everything().SetProximity(3);
    EXPECT_THAT(keysOf(atPoint(0, 5.25f, options)), ElementsAre(line));
    EXPECT_THAT(keysOf(atPoint(0, 5.35f, options)), IsEmpty());
    EXPECT_THAT(keysOf(atPoint(5.2f, 6.2f, options)), ElementsAre(marker));
    EXPECT_THAT(keysOf(atPoint(5.25f, 6.25f, options)), IsEmpty()) << "as far as a circle reaches";
    EXPECT_THAT(keysOf(atPoint(3.1f, 0, options)), IsEmpty()) << "a pixel beside the face";
    EXPECT_NEAR(positionOf(atPoint(3, 5.25f, options)).x, 3, 1e-4);
    EXPECT_NEAR(positionOf(atPoint(3, 5.25f, options)).y, 5, 1e-4) << "on the line itself";
    // What is drawn wide is found wherever it is drawn.
    root.GetLineAttributeControl().SetWeight(10, Line::SizeUnits::Pixels);
    root.GetMarkerAttributeControl().SetSize(20, Marker::SizeUnits::Pixels);
    EXPECT_THAT(keysOf(atPoint(0, 5.75f, options)), ElementsAre(line));
    EXPECT_THAT(keysOf(atPoint(5, 7.25f, options)), ElementsAre(marker));
}

TEST_F(Options, SortingByProximityAsksHowFarBeside)
{
    LineKey const near = root.InsertLine({-9, 5, -3}, {9, 5, -3}),
                  far = root.InsertLine({-9, 5.3f, 3}, {9, 5.3f, 3});
    auto options = everything().SetProximity(5);
    EXPECT_THAT(keysOf(atPoint(0, 5, options.SetSorting(Selection::Sorting::Proximity))),
                ElementsAre(near, far));
    EXPECT_THAT(keysOf(atPoint(0, 5, options.SetSorting(Selection::Sorting::ZSorting))),
                ElementsAre(far, near));
}

TEST_F(Options, DefaultSortingPutsLinesBeforeTheFacesTheyLieOn)
{
    LineKey const onFace = root.InsertLine({-1, 0, 2}, {1, 0, 2}),
                  behind = root.InsertLine({-1, 0, 1}, {1, 0, 1});
    MarkerKey const corner = root.InsertMarker({0, 0, 2});
    auto options = everything().SetProximity(2).SetSorting(Selection::Sorting::Default);
    EXPECT_THAT(keysOf(atPoint(0, 0, options)), ElementsAre(corner, onFace, front, behind, back));
}

TEST_F(Options, OverlaysComeBeforeAllElse)
{
    backSegment.GetDrawingAttributeControl().SetOverlay(Drawing::Overlay::Default);
    EXPECT_THAT(keysOf(atPoint(0, 0, nearestFirst())), ElementsAre(back, front));
}

struct SelectabilityCase {
    Selectability::Value value;
    bool visible, found;
};
TEST_F(Options, SelectabilityCountsByKind)
{
    using enum Selectability::Value;
    LineKey const line = frontSegment.InsertLine({-1, 0, 3}, {1, 0, 3});
    for (auto const& [value, visible, found] : {SelectabilityCase{Off, true, false},
                                                {On, true, true},
                                                {On, false, false},
                                                {ForcedOn, true, true},
                                                {ForcedOn, false, true},
                                                {Off, false, false}}) {
        SCOPED_TRACE(testing::Message() << int(value) << visible);
        frontSegment.GetSelectabilityControl().SetFaces(value);
        frontSegment.GetVisibilityControl().SetFaces(visible);
        auto const keys = keysOf(atPoint(0, 0, nearestFirst()));
        EXPECT_EQ(std::count(keys.begin(), keys.end(), front), found ? 1 : 0);
        EXPECT_EQ(std::count(keys.begin(), keys.end(), line), 1) << "the other kind is left alone";
    }
}

TEST_F(Options, LocksOfSelectabilityHoldBelow)
{
    view.GetSegmentKey().GetSelectabilityControl().SetFaces(false);
    view.GetSegmentKey().GetAttributeLockControl().SetLock(AttributeLock::Type::Everything, true);
    frontSegment.GetSelectabilityControl().SetFaces(true);
    EXPECT_THAT(keysOf(atPoint(0, 0, nearestFirst())), IsEmpty());
    view.GetSegmentKey().GetAttributeLockControl().SetLock(AttributeLock::Type::Everything, false);
    EXPECT_THAT(keysOf(atPoint(0, 0, nearestFirst())), ElementsAre(front));
}

TEST_F(Options, EdgesAndVerticesAreFoundWhereTheyMay)
{
    root.GetSelectabilityControl().SetFaces(false);
    auto options = everything().SetProximity(2);
    EXPECT_THAT(keysOf(atPoint(1, 0, options)), IsEmpty()) << "nothing is drawn there";
    root.GetVisibilityControl().SetEdges(true);
    EXPECT_THAT(keysOf(atPoint(1.1f, 0, options)), ElementsAre(front));
    EXPECT_THAT(keysOf(atPoint(0, 0, options)), IsEmpty());
    root.GetVisibilityControl().SetEdges(false).SetVertices(true);
    EXPECT_THAT(keysOf(atPoint(1, 0, options)), IsEmpty());
    EXPECT_THAT(keysOf(atPoint(1.1f, 1.1f, options)), ElementsAre(front));
    root.GetVisibilityControl().SetVertices(false);
    root.GetSelectabilityControl().SetEdges(Selectability::Value::ForcedOn);
    EXPECT_THAT(keysOf(atPoint(1.1f, 0, options)), ElementsAre(front));
}

TEST_F(Options, SubentitiesAreFacesEdgesAndVertices)
{
    ShellKey const pair = root.InsertShell({{4, 4, 0}, {5, 4, 0}, {5, 5, 0}, {4, 5, 0}, {6, 4, 0}, {6, 5, 0}},
                                           {4, 0, 1, 2, 3, 4, 1, 4, 5, 2});
    LineKey const line = root.InsertLine({{-5, 5, 0}, {-4, 5, 0}, {-3, 5, 0}});
    auto options = nearestFirst().SetLevel(Selection::Level::Subentity).SetInternalLimit(10);
    auto parts = [](SelectionResults const& results) { return results.GetIterator().GetItem().Parts(); };

    EXPECT_THAT(parts(atPoint(5.5f, 4.5f, options)), (SelectionParts{{1}, {}, {}}));
    EXPECT_THAT(parts(around(5, 4.5f, 2, options)).faces, UnorderedElementsAre(0u, 1u));
    EXPECT_EQ(parts(around(5, 4.5f, 2, SelectionOptionsKit(options).SetInternalLimit(0))).faces.size(), 1u);
    using Edge = std::array<std::size_t, 2>;
    EXPECT_THAT(parts(around(-4, 5, 2, options)).edges, UnorderedElementsAre(Edge{0, 1}, Edge{1, 2}));
    EXPECT_THAT(keysOf(around(-4, 5, 2, options)), ElementsAre(line));

    root.GetVisibilityControl().SetEdges(true).SetVertices(true);
    root.GetMarkerAttributeControl().SetSize(1, Marker::SizeUnits::Pixels);
    EXPECT_THAT(parts(around(6, 4.5f, 2, options)), (SelectionParts{{}, {{4, 5}}, {}}))
        << "edges rather than faces";
    EXPECT_THAT(parts(around(6, 4, 2, options)), (SelectionParts{{}, {}, {4}}));
    options.SetGranularity(Selection::Granularity::Detailed);
    auto const all = parts(around(6, 4, 2, options));
    EXPECT_THAT(all.faces, ElementsAre(1u));
    EXPECT_THAT(all.edges, UnorderedElementsAre(Edge{1, 4}, Edge{4, 5}));
    EXPECT_THAT(all.vertices, ElementsAre(4u));
    EXPECT_TRUE(parts(around(6, 4, 2, options.SetLevel(Selection::Level::Entity))).Empty());
    EXPECT_THAT(keysOf(around(6, 4, 2, options)), ElementsAre(pair));
}

TEST_F(Options, CullingIsRespected)
{
    frontSegment.GetCullingControl().SetBackFace(true);
    EXPECT_THAT(keysOf(atPoint(0, 0, nearestFirst())), ElementsAre(front, back));
    look({0, 0, -50}, Camera::Projection::Perspective);
    EXPECT_THAT(keysOf(atPoint(0, 0, nearestFirst())), ElementsAre(back))
        << "its back is turned to the viewer";
    look({0, 0, 50}, Camera::Projection::Orthographic);

    frontSegment.GetCullingControl().SetBackFace(false).SetExtent(true, 40);
    EXPECT_THAT(keysOf(atPoint(0, 0, nearestFirst())), ElementsAre(back))
        << "28 pixels from corner to corner";
    EXPECT_THAT(keysOf(atPoint(0, 0, nearestFirst().SetExtentCullingRespected(false))),
                ElementsAre(front, back));
    frontSegment.GetCullingControl().SetExtent(true, 20);
    EXPECT_THAT(keysOf(atPoint(0, 0, nearestFirst())), ElementsAre(front, back));

    backSegment.GetCullingControl().SetVector(true, {0, 0, 1}).SetVectorTolerance(5);
    EXPECT_THAT(keysOf(atPoint(0, 0, nearestFirst())), ElementsAre(front));
    EXPECT_THAT(keysOf(atPoint(0, 0, nearestFirst().SetVectorCullingRespected(false))),
                ElementsAre(front, back));
    backSegment.GetCullingControl().SetVector(true, {0, 1, 1});
    EXPECT_THAT(keysOf(atPoint(0, 0, nearestFirst())), ElementsAre(front, back));
}

TEST_F(Options, RaysAndVolumesStandInTheWorld)
{
    SelectionResults results;
    auto options = nearestFirst();
    EXPECT_EQ(control().SelectByRay({0, 0, -9}, {0, 0, 2}, options, results), 2u);
    EXPECT_THAT(keysOf(results), ElementsAre(back, front)) << "the first on the ray comes first";
    EXPECT_EQ(positionOf(results), Point(0, 0, -2));
    control().SelectByRay({0, 0, 0}, {0, 0, 1}, options, results);
    EXPECT_THAT(keysOf(results), ElementsAre(front)) << "nothing behind its origin";
    EXPECT_EQ(control().SelectByRay({0, 0, 0}, {0, 0, 0}, options, results), 0u);

    control().SelectByVolume({{-0.5f, -0.5f, -3}, {0.5f, 0.5f, 0}}, options, results);
    EXPECT_THAT(keysOf(results), ElementsAre(back));
    control().SelectByVolume({Plane(0, 0, -1, 1)}, options, results);
    EXPECT_THAT(keysOf(results), ElementsAre(front)) << "where z is 1 or more";
    EXPECT_EQ(control().SelectByVolume(SimpleCuboid(), options, results), 0u);

    ShellKey const outside = addSquare(root, {50, 0, 0});
    LineKey const line = root.InsertLine({50, -5, 0.5f}, {50, 5, 0.5f});
    EXPECT_EQ(control().SelectByRay({50.05f, 0, 9}, {0, 0, -1}, options, results), 0u);
    control().SelectByRay({50.05f, 0, 9}, {0, 0, -1},
                          options.SetFrustumCullingRespected(false).SetProximity(1), results);
    EXPECT_THAT(keysOf(results), ElementsAre(line, outside)) << "beyond what the window shows";
    control().SelectByVolume({{49, -1, -1}, {51, 1, 1}}, options, results);
    EXPECT_THAT(keysOf(results), UnorderedElementsAre(outside, line));
}

TEST_F(Options, PlacesThatAreNoneFindNothing)
{
    float const none = std::numeric_limits<float>::quiet_NaN(),
                endless = std::numeric_limits<float>::infinity();
    SelectionResults results;
    EXPECT_EQ(control().SelectByPoint({none, 0, 0}, everything(), results), 0u);
    EXPECT_EQ(control().SelectByPoint({7, 0, 0}, everything(), results), 0u) << "beside the window";
    EXPECT_EQ(control().SelectByArea({-endless, endless, 0, 1}, everything(), results), 0u);
    EXPECT_EQ(control().SelectByArea({-9, 9, -9, 9}, everything(), results), 2u);
    EXPECT_EQ(control().SelectByArea({0.1f, -0.1f, 0.1f, -0.1f}, everything(), results), 2u)
        << "sides the other way";
    EXPECT_EQ(control().SelectByVolume(std::vector<Plane>(33, Plane(0, 0, 1, 0)), everything(), results), 0u);
    EXPECT_EQ(SelectionControl(Key()).SelectByPoint({0, 0, 0}, everything(), results), 0u);
    EXPECT_EQ(SelectionControl(front).SelectByArea({-1, 1, -1, 1}, everything(), results), 0u) << "no window";
}

} // namespace
} // namespace HPS
