#include "Host.h"

#include <QApplication>
#include <cmath>
#include <gtest/gtest.h>
#include <set>
#include <stdexcept>

namespace
{

using ZELVizCore::Settings;

void expectNear(Triple const& a, Triple const& b, float tolerance)
{
    for (int i = 0; i < 3; ++i) EXPECT_NEAR(a[i], b[i], tolerance) << "coordinate " << i;
}

/// Pixels that differ between two pictures of one size.
int differing(QImage const& a, QImage const& b)
{
    EXPECT_EQ(a.size(), b.size());
    int count = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) count += a.pixel(x, y) != b.pixel(x, y) ? 1 : 0;
    return count;
}

/// Where a picture shows something before the background, which is alike along a row at its left border.
QRect shownIn(QImage const& image)
{
    QRect extent;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            QColor const a(image.pixel(x, y)), b(image.pixel(0, y));
            int const apart =
                std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) + std::abs(a.blue() - b.blue());
            if (apart > 12) extent |= QRect(x, y, 1, 1);
        }
    return extent;
}

class HostTest : public testing::Test
{
protected:
    // Cameras are looked at by numbers here; whatever a test leaves in the settings goes.
    ~HostTest() override { Settings::Current() = Settings::Default(); }
};

TEST_F(HostTest, ThePluginSaysWhatItIs)
{
    Host& host = Host::instance();
    EXPECT_STREQ(host.type, "ZELView3D");
    EXPECT_STREQ(host.name, "HPS");
    EXPECT_EQ(host.nameBefore, "HPS");
    EXPECT_EQ(host.nameDescribed, "HPSPlugin");
    EXPECT_EQ(host.factory().getDescription(), "HPS functionality. Viewer, Rendering system.");
    EXPECT_EQ(host.factory().getProducts(), std::vector<std::string>{"HOOPS HPS "});
    EXPECT_EQ(host.factory().getComponentName(), "HPS");
    EXPECT_TRUE(host.factory().isLoaded());
    host.factory().load(); // a second time changes nothing
    try {
        host.factory().createInstance("ZELView3d");
        FAIL() << "the name is compared byte by byte";
    } catch (std::invalid_argument const& refusal) {
        EXPECT_STREQ(refusal.what(), "HPSPluginFactory cannot create instance of ZELView3d");
    }
}

TEST_F(HostTest, ShowsTheSample)
{
    Window window(sampleFile());
    ASSERT_TRUE(window.opened());
    QImage const image = window.picture();
    ASSERT_EQ(image.size(), QSize(Window::width, Window::height));
    image.save(ZEL_BINARY_DIR "/host_sample.png");
    std::set<QRgb> colours;
    for (int x = 200; x < 440; ++x) colours.insert(image.pixel(x, 240));
    EXPECT_GT(colours.size(), 20U);
    double box[6];
    EXPECT_TRUE(window.view().GetBbox(box[0], box[1], box[2], box[3], box[4], box[5]));
    EXPECT_GT(box[3] - box[0], 0);

    window.camera().ZoomAll();
    window.picture().save(ZEL_BINARY_DIR "/host_sample_fitted.png");
    window.view().GetRenderingOptions()->SetDisplayNavigationCube(false);
    window.view().GetRenderingOptions()->SetDisplayAxes(false);
    QRect const shown = shownIn(window.picture());
    EXPECT_GT(std::max(shown.width() / 640.0, shown.height() / 480.0), 0.6) << "fills the window";
}

TEST_F(HostTest, AWindowWithoutADocument)
{
    Window window("");
    double box[6] = {1, 2, 3, 4, 5, 6};
    EXPECT_FALSE(window.view().GetBbox(box[0], box[1], box[2], box[3], box[4], box[5]));
    EXPECT_EQ(box[0], 1);
    float position[3], target[3], up[3];
    window.camera().SetStandardPosition(position, target, up);
    EXPECT_NEAR(position[0], 36.21, 0.01); // a model without extent counts as one of radius 10
    window.view().AttachDocument(nullptr);
    window.view().Update(MoraCore::UpdateType::Complete);
}

struct ViewCase {
    char const* name;
    void (MoraCore::ACamera::*show)();
    Triple back, up;
};

constexpr float s = 0.70710678F;

ViewCase const viewsOfYUp[] = {
    {"front", &MoraCore::ACamera::Front, {0, 0, 1}, {0, 1, 0}},
    {"back", &MoraCore::ACamera::Back, {0, 0, -1}, {0, 1, 0}},
    {"right", &MoraCore::ACamera::Right, {1, 0, 0}, {0, 1, 0}},
    {"left", &MoraCore::ACamera::Left, {-1, 0, 0}, {0, 1, 0}},
    {"top", &MoraCore::ACamera::Top, {0, 1, 0}, {0, 0, -1}},
    {"bottom", &MoraCore::ACamera::Bottom, {0, -1, 0}, {0, 0, 1}},
    {"drawing", &MoraCore::ACamera::OrientDrawingView, {0, 0, 1}, {0, 1, 0}},
    {"isometric", &MoraCore::ACamera::Isometric, {0.5F, s, 0.5F}, {-0.5F, s, -0.5F}},
};
ViewCase const viewsOfZUp[] = {
    {"front", &MoraCore::ACamera::Front, {1, 0, 0}, {0, 0, 1}},
    {"back", &MoraCore::ACamera::Back, {-1, 0, 0}, {0, 0, 1}},
    {"right", &MoraCore::ACamera::Right, {0, 1, 0}, {0, 0, 1}},
    {"left", &MoraCore::ACamera::Left, {0, -1, 0}, {0, 0, 1}},
    {"top", &MoraCore::ACamera::Top, {0, 0, 1}, {-1, 0, 0}},
    {"bottom", &MoraCore::ACamera::Bottom, {0, 0, -1}, {1, 0, 0}},
    {"drawing", &MoraCore::ACamera::OrientDrawingView, {0, 0, 1}, {0, 1, 0}},
    {"isometric", &MoraCore::ACamera::Isometric, {0.5F, 0.5F, s}, {-0.5F, -0.5F, s}},
};

TEST_F(HostTest, StandardViewsOfBothOrientations)
{
    Window window(sampleFile());
    double box[6];
    ASSERT_TRUE(window.view().GetBbox(box[0], box[1], box[2], box[3], box[4], box[5]));
    Triple const center{float(box[0] + box[3]) / 2, float(box[1] + box[4]) / 2, float(box[2] + box[5]) / 2};
    float const before = Pose(window.camera()).distance();
    for (bool const yUp : {false, true}) {
        Settings::Current().ClassicalOrientation = yUp;
        window.view().Update(MoraCore::UpdateType::Default); // takes the setting
        EXPECT_STREQ(window.camera().GetName(), yUp ? "HPSCameraYUp" : "HPSCameraZUp");
        for (ViewCase const& wanted : yUp ? viewsOfYUp : viewsOfZUp) {
            SCOPED_TRACE(std::string(yUp ? "Y up, " : "Z up, ") + wanted.name);
            (window.camera().*wanted.show)();
            Pose const pose(window.camera());
            expectNear(pose.back(), wanted.back, 1e-5F);
            expectNear(pose.up, wanted.up, 1e-5F);
            expectNear(pose.target, center, 1e-3F * before);
            EXPECT_NEAR(pose.distance(), before, 1e-3F * before);
            if (wanted.show == &MoraCore::ACamera::Top && !yUp)
                window.picture().save(ZEL_BINARY_DIR "/host_top.png");
        }
    }
}

TEST_F(HostTest, OperationsOfACamera)
{
    Window window(sampleFile());
    MoraCore::ACamera& camera = window.camera();
    camera.Front();
    for (bool const orthographic : {true, false}) {
        SCOPED_TRACE(orthographic);
        camera.SetOrthographic(orthographic);
        EXPECT_EQ(camera.IsOrthographic(), orthographic);
        camera.ZoomToBox(-10, -20, -30, 10, 20, 30);
        Pose const fitted(camera);
        expectNear(fitted.target, {0, 0, 0}, 1e-4F);
        double const radius = std::sqrt(100 + 400 + 900.0),
                     slope = std::tan(camera.GetFieldOfView() / 360 * M_PI);
        EXPECT_NEAR(fitted.distance(), radius / (orthographic ? slope : std::sin(std::atan(slope))), 0.01);

        MoraCore::ViewOpZoom closer{2};
        camera.Zoom(&closer);
        EXPECT_NEAR(Pose(camera).distance(), fitted.distance() / 2, 1e-3);

        // A pan by the whole window and back again; the ray through the middle goes through the target.
        MoraCore::ViewOpPan across{1, 0};
        ZELVizCore::Ray const left = camera.Make3DRay(0, 240, 1);
        ZELVizCore::Ray const right = camera.Make3DRay(Window::width, 240, 1);
        camera.Pan(&across);
        Triple const moved = Pose(camera).target;
        EXPECT_NEAR(std::hypot(moved[0], moved[1], moved[2]),
                    std::hypot(right.origin[0] - left.origin[0], right.origin[1] - left.origin[1],
                               right.origin[2] - left.origin[2]),
                    1e-2);
        MoraCore::ViewOpPan back{-1, 0};
        camera.Pan(&back);

        MoraCore::ViewOpRotate turn{90, 0};
        camera.Rotate(&turn);
        camera.Rotate(&turn);
        Triple const behind = Pose(camera).back();
        expectNear(behind, {-fitted.back()[0], -fitted.back()[1], -fitted.back()[2]}, 1e-4F);
        camera.Rotate(&turn);
        camera.Rotate(&turn);
        expectNear(Pose(camera).back(), fitted.back(), 1e-4F);
    }
    camera.SetFieldOfView(20);
    EXPECT_NEAR(camera.GetFieldOfView(), 20, 1e-4);
    camera.ZoomAll();
    EXPECT_FALSE(shownIn(window.picture()).isEmpty());
}

TEST_F(HostTest, AnimationArrives)
{
    Window window(sampleFile());
    MoraCore::ACamera& camera = window.camera();
    camera.Right();
    QImage const right = window.picture();
    camera.Front();
    QImage const front = window.picture();
    ASSERT_NE(front, right);
    camera.SetAnimate(true);
    camera.Right();
    EXPECT_EQ(window.picture(), front) << "still where it was";
    runEvents(1500);
    EXPECT_EQ(window.picture(), right);
}

TEST_F(HostTest, TheMouseTurnsPansAndZooms)
{
    Window window(sampleFile());
    MoraCore::ACamera& camera = window.camera();
    camera.Front();
    camera.ZoomAll();
    Pose const start(camera);
    QImage const before = window.picture();

    window.press(Qt::LeftButton, {320, 240});
    window.moveTo({320 + 240, 240}, Qt::LeftButton); // the shorter side would be half a turn
    window.release(Qt::LeftButton, {560, 240});
    expectNear(Pose(camera).back(), {0, -1, 0}, 1e-3F);
    EXPECT_GT(differing(before, window.picture()), 1000);

    window.press(Qt::RightButton, {320, 240});
    window.moveTo({420, 200}, Qt::RightButton);
    window.release(Qt::RightButton, {420, 200});
    Pose const panned(camera);
    EXPECT_NEAR(panned.distance(), start.distance(), 1e-3F * start.distance());
    EXPECT_NE(panned.target, start.target);

    window.press(Qt::MiddleButton, {320, 240});
    window.moveTo({320, 180}, Qt::MiddleButton);
    window.release(Qt::MiddleButton, {320, 180});
    Pose const zoomed(camera);
    EXPECT_LT(zoomed.distance(), panned.distance());

    window.wheel({100, 100}, -120);
    EXPECT_NEAR(Pose(camera).distance(), zoomed.distance() * 1.2F, 1e-3F * zoomed.distance());
    window.wheel({100, 100}, 120);
    Pose const again(camera);
    expectNear(again.position, zoomed.position, 1e-3F * zoomed.distance());

    window.moveTo({10, 10});
    EXPECT_EQ(Pose(camera).position, again.position) << "nothing is held";
}

TEST_F(HostTest, OptionsAndBackgroundReachThePicture)
{
    Window window(sampleFile());
    window.camera().ZoomAll();
    QImage const before = window.picture();
    ZELVizCore::RenderingOptions* const options = window.view().GetRenderingOptions();
    ZELVizCore::RenderingOptions changed = *options;
    changed.SetDisplayFaces(false);
    window.view().SetRenderingOptions(changed);
    EXPECT_GT(differing(before, window.picture()), 1000);
    changed.SetDisplayFaces(true);
    window.view().SetRenderingOptions(changed);
    EXPECT_EQ(differing(before, window.picture()), 0);

    QRgb const corner = window.picture().pixel(5, 5);
    window.view().UpdateBackgroundColors();
    EXPECT_EQ(window.picture().pixel(5, 5), corner);
    Settings::Current().BackgroundTopColor = {10, 20, 30, 255};
    window.view().UpdateBackgroundColors();
    EXPECT_NE(window.picture().pixel(5, 5), corner);

    changed.SetDisplayEdges(false);
    QImage const withLines = window.picture();
    window.view().SetRenderingOptions(changed);
    EXPECT_GT(differing(withLines, window.picture()), 100);
    QImage const withCube = window.picture();
    options->SetDisplayNavigationCube(false); // tells the view by itself
    EXPECT_GT(differing(withCube, window.picture()), 100);
    window.picture().save(ZEL_BINARY_DIR "/host_plain.png");
}

TEST_F(HostTest, ResizingMakesThePictureAnew)
{
    Window window(sampleFile());
    window.widget().resize(300, 400);
    runEvents(30);
    EXPECT_EQ(window.picture().size(), QSize(300, 400));
    int width = 0, height = 0;
    window.camera().GetWindowSize(width, height);
    EXPECT_EQ(width, 300);
    EXPECT_EQ(height, 400);
}

TEST_F(HostTest, TwoViewsOfTwoDocumentsInOneProcess)
{
    auto first = std::make_unique<Window>(sampleFile());
    Window second(sampleFile());
    first->camera().ZoomAll();
    second.camera().ZoomAll();
    second.camera().Top();
    first->camera().Front();
    EXPECT_GT(differing(first->picture(), second.picture()), 1000);
    QImage const seen = second.picture();
    first->camera().Left();
    EXPECT_EQ(differing(seen, second.picture()), 0);
    first.reset();
    second.camera().Front();
    EXPECT_GT(differing(seen, second.picture()), 1000);
    second.camera().Top();
    EXPECT_EQ(differing(seen, second.picture()), 0);
}

TEST_F(HostTest, WidgetAndAdaptorGoInAnyOrder)
{
    auto document = makeDocument();
    for (bool const widgetFirst : {true, false}) {
        std::unique_ptr<MoraCore::IView3DEvo> view(Host::instance().factory().createInstance("ZELView3D"));
        std::unique_ptr<QWidget> widget(view->GetWidget());
        view->AttachDocument(document.get());
        widget->show();
        runEvents(20);
        if (widgetFirst) {
            widget.reset();
            double box[6];
            EXPECT_EQ(view->GetWidget(), nullptr);
            EXPECT_EQ(view->GetCamera(), nullptr);
            EXPECT_FALSE(view->GetBbox(box[0], box[1], box[2], box[3], box[4], box[5]));
            view->Update(MoraCore::UpdateType::Default);
        } else {
            view.reset();
            widget->resize(200, 200);
            runEvents(20);
        }
    }
}

struct Listener : MoraCore::IPickListener {
    void OnPick(ZELVizCore::Ray const& ray) override { aperture = ray.aperture; }
    float aperture = 0;
};

TEST_F(HostTest, RaysGoToTheListener)
{
    Window window("");
    Listener listener;
    ZELVizCore::Ray ray;
    ray.aperture = 3;
    EXPECT_FALSE(window.view().NotifyPick(ray));
    window.view().SetPickListener(&listener);
    EXPECT_TRUE(window.view().NotifyPick(ray));
    EXPECT_EQ(listener.aperture, 3);
    EXPECT_FALSE(window.view().GetPickRay(ray));
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings);
    QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
