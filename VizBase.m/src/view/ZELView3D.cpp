#include "ZELView3D.h"

#include "SceneDefaults.h"
#include "ViewDocument.h"
#include "ViewInteraction.h"
#include "ZELHighlightOperator.h"
#include "ZELPickRayOperator.h"
#include "native_keys.h"

#include <QPaintEvent>
#include <QResizeEvent>
#include <QTimer>

namespace ZelVizBase
{

using ZELVizCore::RenderingOptions;
using ZELVizCore::Settings;

std::string const ZELView3D::s_HighlightStyleName = SceneDefaults::HighlightStyle;
std::string const ZELView3D::s_DefaultStyleName = SceneDefaults::DefaultStyle;
std::string const ZELView3D::s_PmiStyleName = SceneDefaults::PmiStyle;
std::string const ZELView3D::s_DrwStyleName = SceneDefaults::DrawingStyle;

namespace
{

HPS::ApplicationWindowOptionsKit windowOptions()
{
    constexpr unsigned samples = 4;
    HPS::ApplicationWindowOptionsKit options;
    options.SetAntiAliasCapable(true, samples).SetDriver(HPS::Window::Driver::Default3D);
    return options;
}

/// New options in the colours of the current settings. They stay to the end of the process.
RenderingOptions* makeOptions()
{
    static auto& kept = *new std::vector<std::unique_ptr<RenderingOptions>>;
    RenderingOptions* const options = kept.emplace_back(RenderingOptions::CreateDefault()).get();
    Settings const& settings = Settings::Current();
    options->SetDefaultBodyColor(settings.BodyColor);
    options->SetDefaultFaceColor(settings.BodyColor);
    options->SetDefaultEdgeColor(settings.EdgeColor);
    options->SetDefaultVertexColor(settings.VertexColor);
    options->SetDefaultTessEdgeColor(settings.TessEdgeColor);
    options->SetHighlightColor(settings.HighlightColor);
    return options;
}

} // namespace

ZELView3D::ZELView3D(QWidget* parent)
    : QWidget(parent),
      PlanesX{{1, 0, 0, 0}},
      PlanesY{{0, 1, 0, 0}},
      PlanesZ{{0, 0, 1, 0}},
      YUp(Settings::Default()->ClassicalOrientation)
{
    setAttribute(Qt::WA_PaintOnScreen);
    setAttribute(Qt::WA_NoSystemBackground);
    setBackgroundRole(QPalette::NoRole);
    setAcceptDrops(true);
    setFocusPolicy(Qt::StrongFocus);

    setupErrorWarningHandlers();
    TheCanvas =
        HPS::Factory::CreateCanvas(static_cast<HPS::WindowHandle>(winId()), "3DLoom2", windowOptions());
    TheView = HPS::Factory::CreateView("");
    TheCanvas.AttachViewAsLayout(TheView);
    TheCanvas.SetFrameRate(0.0F);
    HighlightOptions.SetStyleName(s_HighlightStyleName.c_str());
    Options = makeOptions();
    setupCamera();
    setupSceneDefaults();
    setMouseTracking(true);
    SelectionHolder = std::make_unique<ZELVizCore::SelectionHolder>();
}

ZELView3D::~ZELView3D()
{
    Options->UnregisterListener(this);
    if (Evo != nullptr) Evo->SetViewImpl(nullptr);
    TheView.GetOperatorControl().UnsetEverything();
    Interaction.reset();
    TheView.DetachModel();
    TheCanvas.Delete();
    TheView.Delete();
    SceneDefaults::RemovePortfolio(Portfolio);
}

ViewDocument* ZELView3D::document() const
{
    return dynamic_cast<ViewDocument*>(Document);
}

void ZELView3D::AttachDocument(MoraCore::IDocumentEvo* attached)
{
    if (dynamic_cast<ViewDocument*>(attached) == nullptr) return;
    if (Interaction != nullptr) Interaction->ClearSelection();
    Document = attached;
    TheView.DetachModel();
    HPS::Model const model = document()->GetModel();
    TheView.AttachModel(model);
    segment().GetPortfolioControl().Push(model.GetPortfolioKey());
    document()->SetCanvas(TheCanvas);
    document()->SetView(TheView);
    document()->SetHighlightOptionsKit(HighlightOptions);
    ModelPath = HPS::SprocketPath(TheCanvas, TheCanvas.GetAttachedLayout(), TheView, model);
    if (model.Type() == HPS::Type::None) return;

    ModelAttached = true;
    model.GetSegmentKey().GetPerformanceControl().SetDisplayLists(HPS::Performance::DisplayLists::Segment);
    setupSelectability(true);
    Options->RegisterListener(this);
    updateThis(HPS::Window::UpdateType::Default);
}

HPS::KeyPath ZELView3D::GetModelKeyPath() const
{
    HPS::KeyPath path = ModelPath.GetKeyPath();
    path.PushFront(TheView.GetAttachedModel().GetLibraryKey());
    return path;
}

void ZELView3D::Update(MoraCore::UpdateType type)
{
    // The host's numbers are those of the library.
    updateThis(static_cast<HPS::Window::UpdateType>(type));
}

void ZELView3D::updateThis(HPS::Window::UpdateType type)
{
    bool const wanted = Settings::Current().ClassicalOrientation;
    if (YUp != wanted) {
        YUp = wanted;
        HPS::Vector const x(1, 0, 0), y(0, 1, 0), z(0, 0, 1);
        if (ModelAttached) TheView.GetAttachedModel().SetOrientation(YUp ? y : z, YUp ? z : x);
        setupCamera();
    }
    TheCanvas.Update(type, -1.0);
}

void ZELView3D::setupCamera()
{
    std::string const wanted = YUp ? "HPSCameraYUp" : "HPSCameraZUp";
    MoraCore::ACameraFactory const& factory = MoraCore::View3DFactory::Instance().GetCameraFactory();
    if (Camera == nullptr)
        Camera.reset(factory.MakeCamera(Evo, wanted));
    else if (Camera->GetName() != wanted)
        Camera.reset(factory.MakeCamera(*Camera, wanted));
}

void ZELView3D::UpdateCamera()
{
    Camera.reset();
    setupCamera();
}

bool ZELView3D::showVolume(HPS::SimpleSphere& sphere, HPS::SimpleCuboid& cuboid) const
{
    return segment().GetBoundingControl().ShowVolume(sphere, cuboid);
}

float ZELView3D::GetGeometryRadius()
{
    HPS::SimpleSphere sphere;
    HPS::SimpleCuboid cuboid;
    if (!showVolume(sphere, cuboid)) return 0.0F;
    GeometryRadius = static_cast<float>(cuboid.Diagonal() / 2);
    return GeometryRadius;
}

float const* ZELView3D::GetGeometryCenter()
{
    HPS::SimpleSphere sphere;
    HPS::SimpleCuboid cuboid;
    if (!showVolume(sphere, cuboid)) return nullptr;
    HPS::Point const center = cuboid.Center();
    GeometryCenter[0] = center.x;
    GeometryCenter[1] = center.y;
    GeometryCenter[2] = center.z;
    return GeometryCenter;
}

bool ZELView3D::GetBbox(double& xmin, double& ymin, double& zmin, double& xmax, double& ymax, double& zmax)
{
    HPS::SimpleSphere sphere;
    HPS::SimpleCuboid cuboid;
    if (!showVolume(sphere, cuboid) || !(sphere.radius > 0)) return false;
    xmin = cuboid.min.x;
    ymin = cuboid.min.y;
    zmin = cuboid.min.z;
    xmax = cuboid.max.x;
    ymax = cuboid.max.y;
    zmax = cuboid.max.z;
    return true;
}

void ZELView3D::GetWindowSize(int& width, int& height) const
{
    width = static_cast<int>(WindowWidth);
    height = static_cast<int>(WindowHeight);
}

void ZELView3D::SetWindowSize(int width, int height)
{
    WindowWidth = static_cast<float>(width);
    WindowHeight = static_cast<float>(height);
}

void ZELView3D::paintEvent(QPaintEvent*)
{
    if (HPS::World::IsDrawing()) {
        // To wait here for a picture would hold up the whole window.
        QTimer::singleShot(10, this, qOverload<>(&QWidget::update));
        return;
    }
    // The first view of a process starts isometric; a later one keeps the camera that it has.
    static bool firstPaint = true;
    if (firstPaint) {
        unsigned width = 0, height = 0;
        if (TheCanvas.GetWindowKey().GetWindowInfoControl().ShowWindowPixels(width, height))
            SetWindowSize(static_cast<int>(width), static_cast<int>(height));
        OnIsometric();
        firstPaint = false;
    }
    updateThis(HPS::Window::UpdateType::Refresh);
}

void ZELView3D::resizeEvent(QResizeEvent* event)
{
    if (event == nullptr) return;
    SetWindowSize(event->size().width(), event->size().height());
    updateThis(HPS::Window::UpdateType::Refresh);
}

} // namespace ZelVizBase
