// Every kind of geometry is drawn, and where its formula says.
#include "Stage.h"
#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <hps/geometry_list.h>
#include <map>

using namespace HPS;

namespace
{

/// What a kind looks like: inserted into a segment, seen from straight above, 50 pixels a unit.
struct Kind {
    std::function<void(SegmentKey)> insert;
    std::vector<Point> covered; ///< places where it is seen
    std::vector<Point> bare;    ///< and where it is not
};

NURBSSurfaceKit bentSheet()
{
    NURBSSurfaceKit kit;
    kit.SetUDegree(2).SetVDegree(1).SetUCount(3).SetVCount(2);
    kit.SetPoints({{-1, -1, 0}, {-1, 1, 0}, {0, -1, 1}, {0, 1, 1}, {1, -1, 0}, {1, 1, 0}});
    kit.SetUKnots({0, 0, 0, 1, 1, 1}).SetVKnots({0, 0, 1, 1});
    return kit;
}

std::map<Type, Kind> const& kinds()
{
    static std::map<Type, Kind> const all{
        {Type::ShellKey,
         {[](SegmentKey s) {
              insertRectangle(s, {0, 0, 0}, 2, 2);
          },
          {{0.9f, 0.9f, 0}},
          {{1.1f, 0, 0}}}},
        {Type::LineKey,
         {[](SegmentKey s) {
              s.InsertLine({{-1, 0, 0}, {1, 0, 0}, {1, 1, 0}});
          },
          {{-0.9f, 0, 0}, {1, 0.9f, 0}},
          {{0, 0.2f, 0}}}},
        {Type::PolygonKey, // a concave one
         {[](SegmentKey s) {
              s.InsertPolygon({{-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {0, 0, 0}, {-1, 1, 0}});
          },
          {{-0.9f, 0.6f, 0}, {0, -0.5f, 0}},
          {{0, 0.5f, 0}}}},
        {Type::MarkerKey,
         {[](SegmentKey s) {
              s.InsertMarker({0.5f, 0.5f, 0});
          },
          {{0.5f, 0.5f, 0}},
          {{0, 0, 0}}}},
        {Type::TextKey,
         {[](SegmentKey s) {
              s.InsertText(TextKit(Point(0, 0, 0), "\u2588") // a full block
                               .SetSize(1, Text::SizeUnits::WorldSpace)
                               .SetTransform(Text::Transform::Transformable));
          },
          {{0.3f, 0.3f, 0}},
          {{-0.3f, 0.3f, 0}}}},
        {Type::MeshKey,
         {[](SegmentKey s) {
              s.InsertMesh(2, 3, {{-1, -1, 0}, {0, -1, 0}, {1, -1, 0}, {-1, 1, 0}, {0, 1, 0}, {1, 1, 0}});
          },
          {{0.9f, 0.9f, 0}, {-0.5f, -0.5f, 0}},
          {{1.1f, 0, 0}}}},
        {Type::GridKey,
         {[](SegmentKey s) {
              s.InsertGrid(Grid::Type::Quadrilateral, {-1, -1, 0}, {-0.5f, -1, 0}, {-1, 0, 0}, 4, 2);
          },
          {{0.5f, 0.3f, 0}, {0.2f, 0, 0}},
          {{0.25f, 0.5f, 0}}}},
        {Type::NURBSSurfaceKey,
         {[](SegmentKey s) { s.InsertNURBSSurface(bentSheet()); },
          {{0.9f, 0.9f, 0}, {0, 0, 0}},
          {{1.1f, 0, 0}}}},
        {Type::CylinderKey,
         {[](SegmentKey s) {
              s.InsertCylinder({0, -1, 0}, {0, 1, 0}, 0.5f);
          },
          {{0.45f, 0.9f, 0}, {0, 0, 0}},
          {{0.6f, 0, 0}}}},
        {Type::SphereKey,
         {[](SegmentKey s) {
              s.InsertSphere({0, 0, 0}, 1);
          },
          {{0.66f, 0.66f, 0}},
          {{0.8f, 0.8f, 0}}}},
        {Type::CircleKey,
         {[](SegmentKey s) {
              s.InsertCircle({0, 0, 0}, 1, {0, 0, 1});
          },
          {{0.66f, 0.66f, 0}},
          {{0.8f, 0.8f, 0}}}},
        {Type::CircularWedgeKey,
         {[](SegmentKey s) {
              float const h = std::sqrt(0.5f);
              s.InsertCircularWedge({1, 0, 0}, {h, h, 0}, {0, 1, 0});
          },
          {{0.5f, 0.5f, 0}, {0.1f, 0.1f, 0}},
          {{-0.2f, 0.3f, 0}, {0.8f, 0.8f, 0}}}},
        {Type::EllipseKey,
         {[](SegmentKey s) {
              s.InsertEllipse({0, 0, 0}, {1.5f, 0, 0}, {0, 0.5f, 0});
          },
          {{1.3f, 0, 0}, {0, 0.4f, 0}},
          {{0, 0.7f, 0}}}},
        {Type::NURBSCurveKey,
         {[](SegmentKey s) {
              s.InsertNURBSCurve(2, {{-1, 0, 0}, {0, 2, 0}, {1, 0, 0}}, {0, 0, 0, 1, 1, 1});
          },
          {{0, 1, 0}},
          {{0, 0.5f, 0}}}},
        {Type::CircularArcKey,
         {[](SegmentKey s) {
              s.InsertCircularArc({1, 0, 0}, {0, 1, 0}, {-1, 0, 0});
          },
          {{0, 1, 0}, {std::sqrt(0.5f), std::sqrt(0.5f), 0}},
          {{0, -1, 0}, {0, 0, 0}}}},
        {Type::EllipticalArcKey,
         {[](SegmentKey s) {
              s.InsertEllipticalArc({0, 0, 0}, {1.5f, 0, 0}, {0, 1, 0}, 0, 0.5f);
          },
          {{0, 1, 0}},
          {{0, -1, 0}, {0, 0, 0}}}},
        {Type::InfiniteLineKey,
         {[](SegmentKey s) {
              s.InsertInfiniteLine({0, 0, 0}, {0.1f, 0, 0});
          },
          {{-1.9f, 0, 0}, {1.9f, 0, 0}},
          {{0, 0.5f, 0}}}},
        {Type::ReferenceKey,
         {[](SegmentKey s) {
              ShellKey const elsewhere =
                  insertRectangle(Database::CreateRootSegment(), {0, 0, 0}, 0.5f, 0.5f);
              ReferenceKit kit;
              kit.SetTarget(elsewhere).SetModellingMatrix(MatrixKit().Translate(1, 1, 0));
              s.InsertReference(kit);
          },
          {{1.2f, 1.2f, 0}},
          {{0, 0, 0}}}},
    };
    return all;
}

bool isScenery(Type type)
{
    return type == Type::DistantLightKey || type == Type::SpotlightKey || type == Type::CuttingSectionKey;
}

void prepare(Stage& stage)
{
    stage.root().GetVisibilityControl().SetMarkers(true);
    stage.root().GetMarkerAttributeControl().SetSize(12, Marker::SizeUnits::Pixels);
    stage.root().GetLineAttributeControl().SetWeight(4, Line::SizeUnits::Pixels);
    stage.root()
        .GetMaterialMappingControl()
        .SetFaceColor(RGBAColor(1, 1, 1))
        .SetLineColor(RGBAColor(1, 1, 1))
        .SetMarkerColor(RGBAColor(1, 1, 1))
        .SetTextColor(RGBAColor(1, 1, 1));
}

bool isInk(QImage const& image, Point const& at)
{
    int const x = int(std::lround(100 + at.x * 50)), y = int(std::lround(75 - at.y * 50));
    return qGray(image.pixel(std::clamp(x, 0, image.width() - 1), std::clamp(y, 0, image.height() - 1))) > 90;
}

TEST(GeometryKinds, AreAllInTheTable)
{
#define HAS_ROW(Name) EXPECT_TRUE(kinds().contains(Type::Name##Key) || isScenery(Type::Name##Key)) << #Name;
    HPS_GEOMETRY_KINDS(HAS_ROW)
#undef HAS_ROW
}

TEST(GeometryKinds, CoverWhatTheirFormulaSays)
{
    for (auto const& [type, kind] : kinds()) {
        Stage stage;
        prepare(stage);
        kind.insert(stage.root());
        QImage const image = stage.picture();
        for (Point const& p : kind.covered)
            EXPECT_TRUE(isInk(image, p)) << "kind " << int(type) << " at " << p.x << ' ' << p.y;
        for (Point const& p : kind.bare)
            EXPECT_FALSE(isInk(image, p)) << "kind " << int(type) << " at " << p.x << ' ' << p.y;
    }
}

TEST(GeometryKinds, GoWhenTheyAreDeleted)
{
    for (auto const& [type, kind] : kinds()) {
        Stage stage;
        prepare(stage);
        QImage const empty = stage.picture();
        kind.insert(stage.root());
        EXPECT_NE(stage.picture(), empty) << int(type);
        stage.root().Flush(Search::Type::Geometry);
        EXPECT_EQ(stage.picture(), empty) << int(type);
    }
}

TEST(Geometry, TrimsCutAtTheirOutline)
{
    Stage stage;
    prepare(stage);
    NURBSSurfaceKit kit = bentSheet();
    std::vector<Point> outline; // u and v run with x and y over the sheet
    for (int i = 0; i < 64; ++i) {
        double const angle = i * 2 * 3.14159265 / 64;
        outline.emplace_back(float(0.5 + 0.3 * std::cos(angle)), float(0.5 + 0.3 * std::sin(angle)), 0.0f);
    }
    kit.SetTrims({TrimKit().SetPoints(outline).SetOperation(Trim::Operation::Remove)});
    stage.root().InsertNURBSSurface(kit);
    QImage const image = stage.picture();
    for (int i = 0; i < 16; ++i) { // a hole of radius 0.6 in a sheet 2 wide
        float const c = std::cos(float(i) * 0.3927f), s = std::sin(float(i) * 0.3927f);
        EXPECT_FALSE(isInk(image, {0.54f * c, 0.54f * s, 0})) << i;
        EXPECT_TRUE(isInk(image, {0.66f * c, 0.66f * s, 0})) << i;
    }
}

TEST(Geometry, TessellationFollowsTheAttributes)
{
    Stage stage;
    prepare(stage);
    stage.root().InsertSphere({0, 0, 0}, 1);
    stage.picture();
    auto const usual = stage.report().triangles;
    stage.root().GetSphereAttributeControl().SetTessellation(8);
    stage.picture();
    EXPECT_LT(stage.report().triangles, usual / 4);
    stage.root().GetSphereAttributeControl().SetTessellation(60);
    stage.picture();
    EXPECT_GT(stage.report().triangles, usual * 3);
}

TEST(Geometry, ReferencesFollowWhatTheyShow)
{
    Stage stage;
    prepare(stage);
    SegmentKey store = Database::CreateRootSegment();
    ShellKey shell = insertRectangle(store, {0, 0, 0}, 0.5f, 0.5f);
    stage.root().ReferenceGeometry(shell);
    EXPECT_TRUE(isInk(stage.picture(), {0, 0, 0}));
    EXPECT_FALSE(isInk(stage.picture(), {1, 0, 0}));
    shell.Delete();
    EXPECT_FALSE(isInk(stage.picture(), {0, 0, 0}));
}

} // namespace
