// Scenes made through the public interface, and their pictures.
#pragma once
#include "image.h"
#include <gtest/gtest.h>
#include <hps/Factory.h>
#include <hps/KeyPath.h>
#include <hps/SprocketPath.h>
#include <hps/WindowKey.h>
#include <hps/hps.h>

namespace HPS
{

using render::Image;
using render::Pixel;

inline Pixel const red{255, 0, 0}, green{0, 255, 0}, blue{0, 0, 255}, black{0, 0, 0};

/// A model that holds squares, seen along the z axis on x and y from -2 to 2, without a light.
class ScenePictures : public testing::Test
{
protected:
    void SetUp() override
    {
        canvas.AttachViewAsLayout(view);
        view.AttachModel(model);
        setCamera(canvas, {0, 0, 10});
        view.GetSegmentKey().GetVisibilityControl().SetEdges(false).SetMarkers(false);
        canvas.GetWindowKey()
            .GetMaterialMappingControl()
            .SetWindowColor(RGBAColor::Black())
            .SetWindowContrastColor(RGBAColor::Black());
    }
    void TearDown() override
    {
        canvas.Delete();
        view.Delete();
        model.Delete();
    }

    static void setCamera(Canvas const& which, Point const& position)
    {
        CameraKit camera;
        camera.SetPosition(position).SetTarget({0, 0, 0}).SetUpVector({0, 1, 0}).SetField(4, 4);
        camera.SetProjection(Camera::Projection::Orthographic);
        which.GetFrontView().SetCamera(camera);
    }

    static ShellKey insertSquare(SegmentKey segment, float z = 0, float half = 1)
    {
        return segment.InsertShell({{-half, -half, z}, {half, -half, z}, {half, half, z}, {-half, half, z}},
                                   {4, 0, 1, 2, 3});
    }
    static void colour(SegmentKey const& segment, RGBAColor const& c)
    {
        segment.GetMaterialMappingControl().SetFaceColor(c);
    }

    render::Image picture() { return picture(canvas); }
    static render::Image picture(Canvas const& of, Window::UpdateType type = Window::UpdateType::Default)
    {
        UTF8 cause;
        EXPECT_TRUE(of.Update(type)) << (of.ShowFailure(cause) ? cause.GetBytes() : "");
        Picture pixels;
        EXPECT_TRUE(of.ReadPixels(pixels));
        return {pixels.width, pixels.height, pixels.pixels};
    }
    UpdateReport report() const
    {
        UpdateReport r;
        canvas.ShowUpdateReport(r);
        return r;
    }

    Canvas canvas = Factory::CreateOffScreenCanvas(80, 80);
    View view = Factory::CreateView("the view");
    Model model = Factory::CreateModel("the model");
    SegmentKey root = model.GetSegmentKey();
};

} // namespace HPS
