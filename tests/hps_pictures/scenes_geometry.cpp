// All kinds of geometry side by side, and contour lines.
#include "Stage.h"
#include <cmath>

using namespace HPS;

namespace
{

SegmentKey place(Stage& stage, int column, int row)
{
    SegmentKey segment = stage.root().Subsegment();
    segment.GetModellingMatrixControl().Scale(0.4f, 0.4f, 0.4f);
    segment.GetModellingMatrixControl().Translate(-1.5f + float(column), 1 - float(row), 0);
    return segment;
}

void geometry(Stage& stage)
{
    stage.light();
    stage.look({2, 3, 10}, 3.2f);
    SegmentKey root = stage.root();
    root.GetMaterialMappingControl()
        .SetFaceColor(RGBAColor(0.7f, 0.6f, 0.3f))
        .SetLineColor(RGBAColor(0.9f, 0.9f, 1));
    root.GetLineAttributeControl().SetWeight(2, Line::SizeUnits::Pixels);
    place(stage, 0, 0).InsertSphere({0, 0, 0}, 1);
    place(stage, 1, 0).InsertCylinder({0, -1, 0}, {0.3f, 1, 0}, 0.6f);
    CylinderKit cone;
    cone.SetPoints({{0, -1, 0}, {0, 0.2f, 0}, {0, 1, 0}}).SetRadii({1, 0.3f, 0.6f});
    cone.SetVertexRGBColorsByRange(0, {RGBColor(1, 0, 0), RGBColor(0, 1, 0), RGBColor(0, 0, 1)});
    place(stage, 2, 0).InsertCylinder(cone);
    NURBSSurfaceKit sheet;
    sheet.SetUDegree(2).SetVDegree(2).SetUCount(3).SetVCount(3);
    sheet.SetPoints({{-1, -1, 0},
                     {-1, 0, 1},
                     {-1, 1, 0},
                     {0, -1, 1},
                     {0, 0, 2},
                     {0, 1, 1},
                     {1, -1, 0},
                     {1, 0, 1},
                     {1, 1, 0}});
    sheet.SetUKnots({0, 0, 0, 1, 1, 1}).SetVKnots({0, 0, 0, 1, 1, 1});
    std::vector<Point> hole;
    for (int i = 0; i < 40; ++i)
        hole.emplace_back(0.5f + 0.25f * std::cos(float(i) * 0.157f),
                          0.5f + 0.25f * std::sin(float(i) * 0.157f), 0.0f);
    sheet.SetTrims({TrimKit().SetPoints(hole).SetOperation(Trim::Operation::Remove)});
    place(stage, 3, 0).InsertNURBSSurface(sheet);
    place(stage, 0, 1).InsertCircle({0, 0, 0}, 1, {0.2f, 0.3f, 1});
    place(stage, 1, 1).InsertEllipse({0, 0, 0}, {1, 0.3f, 0}, {-0.2f, 0.6f, 0});
    place(stage, 2, 1).InsertCircularWedge({1, 0, 0}, {0, 1, 0}, {-1, 0, 0});
    place(stage, 3, 1).InsertPolygon({{-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {0, -0.3f, 0}, {-1, 1, 0}});
    place(stage, 0, 2).InsertGrid(Grid::Type::Radial, {0, 0, 0}, {0.3f, 0, 0}, {0, 1, 0}, 3, 8);
    place(stage, 1, 2)
        .InsertNURBSCurve(3, {{-1, -1, 0}, {-1, 2, 0}, {1, -2, 0}, {1, 1, 0}}, {0, 0, 0, 0, 1, 1, 1, 1});
    place(stage, 2, 2).InsertEllipticalArc({0, 0, 0}, {1, 0, 0}, {0, 0.6f, 0}, 0.1f, 0.8f);
    SegmentKey mesh = place(stage, 3, 2);
    std::vector<Point> points;
    for (int row = 0; row < 6; ++row)
        for (int column = 0; column < 6; ++column)
            points.emplace_back(-1 + 0.4f * float(column), -1 + 0.4f * float(row),
                                0.4f * std::sin(float(column)) * std::cos(float(row)));
    mesh.InsertMesh(6, 6, points);
}

void contours(Stage& stage)
{
    stage.look({3, 4, 8});
    std::vector<Point> points;
    std::vector<float> heights;
    std::vector<int> faces;
    constexpr int steps = 40;
    for (int row = 0; row <= steps; ++row)
        for (int column = 0; column <= steps; ++column) {
            float const x = -1.4f + 2.8f * float(column) / steps, y = -1.4f + 2.8f * float(row) / steps;
            float const z =
                std::exp(-x * x - y * y) - 0.6f * std::exp(-4 * ((x - 0.8f) * (x - 0.8f) + y * y));
            points.emplace_back(x, y, z);
            heights.push_back(z);
        }
    for (int row = 0; row < steps; ++row)
        for (int column = 0; column < steps; ++column) {
            int const a = row * (steps + 1) + column;
            faces.insert(faces.end(), {4, a, a + 1, a + steps + 2, a + steps + 1});
        }
    ShellKit kit;
    kit.SetPoints(points).SetFacelist(faces).SetVertexParametersByRange(0, heights, 1);
    stage.root().GetMaterialMappingControl().SetFaceColor(RGBAColor(0.25f, 0.3f, 0.35f));
    stage.root().GetDrawingAttributeControl().SetFaceDisplacement(true, 16);
    stage.root()
        .GetContourLineControl()
        .SetVisibility(true)
        .SetPositions(0.1f, 0.05f)
        .SetColors({RGBColor(1, 0.8f, 0.2f), RGBColor(0.3f, 0.9f, 0.5f), RGBColor(0.4f, 0.7f, 1)});
    stage.root().InsertShell(kit);
}

SceneTable const table{{"geometry", geometry}, {"contours", contours}};

} // namespace
