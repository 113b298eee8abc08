// The small windows in the corners of a view: axis triad and navigation cube.
#pragma once
#include "linear.h"
#include <array>
#include <hps/CameraKit.h>
#include <hps/NavigationCubeControl.h>
#include <hps/PortfolioKey.h>
#include <hps/SegmentKey.h>
#include <optional>

namespace HPS
{

struct ViewRecord;

struct CornerRecord {
    SegmentKey segment;     ///< below the view's; empty until first asked for
    SegmentKey contents;    ///< below `segment`
    PortfolioKey portfolio; ///< ours, with the built-in palette
    Corner::Location location = Corner::Location::BottomLeft;
    Rectangle position; ///< where the location is Custom
    float size = 0.1f;
    bool visible = false, interactive = false;
    bool ownPalette = true; ///< the built-in one
    Vector back, up;        ///< of the camera that is set

    /// From -1 to 1 in the view's window.
    Rectangle place() const;
};

/// Where the sides of the cube are in the world; of length 1.
struct CubeAxes {
    render::Vec3 right, up, front;
    friend bool operator==(CubeAxes const&, CubeAxes const&) = default;
};

struct CornerRecords {
    CornerRecord triad;
    CornerRecord cube;
    std::array<UTF8, 6> labels{"Back", "Top", "Left", "Front", "Bottom", "Right"};
    TextAttributeKit text; ///< of the labels, as the user gave it
    CubeRegion highlighted;
    std::optional<CubeAxes> axes; ///< as last set on the cube

    CornerRecords();
};

/// Those of the model that the view shows.
CubeAxes cubeAxes(ViewRecord const& view);

/// Turns what is in the corners the way that the view's camera looks. Writes nothing if it did not turn.
void followCamera(ViewRecord& view);

/// Puts what the record says on its segment, which is made if it is not there.
void showCorner(ViewRecord& view, CornerRecord& corner);

/// Extent of the camera in a corner, in the units of what is shown there.
inline constexpr float triadField = 3.0f, cubeField = 3.3f;

} // namespace HPS
