// What stands in the scene of a new view, and how rendering options reach it.

#include "SceneDefaults.h"
#include "ZELView3D.h"

#include <tuple>

namespace ZelVizBase
{

using ZELVizCore::RenderingOptions;
using ZELVizCore::Settings;

void ZELView3D::setupSceneDefaults()
{
    InitOperators();
    if (Light.Type() != HPS::Type::None) Light.Delete();
    Light = SceneDefaults::InsertLight(TheCanvas.GetFrontView().GetSegmentKey());
    auto const background = SceneDefaults::Background::Of(Settings::Default());
    WindowColor = background.Top;
    WindowContrastColor = background.Bottom;
    HPS::WindowKey window = TheCanvas.GetWindowKey();
    SceneDefaults::SetBackground(window, background);
    SceneDefaults::SetHandedness(window);
    OnModeGouraud();
    OnModeShadowMap();

    HPS::SegmentKey view = segment();
    SceneDefaults::SetViewAttributes(view, *Options);
    view.ShowVisibility(SavedVisibility);
    Portfolio = SceneDefaults::PushPortfolio(view);
    SceneDefaults::SetTriadAndCube(TheView, Portfolio, *Options);
    SceneDefaults::DefineStyles(Portfolio, *Options);
    SetSelectionLevel(HPS::Selection::Level::Entity);
    setupErrorWarningHandlers();
}

void ZELView3D::setupErrorWarningHandlers()
{
    static auto const error = HPS::ErrorEvent().GetClassID();
    static auto const warning = HPS::WarningEvent().GetClassID();
    HPS::EventDispatcher dispatcher = HPS::Database::GetEventDispatcher();
    dispatcher.Subscribe(ErrorHandler, error);
    dispatcher.Subscribe(WarningHandler, warning);
}

void ZELView3D::setupVisibility(bool first)
{
    HPS::SegmentKey view = segment();
    if (view.Type() == HPS::Type::None) return;
    if (!first) view.ShowVisibility(SavedVisibility);
    view.SetVisibility(SceneDefaults::Visibility(*Options));
    if (first) view.ShowVisibility(SavedVisibility);
}

void ZELView3D::setupSelectability(bool first)
{
    HPS::Model const model = TheView.GetAttachedModel();
    if (model.Type() == HPS::Type::None) return;
    HPS::SegmentKey scene = model.GetSegmentKey();
    if (scene.Type() == HPS::Type::None) return;
    if (!first) scene.ShowSelectability(SavedSelectability);
    scene.SetSelectability(SceneDefaults::Selectability());
    if (first) scene.ShowSelectability(SavedSelectability);
}

void ZELView3D::SetRenderingOptions(RenderingOptions const& options)
{
    *Options = options;
    UnHighlightAll(false);
    SceneDefaults::UpdateStyles(Portfolio, *Options);
    setupSelectability(false);
    setupVisibility(false);
    updateThis(HPS::Window::UpdateType::Default);
}

void ZELView3D::Notify(ZELVizCore::IRenderingOptions* options)
{
    auto const& changed = static_cast<RenderingOptions const&>(*options);
    auto const shown = [](RenderingOptions const& o) {
        return std::tuple(o.GetDisplayFaces(), o.GetDisplayEdges(), o.GetDisplayVertices(),
                          o.GetDisplayTessellation(), o.GetDisplayClouds());
    };
    bool const visibilityChanged = shown(*Options) != shown(changed);
    *Options = changed;
    HPS::SegmentKey view = segment();
    if (visibilityChanged) {
        view.ShowVisibility(SavedVisibility);
        view.SetVisibility(SceneDefaults::Visibility(*Options));
    }
    if (Options->GetDisplayPMI())
        view.UnsetConditions();
    else
        view.SetCondition("hide_pmi");
    TheView.GetAxisTriadControl().SetVisibility(Options->GetDisplayAxes());
    TheView.GetNavigationCubeControl().SetVisibility(Options->GetDisplayNavigationCube());
    SceneDefaults::UpdateStyles(Portfolio, *Options);
    updateThis(HPS::Window::UpdateType::Default);
}

void ZELView3D::UpdateBackgroundColors()
{
    auto const wanted = SceneDefaults::Background::Of(Settings::Current());
    if (wanted.Top == WindowColor && wanted.Bottom == WindowContrastColor) return;
    WindowColor = wanted.Top;
    WindowContrastColor = wanted.Bottom;
    HPS::WindowKey window = TheCanvas.GetWindowKey();
    SceneDefaults::SetBackground(window, wanted);
    updateThis(HPS::Window::UpdateType::Default);
}

} // namespace ZelVizBase
