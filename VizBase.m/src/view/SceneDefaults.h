#pragma once

#include "host_api.h"
#include "hps_api.h"

namespace ZelVizBase
{

/// What every view of a scene starts with, whether a widget or a picture without a window shows it: light,
/// background, attributes, and the named styles through which the segments of a model get colours and
/// visibility. A change of the rendering options rewrites the sources of four styles, whatever the size of
/// the model.
namespace SceneDefaults
{

inline constexpr char const* HighlightStyle = "highlight_style";
inline constexpr char const* DefaultStyle = "default_style"; ///< bodies and meshes
inline constexpr char const* PmiStyle = "pmi_style";
inline constexpr char const* DrawingStyle = "drawing_style";

/// Bytes of 0 to 255 as channels of 0 to 1.
HPS::RGBAColor ToHps(ZELVizCore::RGBAColor const& color);

/// A gradient from the upper to the lower end of the window.
struct Background {
    HPS::RGBAColor Top;
    HPS::RGBAColor Bottom;

    static Background Of(ZELVizCore::Settings const& settings);
};

/// One white distant light at half strength that moves with the camera, in the segment of the view.
HPS::DistantLightKey InsertLight(HPS::SegmentKey segment);
void SetBackground(HPS::WindowKey& window, Background const& background);
void SetHandedness(HPS::WindowKey& window);
/// Markers, shadow maps, visibility, transparency, culling and line weights.
void SetViewAttributes(HPS::SegmentKey& view, ZELVizCore::RenderingOptions const& options);
/// What the options let be seen.
HPS::VisibilityKit Visibility(ZELVizCore::RenderingOptions const& options);
/// Faces, lines and markers can be picked, edges and vertices cannot.
HPS::SelectabilityKit Selectability();

/// Axis triad, shown, and navigation cube, shown and taking the mouse, in colours of their own from two
/// palettes in `portfolio`. The cube's highlight and line colours stay as the options have them now.
void SetTriadAndCube(HPS::View const& view, HPS::PortfolioKey& portfolio,
                     ZELVizCore::RenderingOptions const& options);

/// A new portfolio on top of those of the view's segment.
HPS::PortfolioKey PushPortfolio(HPS::SegmentKey& view);
/// Defines the eight named styles.
void DefineStyles(HPS::PortfolioKey& portfolio, ZELVizCore::RenderingOptions const& options);
/// Deletes the portfolio and the sources of its styles.
void RemovePortfolio(HPS::PortfolioKey& portfolio);
/// Brings the colours of the styles in line with the options; nothing happens to a style that is not defined.
void UpdateStyles(HPS::PortfolioKey& portfolio, ZELVizCore::RenderingOptions const& options);

/// All of the above for a new view on a canvas, with the colours of the default settings behind it.
struct Scene {
    HPS::DistantLightKey Light;
    HPS::PortfolioKey Portfolio;
};
Scene Setup(HPS::Canvas& canvas, HPS::View& view, ZELVizCore::RenderingOptions const& options);

} // namespace SceneDefaults

} // namespace ZelVizBase
