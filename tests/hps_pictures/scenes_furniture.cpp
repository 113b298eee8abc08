// Windows within a view, and what stands in its corners.
#include "Stage.h"
#include <hps/AxisTriadControl.h>
#include <hps/NavigationCubeControl.h>

using namespace HPS;

namespace
{

void body(Stage& stage)
{
    stage.light();
    SegmentKey box = stage.root().Subsegment("box");
    box.GetMaterialMappingControl().SetFaceColor(RGBAColor(0.7f, 0.6f, 0.4f));
    insertBox(box, {-0.8f, -0.5f, -0.6f}, {0.8f, 0.5f, 0.6f});
}

MaterialKitArray materials(std::initializer_list<RGBAColor> colours)
{
    MaterialKitArray kits;
    for (RGBAColor const& colour : colours) kits.push_back(MaterialKit().SetDiffuse(colour));
    return kits;
}

/// As a viewer sets them up: palettes of its own, names on the sides.
void corners(Stage& stage)
{
    body(stage);
    stage.model.SetOrientation({0, 0, 1}, {1, 0, 0});
    Point eye(6, 3, 4);
    Vector up(0, 0, 1);
    if (stage.value("seen") == "front") eye = {10, 0, 0};
    if (stage.value("seen") == "top") eye = {0, 0, 10}, up = {-1, 0, 0};
    CameraKit camera;
    camera.SetPosition(eye).SetTarget({0, 0, 0}).SetUpVector(up).SetField(4, 3);
    camera.SetProjection(Camera::Projection::Perspective);
    stage.view.SetCamera(camera);
    PortfolioKey portfolio = stage.model.GetPortfolioKey();
    stage.viewSegment().GetPortfolioControl().Push(portfolio);
    portfolio.DefineMaterialPalette("triad", materials({{0, 0, 1}, {0, 1, 0}, {1, 0, 0}}));
    RGBAColor const x(0.78f, 0.7f, 0.7f), y(0.7f, 0.78f, 0.7f), z(0.7f, 0.7f, 0.78f);
    portfolio.DefineMaterialPalette(
        "cube", materials({z, y, x, z, y, x, {1, 0.6f, 0.1f}, RGBAColor::Black(), {0.2f, 0.2f, 0.2f}}));
    stage.view.GetAxisTriadControl().SetMaterialPalette("triad").SetVisibility(true).SetSize(0.3f);
    NavigationCubeControl cube = stage.view.GetNavigationCubeControl();
    cube.SetMaterialPalette("cube").SetVisibility(true).SetInteractivity(true).SetSize(0.35f);
    TextAttributeKit text = TextAttributeKit::GetDefault();
    text.SetSize(25, Text::SizeUnits::Pixels).SetAlignment(Text::Alignment::Center);
    cube.SetText("Back", "Top", "Left", "Front", "Bottom", "Right", text);
    if (stage.has("marked")) cube.Highlight({1, 1, 1}).Highlight({0, 1, 0});
}

/// Windows with borders and backgrounds, one within another, in the order of their priorities.
void windows(Stage& stage)
{
    body(stage);
    stage.look({4, 3, 10});
    auto window = [](SegmentKey owner, Rectangle const& place, Subwindow::Background background,
                     Subwindow::Border border, RGBAColor const& colour) {
        SegmentKey segment = owner.Subsegment();
        SubwindowKit kit;
        kit.SetSubwindow(place, IntRectangle()).SetBackground(background).SetBorder(border);
        segment.SetSubwindow(kit);
        segment.GetMaterialMappingControl().SetWindowColor(colour).SetWindowContrastColor(RGBAColor::White());
        CameraKit camera;
        camera.SetPosition({3, 3, 5}).SetTarget({0, 0, 0}).SetUpVector({0, 1, 0}).SetField(3, 3);
        segment.SetCamera(camera);
        segment.GetMaterialMappingControl().SetFaceColor(RGBAColor(0.3f, 0.6f, 0.9f));
        insertBox(segment, {-0.8f, -0.8f, -0.8f}, {0.8f, 0.8f, 0.8f});
        return segment;
    };
    using Background = Subwindow::Background;
    using Border = Subwindow::Border;
    SegmentKey outer = window(stage.viewSegment(), {-0.9f, -0.1f, -0.9f, 0.2f}, Background::SolidColor,
                              Border::Line, {0.9f, 0.9f, 0.7f});
    window(outer, {0.1f, 0.9f, 0.1f, 0.9f}, Background::GradientTopToBottom, Border::Inset,
           {0.3f, 0.5f, 0.3f});
    SegmentKey upper =
        window(stage.viewSegment(), {0, 0.9f, 0, 0.9f}, Background::Transparent, Border::Line, {});
    SegmentKey lower = window(stage.viewSegment(), {-0.3f, 0.5f, -0.3f, 0.5f}, Background::Blend,
                              Border::Inset, {0.9f, 0.2f, 0.2f, 0.6f});
    upper.SetPriority(2);
    lower.SetPriority(1);
    IntRectangle const shifted(-30, -4, 4, 20); // pixels
    window(stage.viewSegment(), {1, 1, -1, -1}, Background::GradientLeftToRight, Border::None,
           {0.5f, 0.2f, 0.6f})
        .GetSubwindowControl()
        .SetSubwindow({1, 1, -1, -1}, shifted);
}

SceneTable const furniture{{"corners", corners}, {"windows", windows}};

} // namespace
