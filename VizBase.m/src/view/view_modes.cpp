// Rendering modes, effects, hiding of bodies, standard views.

#include "ZELView3D.h"

#include <algorithm>

namespace ZelVizBase
{

using HPS::Rendering::Mode;
constexpr auto redraw = HPS::Window::UpdateType::Default;

void ZELView3D::setMode(Mode mode)
{
    setSeeThrough(false);
    TheView.SetRenderingMode(mode);
    updateThis(redraw);
}

void ZELView3D::OnModeGouraud()
{
    setMode(Mode::Gouraud);
}

void ZELView3D::OnModeFlat()
{
    setMode(Mode::Flat);
}

void ZELView3D::OnModeSmooth()
{
    setMode(Mode::Phong);
}

void ZELView3D::OnModeWires()
{
    setMode(Mode::Wireframe);
}

void ZELView3D::OnModeTransparent()
{
    TheView.SetRenderingMode(Mode::Gouraud);
    setSeeThrough(true);
    updateThis(redraw);
}

// The lock makes it hold for whatever has a colour of its own; the cube in the corner stays as it is.
void ZELView3D::setSeeThrough(bool seeThrough)
{
    if (seeThrough == SeeThrough) return;
    SeeThrough = seeThrough;
    constexpr float opacity = 0.35F;
    constexpr auto lock = HPS::AttributeLock::Type::MaterialFaceDiffuseAlpha;
    HPS::SegmentKey aboveModel = TheView.GetModelIncludeKey();
    HPS::MaterialMappingControl materials = aboveModel.GetMaterialMappingControl();
    if (seeThrough) {
        materials.SetFaceAlpha(opacity);
        aboveModel.GetAttributeLockControl().SetLock(lock, true);
    } else {
        materials.UnsetFaceMaterial(); // nothing else stands there
        aboveModel.GetAttributeLockControl().UnsetLock(lock);
    }
}

void ZELView3D::OnModeHiddenLine()
{
    segment().GetVisibilityControl().SetEdges(false);
    setMode(Mode::HiddenLine);
}

void ZELView3D::OnModeSimpleShadow()
{
    SimpleShadowOn = !SimpleShadowOn;
    if (SimpleShadowOn) return updatePlanes();
    segment().GetVisualEffectsControl().SetSimpleShadow(false, 256, 1, false);
    updateThis(redraw);
}

void ZELView3D::OnModeShadowMap()
{
    ShadowMapOn = !ShadowMapOn;
    segment().GetVisibilityControl().SetShadows(ShadowMapOn);
    updateThis(redraw);
    updatePlanes();
}

void ZELView3D::updatePlanes()
{
    if (!SimpleShadowOn) return;
    constexpr float distanceBelow = 5; ///< percent of the height
    constexpr float opacity = 0.3F;
    TheView.SetSimpleShadow(true, distanceBelow);
    HPS::VisualEffectsControl effects = segment().GetVisualEffectsControl();
    HPS::RGBAColor color(0.4F, 0.4F, 0.4F, opacity);
    if (effects.ShowSimpleShadowColor(color)) color.alpha = opacity;
    effects.SetSimpleShadow(true, 512, 20, false);
    effects.SetSimpleShadowColor(color);
    updateThis(redraw);
}

void ZELView3D::OnModeReflectionPlane()
{
    if (!ModelAttached) return;
    ReflectionOn = !ReflectionOn;
    HPS::VisualEffectsControl effects = TheView.GetAttachedModel().GetSegmentKey().GetVisualEffectsControl();
    if (ReflectionOn)
        effects.SetSimpleReflection(true, 0.5F, 1, false, 0.0F, 0.2F)
            .SetSimpleReflectionPlane(HPS::Plane(0, 1, 0, 1));
    else
        effects.UnsetSimpleReflection();
    updateThis(redraw);
}

void ZELView3D::OnModeBloom()
{
    BloomOn = !BloomOn;
    HPS::PostProcessEffectsKit effects;
    effects.SetBloom(BloomOn, 10.0F, 5, HPS::PostProcessEffects::Bloom::Shape::Radial);
    TheCanvas.GetWindowKey().SetPostProcessEffects(effects);
    updateThis(redraw);
}

namespace
{

HPS::UTF8 hideCondition(unsigned long long body)
{
    return HPS::UTF8(("hide_#" + std::to_string(body)).c_str());
}

} // namespace

void ZELView3D::HideBody(unsigned long long id)
{
    HPS::UTF8 const condition = hideCondition(id);
    if (std::ranges::find(HideConditions, condition) == HideConditions.end())
        HideConditions.push_back(condition);
    segment().SetConditions(HideConditions);
}

void ZELView3D::UnhideBody(unsigned long long id)
{
    std::erase(HideConditions, hideCondition(id));
    if (HideConditions.empty())
        segment().UnsetConditions();
    else
        segment().SetConditions(HideConditions);
}

void ZELView3D::OnTop()
{
    if (Camera) Camera->Top();
}

void ZELView3D::OnBottom()
{
    if (Camera) Camera->Bottom();
}

void ZELView3D::OnFront()
{
    if (Camera) Camera->Front();
}

void ZELView3D::OnBack()
{
    if (Camera) Camera->Back();
}

void ZELView3D::OnRight()
{
    if (Camera) Camera->Right();
}

void ZELView3D::OnLeft()
{
    if (Camera) Camera->Left();
}

void ZELView3D::OnIsometric()
{
    if (Camera) Camera->Isometric();
}

} // namespace ZelVizBase
