// What bodies look like, read from pictures.

#include "Plates.h"

#include "SceneDefaults.h"

#include <gtest/gtest.h>

using NarMeta::Colour;
using NarMetaInfra::BrepBody;

namespace
{

constexpr NarMeta::Id First = 2'000'000;
constexpr int Side = 128;

struct Pixel {
    int red, green, blue;
};

bool operator==(Pixel const& a, Pixel const& b)
{
    return a.red == b.red && a.green == b.green && a.blue == b.blue;
}

/// Looks at the plates from the front, so that 16 units fill the window.
class Look : public testing::Test
{
protected:
    void SetUp() override
    {
        Canvas = HPS::Factory::CreateOffScreenCanvas(Side, Side);
        View = HPS::Factory::CreateView();
        Canvas.AttachViewAsLayout(View);
        std::unique_ptr<ZELVizCore::RenderingOptions> const options(
            ZELVizCore::RenderingOptions::CreateDefault());
        ZelVizBase::SceneDefaults::Setup(Canvas, View, *options);
        View.AttachModel(Plates.document.GetModel());
    }

    void TearDown() override
    {
        View.Delete();
        Canvas.Delete();
    }

    void draw()
    {
        ASSERT_TRUE(Plates.document.Render(false));
        // The first showing of a document moves the camera to fit.
        HPS::CameraKit camera;
        camera.SetPosition({0, -50, 0}).SetTarget({0, 0, 0}).SetUpVector({0, 0, 1}).SetField(16, 16);
        camera.SetProjection(HPS::Camera::Projection::Orthographic);
        View.SetCamera(camera);
        HPS::UTF8 cause;
        if (!Canvas.Update(HPS::Window::UpdateType::Complete)) {
            Canvas.ShowFailure(cause);
            GTEST_SKIP() << "no graphics: " << cause.GetBytes();
        }
        ASSERT_TRUE(Canvas.ReadPixels(Picture));
    }

    /// The middle of a plate whose centre stands at x, 0, z.
    Pixel at(float x, float z) const
    {
        auto const column = static_cast<std::size_t>((x + 8) / 16 * Side);
        auto const row = static_cast<std::size_t>((8 - z) / 16 * Side);
        std::uint8_t const* const p = &Picture.pixels[4 * (row * Side + column)];
        return {p[0], p[1], p[2]};
    }

    PlateDocument Plates;
    HPS::Canvas Canvas;
    HPS::View View;
    HPS::Picture Picture;
};

} // namespace

TEST_F(Look, aColourIsTheFacesThenTheBodysThenTheDefault)
{
    auto const part = Plates.part(L"part");
    part->AddBody(plate(First, {-4, 0, 0}));
    BrepBody& green = part->AddBody(plate(First + 10, {0, 0, 0}));
    green.colour = Colour{0, 200, 0};
    BrepBody& blue = part->AddBody(plate(First + 20, {4, 0, 0}));
    blue.colour = Colour{0, 200, 0};
    blue.faces[0].colour = Colour{0, 0, 200};
    Plates.model.AddRootInstance(part, L"part.1");
    draw();

    Pixel const defaulted = at(-4, 0);
    EXPECT_GT(defaulted.red, 0);
    EXPECT_LT(std::abs(defaulted.red - defaulted.green), 40);
    EXPECT_FALSE(defaulted == at(-6, 5)) << "it is the background's";
    EXPECT_LT(at(0, 0).red, 20);
    EXPECT_GT(at(0, 0).green, 50);
    EXPECT_LT(at(4, 0).green, 20);
    EXPECT_GT(at(4, 0).blue, 50);
}

TEST_F(Look, anInstancesColourWinsOverThoseOfItsPart)
{
    auto const part = Plates.part(L"part");
    BrepBody& body = part->AddBody(plate(First));
    body.colour = Colour{0, 200, 0};
    body.faces[0].colour = Colour{0, 0, 200};
    Plates.model.AddRootInstance(part, L"part.1")->SetTransform(translation(-4, 0, 0));
    auto const red = Plates.model.AddRootInstance(part, L"part.2");
    red->SetTransform(translation(4, 0, 0));
    red->SetRGBColor(200, 0, 0);
    draw();

    EXPECT_GT(at(-4, 0).blue, 50);
    EXPECT_GT(at(4, 0).red, 50);
    EXPECT_LT(at(4, 0).blue, 20);
}

TEST_F(Look, aBodyCanBeHiddenInOneInstanceOnly)
{
    auto const part = Plates.part(L"part");
    part->AddBody(plate(First, {0, 0, 3}));
    part->AddBody(plate(First + 10, {0, 0, -3}));
    Plates.model.AddRootInstance(part, L"part.1")->SetTransform(translation(-4, 0, 0));
    Plates.model.AddRootInstance(part, L"part.2")->SetTransform(translation(4, 0, 0));
    draw();
    Pixel const body = at(-4, 3);
    EXPECT_EQ(at(4, 3), body);
    EXPECT_EQ(at(4, -3), body);

    Plates.instanceSegment(L"part.2").SetCondition(("hide_#" + std::to_string(First)).c_str());
    draw();
    EXPECT_EQ(at(-4, 3), body);
    EXPECT_FALSE(at(4, 3) == body);
    EXPECT_EQ(at(4, -3), body);

    Plates.instanceSegment(L"part.2").UnsetConditions();
    draw();
    EXPECT_EQ(at(4, 3), body);
}

TEST_F(Look, hiddenBodiesAndInstancesAreNotSeenAndVerticesOnlyOnDemand)
{
    auto const part = Plates.part(L"part");
    part->AddBody(plate(First, {0, 0, 0}));
    part->AddBody(plate(First + 10, {0, 0, 4})).hidden = true;
    Plates.model.AddRootInstance(part, L"part.1");
    auto const hidden = Plates.model.AddRootInstance(part, L"part.2");
    hidden->SetTransform(translation(4, 0, 0));
    hidden->SetHidden(true);
    draw();
    Pixel const body = at(0, 0);
    EXPECT_FALSE(at(0, 4) == body);
    EXPECT_FALSE(at(4, 0) == body);

    HPS::UpdateReport report;
    ASSERT_TRUE(Canvas.ShowUpdateReport(report));
    EXPECT_EQ(report.markers, 0u);
    EXPECT_EQ(report.triangles, 2u);
    EXPECT_EQ(report.lineSegments, 2u);
    View.GetSegmentKey().GetVisibilityControl().SetMarkers(true);
    draw();
    ASSERT_TRUE(Canvas.ShowUpdateReport(report));
    EXPECT_EQ(report.markers, 1u);
}
