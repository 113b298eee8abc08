#include "SceneDefaults.h"

namespace ZelVizBase::SceneDefaults
{

HPS::RGBAColor ToHps(ZELVizCore::RGBAColor const& color)
{
    return {color.r / 255.0F, color.g / 255.0F, color.b / 255.0F, color.a / 255.0F};
}

Background Background::Of(ZELVizCore::Settings const& settings)
{
    return {ToHps(settings.BackgroundTopColor), ToHps(settings.BackgroundBottomColor)};
}

HPS::DistantLightKey InsertLight(HPS::SegmentKey segment)
{
    HPS::DistantLightKit light;
    light.SetDirection(HPS::Vector(1.0F, 0.0F, -1.5F));
    light.SetColor(HPS::RGBAColor(0.5F, 0.5F, 0.5F, 1.0F));
    light.SetCameraRelative(true);
    return segment.InsertDistantLight(light);
}

void SetBackground(HPS::WindowKey& window, Background const& background)
{
    window.GetMaterialMappingControl()
        .SetWindowColor(background.Top)
        .SetWindowContrastColor(background.Bottom);
}

void SetHandedness(HPS::WindowKey& window)
{
    window.GetDrawingAttributeControl()
        .SetWorldHandedness(HPS::Drawing::Handedness::Right)
        .SetPolygonHandedness(HPS::Drawing::Handedness::Left);
}

void SetViewAttributes(HPS::SegmentKey& view, ZELVizCore::RenderingOptions const& options)
{
    view.GetMarkerAttributeControl()
        .SetSize(8.0F, HPS::Marker::SizeUnits::Pixels)
        .SetDrawingPreference(HPS::Marker::DrawingPreference::Fastest);
    constexpr unsigned shadowSamples = 16;
    constexpr unsigned shadowResolution = 2048;
    view.GetVisualEffectsControl().SetShadowMaps(true, shadowSamples, shadowResolution, true, true);
    view.SetVisibility(Visibility(options));
    view.GetTransparencyControl()
        .SetAlgorithm(HPS::Transparency::Algorithm::DepthPeeling)
        .SetDepthPeelingLayers(3)
        .SetMethod(HPS::Transparency::Method::Blended)
        .SetDepthPeelingPreference(HPS::Transparency::Preference::Fastest);
    view.GetCullingControl().SetDeferralExtent(100).SetFrustum(true).SetBackFace(false);
    view.GetDrawingAttributeControl().SetPolygonHandedness(HPS::Drawing::Handedness::Left);
    view.GetLineAttributeControl().SetWeight(1.0F, HPS::Line::SizeUnits::ScaleFactor);
    view.GetEdgeAttributeControl().SetWeight(1.0F, HPS::Edge::SizeUnits::ScaleFactor);
}

HPS::VisibilityKit Visibility(ZELVizCore::RenderingOptions const& options)
{
    HPS::VisibilityKit kit;
    kit.SetFaces(options.GetDisplayFaces())
        .SetEdges(options.GetDisplayTessellation())
        .SetLines(options.GetDisplayEdges())
        .SetMarkers(options.GetDisplayVertices());
    return kit;
}

HPS::SelectabilityKit Selectability()
{
    HPS::SelectabilityKit kit;
    kit.SetFaces(true).SetEdges(false).SetLines(true).SetMarkers(true).SetVertices(false);
    return kit;
}

HPS::PortfolioKey PushPortfolio(HPS::SegmentKey& view)
{
    HPS::PortfolioKey portfolio = HPS::Database::CreatePortfolio();
    view.GetPortfolioControl().Push(portfolio);
    return portfolio;
}

Scene Setup(HPS::Canvas& canvas, HPS::View& view, ZELVizCore::RenderingOptions const& options)
{
    Scene scene;
    scene.Light = InsertLight(canvas.GetFrontView().GetSegmentKey());
    HPS::WindowKey window = canvas.GetWindowKey();
    SetBackground(window, Background::Of(ZELVizCore::Settings::Default()));
    SetHandedness(window);
    HPS::SegmentKey segment = view.GetSegmentKey();
    view.SetRenderingMode(HPS::Rendering::Mode::Gouraud);
    segment.GetVisibilityControl().SetShadows(true);
    SetViewAttributes(segment, options);
    scene.Portfolio = PushPortfolio(segment);
    DefineStyles(scene.Portfolio, options);
    return scene;
}

} // namespace ZelVizBase::SceneDefaults
