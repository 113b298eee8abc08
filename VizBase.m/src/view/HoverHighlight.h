#pragma once

#include "host_api.h"
#include "hps_api.h"

namespace ZelVizBase
{

class ViewSelection;
class ZELView3D;

/// Lights up what lies under the mouse, in a colour between that of highlights and white. A move costs one
/// pick, and a change of the one highlight where something else was met; what is selected stays as it is.
class HoverHighlight
{
public:
    /// Neither is owned; both must outlive this.
    HoverHighlight(ZELView3D& view, ViewSelection const& selection);
    ~HoverHighlight();

    /// What a place of the window shows.
    MoraCore::PointedAt Follow(HPS::WindowPoint const& place);
    void Leave();
    /// The highlight is gone already.
    void Forget() { Lit.Reset(); }

private:
    void light(HPS::KeyPath const& path);
    void matchColor();

    ZELView3D& View;
    ViewSelection const& Selection;
    HPS::HighlightOptionsKit Options;
    HPS::PortfolioKey Portfolio; ///< on the view's segment, with the one style
    HPS::SegmentKey Style;
    HPS::RGBAColor Color;
    HPS::KeyPath Met; ///< last time
    HPS::KeyPath Lit; ///< empty: nothing is
    ZELVizCore::RenderId Node;
};

} // namespace ZelVizBase
