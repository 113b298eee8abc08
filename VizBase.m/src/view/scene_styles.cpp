// The named styles of a view.

#include "SceneDefaults.h"

namespace ZelVizBase::SceneDefaults
{

namespace
{

using ZELVizCore::RenderingOptions;

constexpr auto diffuse = HPS::Material::Color::Channel::DiffuseColor;

/// The source of a style that is defined now.
HPS::SegmentKey defineStyle(HPS::PortfolioKey& portfolio, char const* name)
{
    HPS::SegmentKey source = HPS::Database::CreateRootSegment();
    portfolio.DefineNamedStyle(name, source);
    return source;
}

/// Takes its segments out of sight for good: nothing below may show itself again.
void defineHiddenStyle(HPS::PortfolioKey& portfolio, char const* name)
{
    HPS::SegmentKey source = defineStyle(portfolio, name);
    source.GetVisibilityControl().SetEverything(false);
    source.GetAttributeLockControl().SetLock(HPS::AttributeLock::Type::Visibility, true);
}

void setHighlightColors(HPS::SegmentKey& source, RenderingOptions const& options)
{
    HPS::RGBAColor const color = ToHps(options.GetHighlightColor());
    source.GetMaterialMappingControl().SetFaceColor(color, diffuse).SetTextColor(color).SetLineColor(color);
}

void setColors(HPS::SegmentKey& source, RenderingOptions const& options)
{
    source.GetMaterialMappingControl()
        .SetFaceColor(ToHps(options.GetDefaultFaceColor()), diffuse)
        .SetLineColor(ToHps(options.GetDefaultEdgeColor()))
        .SetEdgeColor(ToHps(options.GetDefaultTessEdgeColor()), diffuse)
        .SetVertexColor(ToHps(options.GetDefaultVertexColor()), diffuse);
}

enum class SheetEdges { AsInherited, HardAndSilhouette };

/// Flat things that lie on the model: in front of its faces, unshaded, never culled by their extent.
void defineAnnotationStyle(HPS::PortfolioKey& portfolio, char const* name, SheetEdges edges,
                           RenderingOptions const& options)
{
    HPS::SegmentKey source = defineStyle(portfolio, name);
    source.GetTextAttributeControl().SetTransform(HPS::Text::Transform::Transformable);
    HPS::VisibilityControl visibility = source.GetVisibilityControl();
    visibility.SetText(true).SetLines(true).SetFaces(true);
    if (edges == SheetEdges::HardAndSilhouette)
        visibility.SetHardEdges(true).SetInteriorSilhouetteEdges(true);
    source.GetLineAttributeControl().SetWeight(1.0F, HPS::Line::SizeUnits::ScaleFactor);
    source.GetDrawingAttributeControl().SetFaceDisplacement(-24);
    source.GetCullingControl().SetExtent(true, 0);
    source.GetVisualEffectsControl().SetSimpleShadow(false, 256, 1, false);
    visibility.SetShadowCasting(false).SetShadowEmitting(false).SetShadowReceiving(false).SetFaceLights(
        false);
    setColors(source, options);
}

template <class SetColors> void updateStyle(HPS::PortfolioKey& portfolio, char const* name,
                                            SetColors setStyleColors, RenderingOptions const& options)
{
    HPS::NamedStyleDefinition definition;
    if (!portfolio.ShowNamedStyleDefinition(name, definition)) return;
    HPS::SegmentKey source = definition.GetSource();
    setStyleColors(source, options);
}

} // namespace

void DefineStyles(HPS::PortfolioKey& portfolio, RenderingOptions const& options)
{
    HPS::SegmentKey highlight = defineStyle(portfolio, HighlightStyle);
    setHighlightColors(highlight, options);
    highlight.GetLineAttributeControl().SetWeight(2.0F, HPS::Line::SizeUnits::ScaleFactor);
    highlight.GetVisibilityControl().SetLines(true).SetMarkers(false);

    defineHiddenStyle(portfolio, "hidden_brep");
    defineHiddenStyle(portfolio, "hidden_visu");
    HPS::SegmentKey body = defineStyle(portfolio, DefaultStyle);
    setColors(body, options);
    body.GetDrawingAttributeControl().SetFaceDisplacement(true, 16);

    defineHiddenStyle(portfolio, "hidden_pmi");
    defineAnnotationStyle(portfolio, PmiStyle, SheetEdges::AsInherited, options);
    defineHiddenStyle(portfolio, "hidden_drw");
    defineAnnotationStyle(portfolio, DrawingStyle, SheetEdges::HardAndSilhouette, options);
}

void RemovePortfolio(HPS::PortfolioKey& portfolio)
{
    std::vector<HPS::NamedStyleDefinition> styles;
    portfolio.ShowAllNamedStyleDefinitions(styles);
    for (HPS::NamedStyleDefinition const& style : styles) style.GetSource().Delete();
    portfolio.Delete();
}

void UpdateStyles(HPS::PortfolioKey& portfolio, RenderingOptions const& options)
{
    updateStyle(portfolio, HighlightStyle, setHighlightColors, options);
    for (char const* name : {DefaultStyle, PmiStyle, DrawingStyle})
        updateStyle(portfolio, name, setColors, options);
}

} // namespace ZelVizBase::SceneDefaults
