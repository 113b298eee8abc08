// What stands in the corners of a view.

#include "SceneDefaults.h"

namespace ZelVizBase::SceneDefaults
{

namespace
{

HPS::MaterialKitArray materials(std::vector<HPS::RGBAColor> const& colors)
{
    HPS::MaterialKitArray kits;
    for (HPS::RGBAColor const& color : colors) kits.emplace_back().SetDiffuse(color);
    return kits;
}

} // namespace

void SetTriadAndCube(HPS::View const& view, HPS::PortfolioKey& portfolio,
                     ZELVizCore::RenderingOptions const& options)
{
    portfolio.DefineMaterialPalette("AxisTriadColors", materials({{0, 0, 1, 1}, {0, 1, 0, 1}, {1, 0, 0, 1}}));
    HPS::AxisTriadControl triad = view.GetAxisTriadControl();
    triad.SetMaterialPalette("AxisTriadColors");
    triad.GetSegmentKey().GetDrawingAttributeControl().SetPolygonHandedness(HPS::Drawing::Handedness::None);
    triad.SetVisibility(true).SetInteractivity(true);

    HPS::RGBAColor const bluish(0.7F, 0.7F, 0.78F, 1), greenish(0.7F, 0.78F, 0.7F, 1),
        reddish(0.78F, 0.7F, 0.7F, 1);
    portfolio.DefineMaterialPalette(
        "NavCubeColors",
        materials({bluish, greenish, reddish, bluish, greenish, reddish, ToHps(options.GetHighlightColor()),
                   HPS::RGBAColor(0, 0, 0), ToHps(options.GetDefaultEdgeColor())}));
    HPS::NavigationCubeControl cube = view.GetNavigationCubeControl();
    cube.SetMaterialPalette("NavCubeColors").SetVisibility(true).SetInteractivity(true).SetSize(0.15F);
    HPS::TextAttributeKit text = HPS::TextAttributeKit::GetDefault();
    text.SetUnderline(false)
        .SetSize(25, HPS::Text::SizeUnits::Pixels)
        .SetAlignment(HPS::Text::Alignment::Center, HPS::Text::ReferenceFrame::WorldAligned,
                      HPS::Text::Justification::Left);
    cube.SetText("Back", "Top", "Left", "Front", "Bottom", "Right", text, {});
    triad.SetSize(0.1F).SetInteractivity(false);
}

} // namespace ZelVizBase::SceneDefaults
