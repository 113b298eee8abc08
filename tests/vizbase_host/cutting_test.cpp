// Planes that cut, and ways of drawing faces, as the slots of the view's widget.

#include "HandMade.h"

#include "ZELView3D.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace
{

class Cutting : public testing::Test
{
protected:
    Cutting()
    {
        Shown.camera().ZoomAll();
        EXPECT_TRUE(Shown.opened());
    }

    void call(char const* slot) { ASSERT_TRUE(QMetaObject::invokeMethod(&Shown.widget(), slot)); }
    QImage picture(char const* name = nullptr) const
    {
        QImage const made = Shown.picture();
        if (name) made.save(QString(ZEL_BINARY_DIR "/host_%1.png").arg(name));
        return made;
    }
    /// Pixels that are not alike.
    static int apart(QImage const& a, QImage const& b)
    {
        int count = 0;
        for (int y = 0; y < a.height(); ++y)
            for (int x = 0; x < a.width(); ++x) count += a.pixel(x, y) != b.pixel(x, y) ? 1 : 0;
        return count;
    }

    Window Shown{sampleFile()};
};

} // namespace

TEST_F(Cutting, EachPlaneTakesAnotherHalfAwayAndOneIsUpAtATime)
{
    QImage const whole = picture();
    std::vector<QImage> cuts;
    for (char const* slot :
         {"OnOperatorCuttingPlaneX", "OnOperatorCuttingPlaneY", "OnOperatorCuttingPlaneZ"}) {
        call(slot);
        cuts.push_back(picture(slot));
        EXPECT_GT(apart(whole, cuts.back()), 3000) << slot;
    }
    EXPECT_GT(apart(cuts[0], cuts[1]), 3000);
    call("OnOperatorCuttingPlaneX");
    EXPECT_LT(apart(picture(), cuts[0]), 50);
}

TEST_F(Cutting, TheLeftButtonDragsThePlaneWhichStaysForTheNextTime)
{
    Pose const start(Shown.camera());
    call("OnOperatorCuttingPlaneZ");
    QImage const middle = picture();
    Shown.press(Qt::LeftButton, {320, 240});
    Shown.moveTo({320, 180}, Qt::LeftButton);
    Shown.release(Qt::LeftButton, {320, 180});
    QImage const dragged = picture("cut_dragged");
    EXPECT_GT(apart(middle, dragged), 1000);
    EXPECT_EQ(Pose(Shown.camera()).position, start.position);
    call("OnOperatorCuttingPlaneX");
    call("OnOperatorCuttingPlaneZ");
    EXPECT_LT(apart(picture(), dragged), 50);

    Shown.press(Qt::RightButton, {320, 240});
    Shown.moveTo({420, 240}, Qt::RightButton);
    Shown.release(Qt::RightButton, {420, 240});
    EXPECT_NE(Pose(Shown.camera()).position, start.position) << "the right button orbits";
}

TEST_F(Cutting, AnotherSetOfOperatorsEndsIt)
{
    MoraCore::IViewInteraction& hand = *Shown.view().GetInteraction();
    hand.SetMouseStyle(MoraCore::MouseStyles[0]);
    QImage const whole = picture();
    call("OnOperatorCuttingPlaneY");
    ASSERT_GT(apart(whole, picture()), 3000);
    hand.SetMouseStyle(MoraCore::MouseStyles[0]);
    Shown.view().Update(MoraCore::UpdateType::Default);
    EXPECT_LT(apart(whole, picture()), 50);
    call("OnOperatorCuttingPlaneY");
    EXPECT_GT(apart(whole, picture()), 3000);
}

TEST_F(Cutting, CutsCanBeClosed)
{
    call("OnOperatorCuttingPlaneX");
    QImage const open = picture();
    call("OnModeCutCaps");
    EXPECT_GT(apart(open, picture("cut_caps")), 500);
    call("OnModeCutCaps");
    EXPECT_LT(apart(open, picture()), 50);
}

TEST_F(Cutting, EachModeDrawsInItsOwnWayAndNoneStays)
{
    call("OnModeGouraud");
    QImage const shaded = picture();
    for (char const* slot : {"OnModeFlat", "OnModeTransparent", "OnModeHiddenLine", "OnModeWires"}) {
        call(slot);
        EXPECT_GT(apart(shaded, picture(slot)), 1000) << slot;
    }
    call("OnModeGouraud");
    EXPECT_LT(apart(shaded, picture()), 50);
}

TEST_F(Cutting, AStoredSceneIsShownInAViewWithoutADocument)
{
    QTemporaryDir folder;
    std::string const model = folder.filePath("machine.zel_xml").toStdString();
    ASSERT_TRUE(QFile::copy(QString::fromStdString(sampleFile()), QString::fromStdString(model)));
    Window source(model);
    ASSERT_TRUE(static_cast<ZelCad::CadDocument&>(source.document()).ExportHSF());

    Window empty("");
    auto& view = *static_cast<ZelVizBase::ZELView3D*>(empty.view().GetViewImpl());
    double box[6];
    EXPECT_THROW(view.TestLoadHsf(folder.filePath("nothing.hsf").toStdString()), HPS::IOException);
    EXPECT_FALSE(empty.view().GetBbox(box[0], box[1], box[2], box[3], box[4], box[5]));
    view.TestLoadHsf(model + ".hsf");
    double wanted[6];
    ASSERT_TRUE(source.view().GetBbox(wanted[0], wanted[1], wanted[2], wanted[3], wanted[4], wanted[5]));
    ASSERT_TRUE(empty.view().GetBbox(box[0], box[1], box[2], box[3], box[4], box[5]));
    for (int i = 0; i < 6; ++i) EXPECT_NEAR(box[i], wanted[i], 1e-3) << i;
    HPS::Picture made;
    ASSERT_TRUE(view.Canvas().ReadPixels(made));
    QImage(made.pixels.data(), made.width, made.height, 4 * made.width, QImage::Format_RGBX8888)
        .save(ZEL_BINARY_DIR "/host_stored_scene.png");

    // Where a document is shown nothing happens.
    auto& busy = *static_cast<ZelVizBase::ZELView3D*>(Shown.view().GetViewImpl());
    QImage const before = picture();
    busy.TestLoadHsf(folder.filePath("nothing.hsf").toStdString());
    EXPECT_EQ(picture(), before);
}

TEST_F(Cutting, EffectsAreSwitchedOnAndOff)
{
    QImage const plain = picture();
    for (char const* slot :
         {"OnModeSimpleShadow", "OnModeShadowMap", "OnModeReflectionPlane", "OnModeBloom"}) {
        call(slot);
        EXPECT_GT(apart(plain, picture(slot)), 100) << slot;
        call(slot);
        EXPECT_LT(apart(plain, picture()), 50) << slot;
    }
}
