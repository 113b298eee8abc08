// What every picture rests on: shaded bodies, instances, modes.
#include "Stage.h"

using namespace HPS;

namespace
{

/// mode=flat, smooth, hidden or wires; hidden lines show if the word `dimmed` is there.
void setMode(Stage& stage)
{
    std::string const mode = stage.value("mode");
    if (mode == "flat") stage.view.SetRenderingMode(Rendering::Mode::Flat);
    if (mode == "smooth") stage.view.SetRenderingMode(Rendering::Mode::Phong);
    if (mode == "hidden") stage.view.SetRenderingMode(Rendering::Mode::HiddenLine);
    if (mode == "wires") stage.view.SetRenderingMode(Rendering::Mode::Wireframe);
    if (mode == "hidden" || mode == "wires") {
        stage.background(RGBAColor(1, 1, 1), RGBAColor(1, 1, 1));
        stage.viewSegment().GetMaterialMappingControl().SetEdgeColor(RGBAColor(0, 0, 0));
    }
    if (stage.has("dimmed"))
        stage.viewSegment().GetHiddenLineAttributeControl().SetVisibility(true).SetDimFactor(0.3f);
}

void shaded(Stage& stage)
{
    stage.light();
    stage.look({4, 3, 10});
    SegmentKey ball = stage.root().Subsegment("ball"), box = stage.root().Subsegment("box");
    ball.GetMaterialMappingControl().SetFaceColor(RGBAColor(0.8f, 0.3f, 0.2f));
    box.GetMaterialMappingControl().SetFaceColor(RGBAColor(0.2f, 0.5f, 0.8f));
    insertBall(ball, {-0.8f, 0, 0}, 0.9f);
    insertBox(box, {0.3f, -0.7f, -0.7f}, {1.5f, 0.7f, 0.7f});
    setMode(stage);
}

void instances(Stage& stage)
{
    stage.light();
    stage.look({3, 4, 10}, 6);
    SegmentKey part = stage.model.GetLibraryKey().Subsegment("part"), rows = stage.root();
    insertBox(part, {-0.4f, -0.4f, -0.4f}, {0.4f, 0.4f, 0.4f});
    for (int row = -2; row <= 2; ++row)
        for (int column = -3; column <= 3; ++column) {
            SegmentKey place = rows.Subsegment();
            place.IncludeSegment(part);
            place.GetModellingMatrixControl().Rotate(0, 12.0f * float(row), 20.0f * float(column));
            place.GetModellingMatrixControl().Translate(1.05f * float(column), 1.1f * float(row), 0);
            place.GetMaterialMappingControl().SetFaceColor(
                RGBAColor(0.5f + 0.15f * float(column), 0.5f + 0.2f * float(row), 0.5f));
        }
}

/// A box, seen again from above in a subwindow at the lower right with a border, and through a clear one.
void subwindows(Stage& stage)
{
    stage.light();
    stage.look({4, 3, 10});
    SegmentKey part = stage.model.GetLibraryKey().Subsegment("part");
    part.GetMaterialMappingControl().SetFaceColor(RGBAColor(0.8f, 0.5f, 0.2f));
    insertBox(part, {-0.8f, -0.4f, -0.6f}, {0.8f, 0.4f, 0.6f});
    stage.root().IncludeSegment(part);
    auto insert = [&](char const* name, Rectangle const& position, Subwindow::Background background) {
        SegmentKey window = stage.root().Subsegment(name);
        window.IncludeSegment(part);
        window.GetSubwindowControl().SetSubwindow(position, IntRectangle(0, 0, 0, 0));
        window.GetSubwindowControl().SetBackground(background).SetBorder(Subwindow::Border::Inset);
        CameraKit camera;
        camera.SetPosition({0, 10, 0.01f}).SetTarget({0, 0, 0}).SetUpVector({0, 0, -1}).SetField(2, 2);
        camera.SetProjection(Camera::Projection::Orthographic);
        window.SetCamera(camera);
    };
    insert("opaque", {0.3f, 0.95f, -0.95f, -0.2f}, Subwindow::Background::SolidColor);
    insert("clear", {-0.95f, -0.3f, 0.2f, 0.95f}, Subwindow::Background::Transparent);
}

SceneTable const table{{"shaded", shaded}, {"instances", instances}, {"subwindows", subwindows}};

} // namespace
