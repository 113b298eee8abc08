#include "ViewTest.h"

#include "HPSCamera.h"

#include <QApplication>

namespace ZelVizBase
{

namespace
{

void insertTriangle(HPS::SegmentKey segment, float x)
{
    segment.InsertShell({{x - 0.9F, -0.9F, 0}, {x + 0.9F, -0.9F, 0}, {x, 0.9F, 0}}, {3, 0, 1, 2});
}

} // namespace

TaggedDocument::TaggedDocument()
{
    HPS::SegmentKey scene = GetModel().GetSegmentKey();
    Instance = scene.Subsegment("instance");
    ZELSegmentTagger::Tag(Instance, 22ULL, ZELSegmentTagger::TAG_INSTANCE);
    Mesh = Instance.Subsegment("mesh");
    ZELSegmentTagger::Tag(Mesh, 33ULL, ZELSegmentTagger::TAG_VISU_GEOMETRY);
    insertTriangle(Mesh.Subsegment("left"), -1);
    PmiView = Instance.Subsegment("pmi view");
    ZELSegmentTagger::Tag(PmiView, 44ULL, ZELSegmentTagger::TAG_PMI_VIEW);
    Pmi = PmiView.Subsegment("pmi");
    ZELSegmentTagger::Tag(Pmi, 55ULL, ZELSegmentTagger::TAG_PMI);
    insertTriangle(Pmi, 1);
}

ViewTest::ViewTest()
{
    View.resize(200, 200);
    View.AttachDocument(&Document);
    View.show();
    QCoreApplication::processEvents();
    HPS::CameraKit camera;
    camera.SetPosition({0, 0, 10}).SetTarget({0, 0, 0}).SetUpVector({0, 1, 0}).SetField(4, 4);
    camera.SetProjection(HPS::Camera::Projection::Orthographic);
    View.View().SetCamera(camera);
    View.Update(MoraCore::UpdateType::Default);
}

ViewTest::~ViewTest()
{
    ZELVizCore::Settings::Current() = ZELVizCore::Settings::Default();
}

} // namespace ZelVizBase

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings);
    QApplication application(argc, argv);
    MoraCore::View3DFactory& views = MoraCore::View3DFactory::Instance();
    views.RegisterCameraDefinition(new ZelVizBase::HPSCameraYUp(nullptr));
    views.RegisterCameraDefinition(new ZelVizBase::HPSCameraZUp(nullptr));
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
