#include <algorithm>
#include <array>
#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <mora/View3DFactory.h>
#include <mora/vector_math.h>
#include <numbers>

using namespace MoraCore;
using namespace ZELVizCore;
using testing::FloatNear;
using testing::Pointwise;

namespace
{

/// A camera with a window of 400 by 200 pixels and a model that is a sphere; what it shows is what it was
/// told last.
class TestCamera : public ACamera
{
public:
    explicit TestCamera(IView3DEvo* view = nullptr, char const* name = "TestCamera")
        : ACamera(view), name_(name)
    {
    }
    char const* GetName() const override { return name_; }
    void GetWindowSize(int& width, int& height) override { width = 400, height = 200; }
    void SetStandardPosition(float*, float*, float*) override {}
    void Top() override {}
    void Bottom() override {}
    void Front() override {}
    void Back() override {}
    void Right() override {}
    void Left() override {}
    void Isometric() override {}
    void OrientDrawingView() override {}
    using ACamera::cloneTo;
    ACamera* cloneTo(IView3DEvo* view) const override
    {
        auto* camera = new TestCamera(*this);
        camera->Evo = view;
        return camera;
    }
    float const* GetGeometryCenter() override { return center; }
    float GetGeometryRadius() override { return 2; }

    float center[3] = {1, 2, 3};
    int moved = 0;
    int animated = 0;
    struct Screen {
        std::array<float, 3> position, target, up;
    };
    std::optional<Screen> screen;

protected:
    void getCurrentCamera() override
    {
        if (!screen) return;
        std::ranges::copy(screen->position, Position);
        std::ranges::copy(screen->target, Target);
        std::ranges::copy(screen->up, Up);
    }
    void setFront(float*, float*, float*, bool) override {}
    void moveCamera(float* position, float* target, float* up) override
    {
        show(position, target, up), ++moved;
    }
    void animateCamera(float* position, float* target, float* up) override
    {
        show(position, target, up), ++animated;
    }

private:
    void show(float const* p, float const* t, float const* u)
    {
        screen = Screen{{p[0], p[1], p[2]}, {t[0], t[1], t[2]}, {u[0], u[1], u[2]}};
    }
    char const* name_;
};

void look(TestCamera& camera, std::array<float, 3> position, std::array<float, 3> target,
          std::array<float, 3> up)
{
    camera.SetCamera(position.data(), target.data(), up.data());
}

auto near(std::array<float, 3> const& expected)
{
    return Pointwise(FloatNear(1e-4f), expected);
}

} // namespace

TEST(ACamera, AnimationDecidesHowACameraIsShown)
{
    TestCamera camera;
    look(camera, {0, 0, 5}, {0, 0, 0}, {0, 1, 0});
    camera.SetAnimate(true);
    look(camera, {0, 5, 0}, {0, 0, 0}, {0, 0, 1});
    EXPECT_EQ(camera.moved, 1);
    EXPECT_EQ(camera.animated, 1);
}

TEST(ACamera, GetCameraSeesWhatTheUserDidOnTheScreen)
{
    TestCamera camera;
    look(camera, {0, 0, 5}, {0, 0, 0}, {0, 1, 0});
    camera.screen->position = {0, 0, 9};
    std::array<float, 3> position, target, up;
    camera.GetCamera(position.data(), target.data(), up.data());
    EXPECT_THAT(position, near({0, 0, 9}));
}

TEST(ACamera, ZoomAllSeesTheWholeSphereFromTheSameSide)
{
    TestCamera camera;
    camera.SetFieldOfView(60);
    look(camera, {0, 0, 50}, {0, 0, 0}, {0, 1, 0});
    camera.ZoomAll();
    EXPECT_THAT(camera.screen->target, near({1, 2, 3}));
    EXPECT_THAT(camera.screen->position, near({1, 2, 3 + 4}))
        << "a sphere of radius 2 spans 60 degrees from 4 away";
}

TEST(ACamera, ZoomToBoxIgnoresABoxThatIsNone)
{
    TestCamera camera;
    look(camera, {0, 0, 50}, {0, 0, 0}, {0, 1, 0});
    camera.ZoomToBox(1, 0, 0, -1, 1, 1);
    camera.ZoomToBox(0, 0, 0, std::nanf(""), 1, 1);
    EXPECT_EQ(camera.moved, 1);
    camera.ZoomToBox(3, 3, 3, 3, 3, 3);
    EXPECT_THAT(camera.screen->position, near({3, 3, 53})) << "a point keeps the distance";
}

TEST(ACamera, RotatePanAndZoomMoveTheEyeAsTheUserSeesIt)
{
    TestCamera camera;
    look(camera, {0, 0, 10}, {0, 0, 0}, {0, 1, 0});
    ViewOpRotate right{90, 0};
    camera.Rotate(&right);
    EXPECT_THAT(camera.screen->position, near({10, 0, 0}));
    ViewOpRotate up{0, 90};
    camera.Rotate(&up);
    EXPECT_THAT(camera.screen->position, near({0, 10, 0}));
    EXPECT_THAT(camera.screen->up, near({-1, 0, 0}));
    ViewOpZoom zoom{2};
    camera.Zoom(&zoom);
    EXPECT_THAT(camera.screen->position, near({0, 5, 0}));

    look(camera, {0, 0, 10}, {0, 0, 0}, {0, 1, 0});
    camera.SetFieldOfView(90);
    ViewOpPan pan{0.5f, 0.5f};
    camera.Pan(&pan); // the field is 20 high and 40 wide
    EXPECT_THAT(camera.screen->target, near({20, 10, 0}));
    EXPECT_THAT(camera.screen->position, near({20, 10, 10}));
}

TEST(ACamera, RotationCentreIsTheTargetUnlessSet)
{
    TestCamera camera;
    look(camera, {0, 0, 10}, {0, 0, 0}, {0, 1, 0});
    float const center[3] = {0, 0, 10};
    camera.SetRotationCenter(center);
    ViewOpRotate right{90, 0};
    camera.Rotate(&right);
    EXPECT_THAT(camera.screen->position, near({0, 0, 10})) << "the eye stands on the centre";
    EXPECT_THAT(camera.screen->target, near({-10, 0, 10}));
}

TEST(ACamera, RayGoesThroughThePixel)
{
    TestCamera camera;
    camera.SetFieldOfView(90);
    look(camera, {0, 0, 10}, {0, 0, 0}, {0, 1, 0});
    for (bool orthographic : {false, true}) {
        camera.SetOrthographic(orthographic);
        Ray const ray = camera.Make3DRay(399, 0, 4); // top right; a pixel is 0.1
        EXPECT_THAT(ray.origin, near({19.95f, 9.95f, 0}));
        EXPECT_NEAR(ray.aperture, 0.4f, 1e-5f);
        EXPECT_NEAR(Length(ray.direction), 1, 1e-5f);
        EXPECT_EQ(ray.perspective, !orthographic);
        if (orthographic) {
            EXPECT_THAT(ray.direction, near({0, 0, -1}));
        } else {
            float along[3];
            Multiply(ray.direction, 10 / -ray.direction[2], along);
            EXPECT_THAT(along, near({19.95f, 9.95f, -10}));
        }
    }
}

TEST(View3DFactory, MakesCamerasFromPrototypes)
{
    View3DFactory& factory = View3DFactory::Instance();
    factory.RegisterCameraDefinition(new TestCamera(nullptr, "A"));
    factory.RegisterCameraDefinition(new TestCamera(nullptr, "B"));
    factory.RegisterCameraDefinition(new TestCamera(nullptr, "A"));
    ACameraFactory const& cameras = factory.GetCameraFactory();

    auto* const view = reinterpret_cast<IView3DEvo*>(0x10); // only passed on
    std::unique_ptr<ACamera> a(cameras.MakeCamera(view, "A"));
    ASSERT_TRUE(a);
    EXPECT_STREQ(a->GetName(), "A");
    EXPECT_EQ(a->GetView(), view);

    a->SetFieldOfView(30);
    a->SetAnimate(true);
    std::unique_ptr<ACamera> b(cameras.MakeCamera(*a, "B"));
    ASSERT_TRUE(b);
    EXPECT_STREQ(b->GetName(), "B");
    EXPECT_EQ(b->GetView(), view);
    EXPECT_NEAR(b->GetFieldOfView(), 30, 1e-4);
    EXPECT_TRUE(b->GetAnimate());

    EXPECT_EQ(cameras.MakeCamera(view, "C"), nullptr);
    factory.ClearCameraDefinitions();
    EXPECT_EQ(cameras.MakeCamera(view, "A"), nullptr);
}

TEST(VectorMath, RotationIsRightHandedAboutALine)
{
    float result[3];
    float const origin[3] = {0, 0, 0}, x[3] = {1, 0, 0}, none[3] = {0, 0, 0};
    float const far[3] = {0, 0, 7};
    RotatePoint(far, -90, origin, x, result);
    EXPECT_THAT(result, near({0, 7, 0}));
    RotatePoint(far, -90, origin, none, result);
    EXPECT_THAT(result, near({0, 0, 7}));

    float const s = std::numbers::inv_sqrt3_v<float>;
    float const diagonal[3] = {3 * s, 3 * s, 3 * s}, center[3] = {1, 1, 1};
    float point[3] = {2, 1, 1};
    RotatePoint(point, 120, center, diagonal, point);
    EXPECT_THAT(point, near({1, 2, 1})) << "a third of a turn about the diagonal takes x to y";
}
