#include "HoverHighlight.h"

#include "SceneDefaults.h"
#include "ViewSelection.h"
#include "ZELView3D.h"
#include "picked_paths.h"

namespace ZelVizBase
{

namespace
{

constexpr char const* StyleName = "hover_style";
constexpr float towardsWhite = 0.5F;

HPS::RGBAColor lighter(HPS::RGBAColor const& color)
{
    auto const mixed = [](float channel) { return channel + (1 - channel) * towardsWhite; };
    return {mixed(color.red), mixed(color.green), mixed(color.blue), color.alpha};
}

} // namespace

HoverHighlight::HoverHighlight(ZELView3D& view, ViewSelection const& selection)
    : View(view), Selection(selection), Style(HPS::Database::CreateRootSegment())
{
    HPS::SegmentKey segment = View.View().GetSegmentKey();
    Portfolio = SceneDefaults::PushPortfolio(segment);
    Portfolio.DefineNamedStyle(StyleName, Style);
    Style.GetLineAttributeControl().SetWeight(2.0F, HPS::Line::SizeUnits::ScaleFactor);
    Style.GetVisibilityControl().SetLines(true).SetMarkers(false);
    Options.SetStyleName(StyleName);
    matchColor();
}

HoverHighlight::~HoverHighlight()
{
    SceneDefaults::RemovePortfolio(Portfolio);
}

void HoverHighlight::matchColor()
{
    HPS::RGBAColor const wanted =
        lighter(SceneDefaults::ToHps(View.GetRenderingOptions()->GetHighlightColor()));
    if (wanted == Color) return;
    Color = wanted;
    Style.GetMaterialMappingControl()
        .SetFaceColor(Color, HPS::Material::Color::Channel::DiffuseColor)
        .SetTextColor(Color)
        .SetLineColor(Color);
}

MoraCore::PointedAt HoverHighlight::Follow(HPS::WindowPoint const& place)
{
    MoraCore::PointedAt at;
    HPS::SelectionItem const item = itemAt(View.Canvas().GetWindowKey(), place);
    HPS::KeyPath const path = wholeOf(item);
    HPS::Point point;
    if (item.ShowSelectionPosition(point)) {
        at.place[0] = point.x;
        at.place[1] = point.y;
        at.place[2] = point.z;
    }
    if (path != Met) {
        Met = path;
        Node = path.Empty() ? ZELVizCore::RenderId() : nodeOf(View, path);
    }
    at.id = Node;
    light(Selection.Covers(path) ? HPS::KeyPath() : path);
    return at;
}

void HoverHighlight::light(HPS::KeyPath const& path)
{
    if (path == Lit) return;
    HPS::HighlightControl lights = View.Canvas().GetWindowKey().GetHighlightControl();
    if (!Lit.Empty()) lights.Unhighlight(Lit, Options);
    Lit = path;
    if (!Lit.Empty()) {
        matchColor();
        lights.Highlight(Lit, Options, false);
    }
    View.Update(MoraCore::UpdateType::Default);
}

void HoverHighlight::Leave()
{
    light({});
    Met.Reset();
}

} // namespace ZelVizBase
