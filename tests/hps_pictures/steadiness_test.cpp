// What must not change a picture.
#include "Stage.h"
#include <cmath>
#include <gtest/gtest.h>

using namespace HPS;

namespace
{

void fill(Stage& stage)
{
    stage.light();
    stage.look({4, 5, 10}, 4);
    for (int i = 0; i < 5; ++i) {
        SegmentKey part = stage.root().Subsegment();
        part.GetMaterialMappingControl().SetFaceColor(
            RGBAColor(0.2f * float(i), 0.5f, 0.9f - 0.2f * float(i)));
        insertBox(part, {-2.4f + float(i), -0.6f, -0.3f}, {-1.7f + float(i), 0.6f, 0.5f});
    }
    insertBall(stage.root(), {0.4f, 0.9f, 0}, 0.4f);
    stage.root().InsertLine(Point(-1.8f, -1, 1), Point(1.8f, 1.2f, 1));
}

int differing(QImage const& a, QImage const& b)
{
    int count = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            QColor const one = a.pixelColor(x, y), other = b.pixelColor(x, y);
            count += std::abs(one.red() - other.red()) > 4 || std::abs(one.green() - other.green()) > 4;
        }
    return count;
}

} // namespace

TEST(Steadiness, aFullTurnEndsWhereItBegan)
{
    Stage stage;
    fill(stage);
    QImage const before = stage.picture();
    for (int step = 0; step < 12; ++step) {
        stage.root().GetModellingMatrixControl().Rotate(0, 30, 0);
        QImage const turned = stage.picture();
        if (step == 5) {
            EXPECT_GT(differing(turned, before), 1000) << "half a turn is seen";
        }
    }
    EXPECT_LT(differing(stage.picture(), before), 10);
}

TEST(Steadiness, whatIsCulledWouldNotHaveBeenSeen)
{
    Stage stage;
    fill(stage);
    for (float const x : {0.0f, 1.6f, 3.2f}) { // more and more of it outside
        CameraKit camera;
        stage.view.GetSegmentKey().ShowCamera(camera);
        camera.SetPosition({4 + x, 5, 10}).SetTarget({x, 0, 0});
        stage.view.SetCamera(camera);
        SCOPED_TRACE(x);
        auto culling = stage.viewSegment().GetCullingControl();
        culling.SetFrustum(true).SetBackFace(true);
        QImage const with = stage.picture();
        auto const drawn = stage.report().records;
        culling.SetFrustum(false).SetBackFace(false);
        EXPECT_EQ(differing(stage.picture(), with), 0);
        EXPECT_GE(stage.report().records, drawn);
    }
}
