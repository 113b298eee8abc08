// Every kind of geometry, each met in the place where it is drawn.
#include "Stage.h"

namespace HPS
{
namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

struct Kind {
    char const* name;
    std::function<Key(SegmentKey)> insert;
    Point hit, miss; ///< in the plane z = 0
    float z;         ///< of the position found at `hit`
};

class Kinds : public Stage, public testing::WithParamInterface<Kind>
{
};

TEST_P(Kinds, AreFoundInTheirPlace)
{
    SegmentKey part = model.GetLibraryKey().Subsegment();
    Key const key = GetParam().insert(part);
    SegmentKey place = root.Subsegment();
    IncludeKey const include = place.IncludeSegment(part);
    auto const options = everything().SetProximity(2);
    auto const [hit, miss] = std::pair(GetParam().hit, GetParam().miss);
    KeyPath const above = SprocketPath(canvas, canvas.GetAttachedLayout(), view, model).GetKeyPath();
    for (float const move : {0.0f, 3.0f}) { // again once it has moved
        place.SetModellingMatrix(MatrixKit().Translate(-move, move, move));
        auto const results = atPoint(hit.x - move, hit.y + move, options);
        ASSERT_THAT(keysOf(results), ElementsAre(key));
        KeyPath expected(KeyArray{key, part, include, place});
        EXPECT_EQ(pathOf(results), expected.Append(above));
        EXPECT_NEAR(positionOf(results).x, hit.x - move, 0.21f);
        EXPECT_NEAR(positionOf(results).y, hit.y + move, 0.21f);
        EXPECT_NEAR(positionOf(results).z, GetParam().z + move, 0.05f);
        EXPECT_THAT(keysOf(atPoint(miss.x - move, miss.y + move, options)), IsEmpty());
        EXPECT_THAT(keysOf(around(hit.x - move, hit.y + move, 3, options)), ElementsAre(key));
        EXPECT_THAT(keysOf(around(miss.x - move, miss.y + move, 1, everything())), IsEmpty());
    }
    place.GetVisibilityControl().SetEverything(false);
    EXPECT_THAT(keysOf(around(hit.x - 3, hit.y + 3, 3, options)), IsEmpty());
    place.GetSelectabilityControl().SetEverything(Selectability::Value::ForcedOn);
    EXPECT_THAT(keysOf(around(hit.x - 3, hit.y + 3, 3, options)), ElementsAre(key));
}

TextKit text(Text::SizeUnits units, float size)
{
    TextKit kit(Point(1, 1, 0), "HHHH");
    kit.SetSize(size, units).SetFont("DejaVu Sans").SetAlignment(Text::Alignment::BottomLeft);
    return kit.SetTransform(Text::Transform::Transformable), kit;
}

void PrintTo(Kind const& kind, std::ostream* out)
{
    *out << kind.name;
}

std::vector<Kind> kinds()
{
    return {
        {"Shell",
         [](SegmentKey s) {
             return s.InsertShell({{0, 0, 0}, {4, 0, 0}, {0, 4, 0}}, {3, 0, 1, 2});
         },
         {1, 1, 0},
         {3, 3, 0},
         0},
        // The notch and the hole are no part of it.
        {"NotchedShell",
         [](SegmentKey s) {
             return s.InsertShell({{0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {2, 1, 0}, {0, 4, 0}},
                                  {5, 0, 1, 2, 3, 4});
         },
         {0.5f, 2, 0},
         {2, 2, 0},
         0},
        {"PiercedShell",
         [](SegmentKey s) {
             return s.InsertShell(
                 {{0, 0, 0}, {6, 0, 0}, {6, 6, 0}, {0, 6, 0}, {2, 2, 0}, {2, 4, 0}, {4, 4, 0}, {4, 2, 0}},
                 {4, 0, 1, 2, 3, -4, 4, 5, 6, 7});
         },
         {1, 3, 0},
         {3, 3, 0},
         0},
        {"Line",
         [](SegmentKey s) {
             return s.InsertLine({{0, 0, 1}, {4, 0, 1}, {4, 4, 1}});
         },
         {4, 2, 0},
         {2, 2, 0},
         1},
        {"Polygon",
         [](SegmentKey s) {
             return s.InsertPolygon({{0, 0, 0}, {4, 0, 0}, {4, 4, 0}});
         },
         {3, 1, 0},
         {1, 3, 0},
         0},
        {"Marker",
         [](SegmentKey s) {
             return s.InsertMarker({2, 1, 3});
         },
         {2, 1.1f, 0},
         {2, 2, 0},
         3},
        {"TextInTheWorld",
         [](SegmentKey s) { return s.InsertText(text(Text::SizeUnits::WorldSpace, 2)); },
         {3, 1.5f, 0},
         {3, 4, 0},
         0},
        {"TextInPixels",
         [](SegmentKey s) { return s.InsertText(text(Text::SizeUnits::Pixels, 20)); },
         {3, 1.5f, 0},
         {0.5f, 1.5f, 0},
         0},
        {"Mesh",
         [](SegmentKey s) {
             return s.InsertMesh(2, 2, {{0, 0, 0}, {2, 0, 0}, {0, 2, 2}, {2, 2, 2}});
         },
         {1, 1, 0},
         {3, 1, 0},
         1},
        {"Grid",
         [](SegmentKey s) {
             return s.InsertGrid(GridKit()
                                     .SetOrigin({0, 0, 0})
                                     .SetFirstPoint({1, 0, 0})
                                     .SetSecondPoint({0, 1, 0})
                                     .SetFirstCount(3)
                                     .SetSecondCount(3));
         },
         {2, 1.5f, 0},
         {1.5f, 1.5f, 0},
         0},
        {"Cylinder",
         [](SegmentKey s) {
             return s.InsertCylinder(CylinderKit().SetPoints({{0, 0, 0}, {4, 0, 0}}).SetRadii({1}));
         },
         {2, 0, 0},
         {2, 1.5f, 0},
         1},
        {"Sphere",
         [](SegmentKey s) {
             return s.InsertSphere(SphereKit().SetCenter({1, 1, 1}).SetRadius(2));
         },
         {1, 1, 0},
         {1, 3.5f, 0},
         3},
        {"Circle",
         [](SegmentKey s) {
             return s.InsertCircle(CircleKit().SetCenter({1, 1, 0}).SetRadius(2).SetNormal({0, 0, 1}));
         },
         {2, 2, 0},
         {3, 3, 0},
         0},
        {"CircularWedge",
         [](SegmentKey s) {
             return s.InsertCircularWedge(
                 CircularWedgeKit().SetStart({2, 0, 0}).SetMiddle({0, 2, 0}).SetEnd({-2, 0, 0}));
         },
         {0, 1, 0},
         {0, -1, 0},
         0},
        {"Ellipse",
         [](SegmentKey s) {
             return s.InsertEllipse(
                 EllipseKit().SetCenter({0, 0, 0}).SetMajor({4, 0, 0}).SetMinor({0, 1, 0}));
         },
         {3, 0, 0},
         {0, 2, 0},
         0},
        {"CircularArc",
         [](SegmentKey s) {
             return s.InsertCircularArc(
                 CircularArcKit().SetStart({2, 0, 0}).SetMiddle({0, 2, 0}).SetEnd({-2, 0, 0}));
         },
         {0, 2, 0},
         {0, 1, 0},
         0},
        {"EllipticalArc",
         [](SegmentKey s) {
             return s.InsertEllipticalArc(EllipticalArcKit()
                                              .SetCenter({0, 0, 0})
                                              .SetMajor({4, 0, 0})
                                              .SetMinor({0, 1, 0})
                                              .SetStart(0)
                                              .SetEnd(0.5f));
         },
         {0, 1, 0},
         {0, -1, 0},
         0},
        {"NURBSCurve",
         [](SegmentKey s) {
             return s.InsertNURBSCurve(NURBSCurveKit()
                                           .SetDegree(2)
                                           .SetPoints({{0, 0, 0}, {2, 4, 0}, {4, 0, 0}})
                                           .SetKnots({0, 0, 0, 1, 1, 1}));
         },
         {2, 2, 0},
         {2, 4, 0},
         0},
        {"NURBSSurface",
         [](SegmentKey s) {
             return s.InsertNURBSSurface(NURBSSurfaceKit()
                                             .SetUDegree(1)
                                             .SetVDegree(1)
                                             .SetUCount(2)
                                             .SetVCount(2)
                                             .SetPoints({{0, 0, 0}, {2, 0, 0}, {0, 2, 0}, {2, 2, 0}})
                                             .SetUKnots({0, 0, 1, 1})
                                             .SetVKnots({0, 0, 1, 1}));
         },
         {1, 1, 0},
         {3, 1, 0},
         0},
        {"InfiniteLine",
         [](SegmentKey s) {
             return s.InsertInfiniteLine(InfiniteLineKit().SetFirst({100, 100, 1}).SetSecond({101, 101, 1}));
         },
         {2, 2, 0},
         {2, 3, 0},
         1},
        {"InfiniteRay",
         [](SegmentKey s) {
             return s.InsertInfiniteLine(
                 InfiniteLineKit().SetFirst({0, 0, 1}).SetSecond({1, 1, 1}).SetType(InfiniteLine::Type::Ray));
         },
         {2, 2, 0},
         {-1, -1, 0},
         1},
        {"Reference",
         [](SegmentKey s) {
             ShellKey const target =
                 Factory::GetModels().back().GetLibraryKey().Subsegment("shapes").InsertShell(
                     {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {3, 0, 1, 2});
             ReferenceKey reference = s.ReferenceGeometry(target);
             reference.SetModellingMatrix(MatrixKit().Scale(4, 4, 1).Translate(0, 0, 2));
             return reference;
         },
         {1, 1, 0},
         {3, 3, 0},
         2},
    };
}
INSTANTIATE_TEST_SUITE_P(All, Kinds, testing::ValuesIn(kinds()), [](auto const& i) { return i.param.name; });

class Texts : public Stage
{
protected:
    /// Whether a text of four letters, an em of 2, is met at a place beside its own.
    bool isMet(TextKit const& kit, float x, float y)
    {
        root.Flush(Search::Type::Geometry, Search::Space::SegmentOnly);
        root.InsertText(kit);
        return !atPoint(x, y, everything()).Empty();
    }
};

TEST_F(Texts, StandAsTheirAttributesSay)
{
    auto kit = [] { return text(Text::SizeUnits::WorldSpace, 2); };
    EXPECT_TRUE(isMet(kit(), 3, 2));
    EXPECT_FALSE(isMet(kit(), -1, 2));
    EXPECT_TRUE(isMet(TextKit(kit()).SetAlignment(Text::Alignment::BottomRight), -1, 2));
    EXPECT_FALSE(isMet(TextKit(kit()).SetAlignment(Text::Alignment::TopLeft), 3, 2));
    EXPECT_TRUE(isMet(TextKit(kit()).SetAlignment(Text::Alignment::TopLeft), 3, 0));
    EXPECT_TRUE(
        isMet(TextKit(kit()).SetPath(Vector(0, 1, 0)).SetRotation(Text::Rotation::FollowPath), 1.5f, 5));
    EXPECT_TRUE(isMet(TextKit(kit()).SetModellingMatrix(MatrixKit().Rotate(0, 0, 90)), -2, 3));
    EXPECT_FALSE(isMet(TextKit(kit()).SetModellingMatrix(MatrixKit().Rotate(0, 0, 90)), 3, 2));
    EXPECT_TRUE(
        isMet(TextKit(kit()).SetRegion({{0, 0, 0}, {-6, 0, 0}, {-6, 2, 0}}, Text::RegionAlignment::Bottom,
                                       Text::RegionFitting::Left, true, true, false),
              -3, 2));
    EXPECT_FALSE(isMet(TextKit(kit()).SetText(""), 1, 1));
}

TEST_F(Texts, OfTheScreenKeepTheirSizeThere)
{
    TextKit kit = text(Text::SizeUnits::Pixels, 20);
    kit.SetTransform(Text::Transform::NonTransformable);
    EXPECT_TRUE(isMet(kit, 3, 1.5f));
    root.SetModellingMatrix(MatrixKit().Scale(0.1, 0.1, 0.1).Rotate(0, 70, 30));
    EXPECT_TRUE(isMet(kit, 2, 0.8f)) << "neither turned nor smaller";
    CameraKit camera;
    view.ShowCamera(camera);
    view.SetCamera(camera.SetField(2, 2));
    EXPECT_TRUE(isMet(kit, 4, 1.5f)) << "nor larger when seen from near by";
}

} // namespace
} // namespace HPS
