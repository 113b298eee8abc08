// What is seen in a widget is the canvas's own picture.
#include <QApplication>
#include <QScreen>
#include <QWidget>
#include <gtest/gtest.h>
#include <hps/Factory.h>
#include <hps/WindowKey.h>
#include <hps/hps.h>

namespace
{

using namespace HPS;

/// As a view makes itself.
class Surface : public QWidget
{
public:
    Surface()
    {
        setAttribute(Qt::WA_PaintOnScreen);
        setAttribute(Qt::WA_NoSystemBackground);
        setAttribute(Qt::WA_NativeWindow);
        canvas = Factory::CreateCanvas(WindowHandle(winId()), "surface");
        canvas.AttachViewAsLayout(view);
        view.AttachModel(model);
        canvas.GetWindowKey().GetMaterialMappingControl().SetWindowColor(RGBAColor(0.2f, 0.4f, 0.6f));
        canvas.GetWindowKey().GetMaterialMappingControl().SetWindowContrastColor(RGBAColor(0.6f, 0.4f, 0.2f));
        SegmentKey triangle = model.GetSegmentKey();
        triangle.InsertShell({{-1, -1, 0}, {1, -1, 0}, {0, 1, 0}}, {3, 0, 1, 2});
        view.FitWorld();
    }
    ~Surface() override
    {
        canvas.Delete();
        view.Delete();
        model.Delete();
    }
    QPaintEngine* paintEngine() const override { return nullptr; }
    void paintEvent(QPaintEvent*) override { canvas.Update(Window::UpdateType::Refresh); }

    QImage picture() const
    {
        Picture picture;
        EXPECT_TRUE(canvas.ReadPixels(picture));
        return QImage(picture.pixels.data(), picture.width, picture.height, picture.width * 4,
                      QImage::Format_RGBX8888)
            .convertToFormat(QImage::Format_RGB32);
    }
    QImage seen() const
    {
        QApplication::processEvents();
        Picture finished;
        canvas.ReadPixels(finished); // what is wanted is made and shown now
        return screen()->grabWindow(winId()).toImage().convertToFormat(QImage::Format_RGB32);
    }

    Canvas canvas;
    View view = Factory::CreateView("view");
    Model model = Factory::CreateModel("model");
};

} // namespace

TEST(WidgetPresenter, showsThePictureInEverySizeThatTheWidgetTakes)
{
    Surface surface;
    surface.resize(160, 120);
    surface.show();
    for (QSize size : {QSize(160, 120), QSize(200, 90), QSize(64, 64)}) {
        surface.resize(size);
        QApplication::processEvents();
        ASSERT_TRUE(surface.canvas.Update());
        QImage const picture = surface.picture();
        EXPECT_EQ(picture.size(), size);
        EXPECT_EQ(surface.seen(), picture);
    }
}

TEST(WidgetPresenter, twoViewsShowTheirOwnAndOneOutlivesTheOther)
{
    Surface first;
    first.resize(100, 80);
    first.show();
    first.canvas.Update();
    {
        Surface second;
        second.resize(80, 100);
        second.canvas.GetWindowKey().GetMaterialMappingControl().SetWindowColor(RGBAColor(1, 1, 0));
        second.show();
        second.canvas.Update();
        EXPECT_EQ(second.seen(), second.picture());
        EXPECT_EQ(first.seen(), first.picture());
        EXPECT_NE(first.picture().pixel(2, 2), second.picture().pixel(2, 2));
    }
    first.view.GetSegmentKey().GetMaterialMappingControl().SetFaceColor(RGBAColor(1, 0, 0));
    first.canvas.Update();
    EXPECT_EQ(first.seen(), first.picture());
}

TEST(WidgetPresenter, aWidgetThatIsGoneOrNeverShownStillLeavesAPicture)
{
    Surface hidden;
    hidden.resize(50, 40);
    ASSERT_TRUE(hidden.canvas.Update());
    EXPECT_EQ(hidden.picture().size(), QSize(50, 40));

    Canvas orphan;
    {
        QWidget widget;
        widget.resize(30, 30);
        orphan = Factory::CreateCanvas(WindowHandle(widget.winId()), "orphan");
        ASSERT_TRUE(orphan.Update());
    }
    EXPECT_TRUE(orphan.Update(Window::UpdateType::Complete));
    orphan.Delete();
    Canvas const nowhere = Factory::CreateCanvas(WindowHandle(987654321), "nowhere");
    EXPECT_TRUE(nowhere.Update());
}

TEST(WidgetPresenter, aFineScreenGetsAllItsPixels)
{
    Surface surface;
    surface.resize(91, 60);
    surface.show();
    QApplication::processEvents();
    ASSERT_TRUE(surface.canvas.Update());
    double const ratio = surface.devicePixelRatioF();
    EXPECT_EQ(surface.picture().size(), QSize(qRound(91 * ratio), qRound(60 * ratio)));
}

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings);
    QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
