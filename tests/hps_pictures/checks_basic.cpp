// What holds of pictures whatever they look like.
#include "Stage.h"
#include <gtest/gtest.h>
#include <hps/HighlightControl.h>
#include <hps/InputEvent.h>

using namespace HPS;

namespace
{

QColor at(QImage const& image, double x, double y)
{
    return image.pixelColor(int(x * image.width()), int(y * image.height()));
}

/// Two squares side by side, left and right of the middle, in a colour of their own.
class TwoSquares : public testing::Test
{
protected:
    TwoSquares()
    {
        left.GetMaterialMappingControl().SetFaceColor(RGBAColor(0.3f, 0.3f, 0.3f));
        right.GetMaterialMappingControl().SetFaceColor(RGBAColor(0.3f, 0.3f, 0.3f));
        leftShell = insertRectangle(left, {-1, 0, 0}, 1, 1);
        insertRectangle(right, {1, 0, 0}, 1, 1);
        portfolio = Database::CreatePortfolio();
        stage.viewSegment().GetPortfolioControl().Push(portfolio);
        define("red", RGBAColor(1, 0, 0));
        define("green", RGBAColor(0, 1, 0));
    }
    void define(char const* name, RGBAColor const& colour)
    {
        SegmentKey source = stage.model.GetLibraryKey().Subsegment(name);
        source.GetMaterialMappingControl().SetFaceColor(colour);
        portfolio.DefineNamedStyle(name, source);
    }
    static HighlightOptionsKit options(char const* style)
    {
        HighlightOptionsKit kit;
        kit.SetStyleName(style);
        return kit;
    }
    HighlightControl highlights() { return stage.window().GetHighlightControl(); }

    Stage stage;
    SegmentKey left = stage.root().Subsegment("left"), right = stage.root().Subsegment("right");
    ShellKey leftShell;
    PortfolioKey portfolio;
};

QColor const grey(77, 77, 77), red(255, 0, 0), green(0, 255, 0);

} // namespace

TEST_F(TwoSquares, highlightsLieOverThePictureAndGoWithoutATrace)
{
    QImage const plain = stage.picture();
    highlights().Highlight(left, options("red"), false);
    highlights().Highlight(right, options("green"), false);
    QImage const both = stage.picture();
    EXPECT_EQ(at(both, 0.25, 0.5), red);
    EXPECT_EQ(at(both, 0.75, 0.5), green);
    EXPECT_EQ(stage.report().compiledViews, 0u);
    EXPECT_EQ(stage.report().uploadedMeshes, 0u);
    highlights().Unhighlight(left, options("red"));
    EXPECT_EQ(at(stage.picture(), 0.25, 0.5), grey);
    highlights().UnhighlightEverything();
    EXPECT_EQ(stage.picture(), plain);
}

TEST_F(TwoSquares, aHighlightFollowsWhatItLiesOn)
{
    highlights().Highlight(left, options("red"), false);
    stage.picture();
    left.GetModellingMatrixControl().Translate(0, 0.8, 0);
    QImage const moved = stage.picture();
    EXPECT_EQ(at(moved, 0.25, 0.1), red);
    EXPECT_NE(at(moved, 0.25, 0.6), red);
    left.GetVisibilityControl().SetFaces(false);
    EXPECT_NE(at(stage.picture(), 0.25, 0.1), red);
}

TEST_F(TwoSquares, geometryAndPathsAreHighlightedAlone)
{
    insertRectangle(left, {-1, 1, 0}, 1, 0.5f);
    highlights().Highlight(leftShell, options("red"), false);
    QImage const one = stage.picture();
    EXPECT_EQ(at(one, 0.25, 0.5), red);
    EXPECT_EQ(at(one, 0.25, 0.17), grey);

    highlights().UnhighlightEverything();
    SegmentKey part = stage.model.GetLibraryKey().Subsegment("part");
    part.GetMaterialMappingControl().SetFaceColor(RGBAColor(0.3f, 0.3f, 0.3f));
    insertRectangle(part, {0, -1, 0.5f}, 0.4f, 0.4f);
    left.Delete();
    right.Delete();
    SegmentKey places[2];
    for (int i = 0; i < 2; ++i) {
        places[i] = stage.root().Subsegment();
        places[i].GetModellingMatrixControl().Translate(i == 0 ? -1 : 1, 0, 0);
        places[i].IncludeSegment(part);
    }
    highlights().Highlight(KeyPath({part, places[1]}), options("green"), false);
    QImage const second = stage.picture();
    EXPECT_EQ(at(second, 0.25, 0.833), grey);
    EXPECT_EQ(at(second, 0.75, 0.833), green);
    highlights().Highlight(part, options("red"), true);
    EXPECT_EQ(at(stage.picture(), 0.25, 0.833), red);
}

TEST_F(TwoSquares, updatesDoWhatTheirNamesSay)
{
    using Window::UpdateType;
    auto callsOf = [&](UpdateType type) {
        EXPECT_TRUE(stage.canvas.Update(type));
        return stage.report().drawCalls;
    };
    EXPECT_GT(callsOf(UpdateType::Default), 0u);
    EXPECT_EQ(callsOf(UpdateType::Default), 0u);
    EXPECT_EQ(callsOf(UpdateType::Refresh), 0u) << "the picture that is there is shown again";
    EXPECT_GT(callsOf(UpdateType::Complete), 0u);
    EXPECT_GT(callsOf(UpdateType::Exhaustive), 0u);
    EXPECT_EQ(stage.report().compiledViews, 1u);

    left.GetMaterialMappingControl().SetFaceColor(RGBAColor(1, 0, 0));
    EXPECT_EQ(callsOf(UpdateType::CompileOnly), 0u);
    Picture pixels;
    EXPECT_EQ(at(stage.picture(), 0.25, 0.5), red) << "and is drawn at the next update";
    right.GetMaterialMappingControl().SetFaceColor(RGBAColor(0, 1, 0));
    EXPECT_GT(callsOf(UpdateType::Refresh), 0u);
    EXPECT_EQ(at(stage.picture(), 0.75, 0.5), green);
}

// What could not be waited for comes as soon as nobody presses any more.
TEST_F(TwoSquares, aPictureUnderALimitIsMadeGoodAtRest)
{
    left.GetModellingMatrixControl().Rotate(0, 0, 20); // slanted borders, which samples make smooth
    QImage const resting = stage.picture();
    auto mouse = [&](MouseEvent::Action action) {
        MouseEvent event(action);
        event.CurrentButton = MouseButtons::ButtonLeft();
        stage.window().GetEventDispatcher().InjectEvent(event);
    };
    auto read = [&] {
        Picture p;
        EXPECT_TRUE(stage.canvas.ReadPixels(p));
        return QImage(p.pixels.data(), p.width, p.height, p.width * 4, QImage::Format_RGBA8888)
            .convertToFormat(QImage::Format_RGB888);
    };
    mouse(MouseEvent::Action::ButtonDown);
    ASSERT_TRUE(stage.canvas.Update(Window::UpdateType::Complete, 0));
    EXPECT_NE(read(), resting);
    mouse(MouseEvent::Action::ButtonUp);
    EXPECT_EQ(read(), resting);

    ASSERT_TRUE(stage.canvas.Update(Window::UpdateType::Complete, 0));
    EXPECT_EQ(stage.picture(), resting);
}

TEST_F(TwoSquares, priorityAndOverlaySettleWhatLiesOver)
{
    SegmentKey front = stage.root().Subsegment("front"), back = stage.root().Subsegment("back");
    front.GetMaterialMappingControl().SetFaceColor(RGBAColor(1, 0, 0));
    back.GetMaterialMappingControl().SetFaceColor(RGBAColor(0, 1, 0));
    insertRectangle(front, {0, 0, 1}, 0.5f, 0.5f);
    insertRectangle(back, {0, 0, -1}, 0.5f, 0.5f);
    EXPECT_EQ(at(stage.picture(), 0.5, 0.5), red);
    using Drawing::Overlay;
    for (Overlay overlay : {Overlay::Default, Overlay::WithZValues}) {
        back.GetDrawingAttributeControl().SetOverlay(overlay);
        EXPECT_EQ(at(stage.picture(), 0.5, 0.5), green);
    }
    back.GetDrawingAttributeControl().SetOverlay(Overlay::InPlace);
    EXPECT_EQ(at(stage.picture(), 0.5, 0.5), red);
    back.GetDrawingAttributeControl().UnsetOverlay();

    back.GetModellingMatrixControl().Translate(0, 0, 2); // the same plane
    back.SetPriority(2);
    front.SetPriority(1);
    EXPECT_EQ(at(stage.picture(), 0.5, 0.5), green);
    front.SetPriority(3);
    EXPECT_EQ(at(stage.picture(), 0.5, 0.5), red);

    back.GetDrawingAttributeControl().SetDepthRange(0, 0.1f);
    EXPECT_EQ(at(stage.picture(), 0.5, 0.5), green);
}

TEST_F(TwoSquares, whatIsTooSmallForItsSegmentIsLeftOut)
{
    left.GetCullingControl().SetExtent(true, 200);
    EXPECT_NE(at(stage.picture(), 0.25, 0.5), grey);
    EXPECT_EQ(at(stage.picture(), 0.75, 0.5), grey);
    left.GetCullingControl().SetExtent(true, 20);
    EXPECT_EQ(at(stage.picture(), 0.25, 0.5), grey);
}

TEST_F(TwoSquares, aSubwindowComesAndGoes)
{
    QImage const before = stage.picture();
    left.GetSubwindowControl().SetSubwindow(Rectangle(-1, 1, -1, 1), IntRectangle(0, 0, 0, 0));
    QImage const alone = stage.picture();
    EXPECT_EQ(at(alone, 0.25, 0.5), grey);
    EXPECT_NE(at(alone, 0.75, 0.5), grey) << "its background covers the rest";
    left.GetSubwindowControl().SetSubwindow(Rectangle(-1, 0, -1, 1), IntRectangle(0, 0, 0, 0));
    EXPECT_EQ(at(stage.picture(), 0.75, 0.5), grey);
    left.UnsetSubwindow();
    EXPECT_EQ(stage.picture(), before);
}
