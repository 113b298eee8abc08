#include "operation.h"
#include <hps/ShellRelation.h>

using namespace HPS;

namespace
{

// Inserts the kit, reads it back, changes its priority through Consume and reads that.
template <class KeyType> void goesThereAndBack(KeyType key)
{
    typename KeyType::Kit kit, again;
    ASSERT_TRUE(key.Show(kit));
    kit.SetPriority(4).SetUserData(3, {1});
    ASSERT_TRUE(key.Consume(kit));
    EXPECT_TRUE(kit.Empty()) << "consumed";
    ASSERT_TRUE(key.Show(again));
    int priority = 0;
    EXPECT_TRUE(again.ShowPriority(priority) && key.ShowPriority(priority));
    EXPECT_EQ(priority, 4);
    EXPECT_EQ(key.ShowUserDataCount(), 1u);
}

} // namespace

OperationRows geometryOperations()
{
    return {
        {"Insert, Show and Consume of every geometry", "scene inspector",
         [](Bench& b) {
             std::vector<Point> const grid{{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0}};
             goesThereAndBack(b.shell);
             goesThereAndBack(b.body.InsertMesh(2, 2, grid));
             goesThereAndBack(b.body.InsertLine({0, 0, 0}, {1, 1, 1}));
             goesThereAndBack(b.body.InsertPolygon(grid));
             goesThereAndBack(b.body.InsertMarker({1, 2, 3}));
             goesThereAndBack(b.body.InsertText({0, 0, 0}, "text"));
             goesThereAndBack(b.body.InsertDistantLight({1, 0, -1.5f}));
             goesThereAndBack(b.body.InsertSpotlight({0, 0, 5}, {0, 0, 0}));
             goesThereAndBack(b.body.InsertGrid(Grid::Type::Radial, {0, 0, 0}, {1, 0, 0}, {0, 1, 0}, 4, 4));
             goesThereAndBack(b.body.InsertCylinder({0, 0, 0}, {0, 0, 1}, 2));
             goesThereAndBack(b.body.InsertSphere({0, 0, 0}, 2));
             goesThereAndBack(b.body.InsertCircle({0, 0, 0}, 2, {0, 0, 1}));
             goesThereAndBack(b.body.InsertCircularArc({1, 0, 0}, {0, 1, 0}, {-1, 0, 0}));
             goesThereAndBack(b.body.InsertCircularWedge({1, 0, 0}, {0, 1, 0}, {-1, 0, 0}));
             goesThereAndBack(b.body.InsertEllipse({0, 0, 0}, {2, 0, 0}, {0, 1, 0}));
             goesThereAndBack(b.body.InsertEllipticalArc({0, 0, 0}, {2, 0, 0}, {0, 1, 0}, 0, 0.5f));
             goesThereAndBack(b.body.InsertInfiniteLine({0, 0, 0}, {1, 0, 0}));
             goesThereAndBack(b.body.InsertCuttingSection(Plane(0, 0, 1, 0)));
             goesThereAndBack(b.body.InsertNURBSCurve(1, {{0, 0, 0}, {1, 0, 0}}, {0, 0, 1, 1}));
             NURBSSurfaceKit surface;
             surface.SetUDegree(1).SetVDegree(1).SetUCount(2).SetVCount(2).SetPoints(grid);
             goesThereAndBack(
                 b.body.InsertNURBSSurface(surface.SetUKnots({0, 0, 1, 1}).SetVKnots({0, 0, 1, 1})));
             goesThereAndBack(b.body.ReferenceGeometry(b.shell));
         }},
        {"ShellKit::SetVertexNormalsByRange", "visualisation meshes",
         [](Bench& b) {
             ShellKit kit;
             kit.SetPoints({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}).SetFacelist({3, 0, 1, 2});
             kit.SetVertexNormalsByRange(0, {{0, 0, 1}, {0, 0, 1}, {0, 0, 1}});
             auto const key = b.body.InsertShell(kit);
             ShellKit shown;
             ASSERT_TRUE(key.Show(shown));
             std::vector<bool> isSet;
             std::vector<Vector> normals;
             ASSERT_TRUE(shown.ShowVertexNormals(isSet, normals));
             EXPECT_THAT(normals, testing::Each(Vector(0, 0, 1)));
             EXPECT_EQ(shown, kit);
         }},
        {"ShellKey::ComputeRelation", "polygons with holes",
         [](Bench& b) {
             auto const square = [&](float half) {
                 return b.body.InsertShell(
                     {{-half, -half, 0}, {half, -half, 0}, {half, half, 0}, {-half, half, 0}},
                     {4, 0, 1, 2, 3});
             };
             auto const outer = square(2);
             auto const inner = square(1);
             ShellRelationOptionsKit const options = ShellRelationOptionsKit::GetDefault();
             ShellRelationResultsKit results;
             EXPECT_TRUE(outer.ComputeRelation(inner, options, results) ||
                         inner.ComputeRelation(outer, options, results));
         }},
        {"TextKit::SetAlignment", "annotation texts",
         [](Bench& b) {
             TextKit kit;
             kit.SetText("12.5").SetPosition({1, 2, 3}).SetSize(4, Text::SizeUnits::WorldSpace);
             kit.SetAlignment(Text::Alignment::BottomLeft).SetSpacing(1.5f).SetFont("stroked");
             kit.SetColor(RGBAColor(1, 0, 0, 1));
             auto const key = b.body.InsertText(kit);
             TextKit shown;
             ASSERT_TRUE(key.Show(shown));
             EXPECT_EQ(shown, kit);
         }},
        {"EllipseKey::SetMajor", "pick ray",
         [](Bench& b) {
             auto ellipse = b.body.InsertEllipse({0, 0, 0}, {2, 0, 0}, {0, 1, 0});
             ellipse.SetCenter({1, 0, 0}).SetMajor({3, 0, 0}).SetMinor({1, 2, 0});
             Point point;
             EXPECT_TRUE(ellipse.ShowMajor(point));
             EXPECT_EQ(point, Point(3, 0, 0));
         }},
        {"ReferenceKey::ShowModellingMatrix", "scene inspector",
         [](Bench& b) {
             auto reference = b.body.ReferenceGeometry(b.shell);
             MatrixKit matrix;
             EXPECT_FALSE(reference.ShowModellingMatrix(matrix));
             reference.SetModellingMatrix(MatrixKit().Translate(0, 0, 3));
             EXPECT_TRUE(reference.ShowModellingMatrix(matrix));
             EXPECT_EQ(matrix.Transform(Point()), Point(0, 0, 3));
             reference.UnsetModellingMatrix();
             EXPECT_FALSE(reference.ShowModellingMatrix(matrix));
         }},
    };
}
