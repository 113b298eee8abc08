#pragma once
#include <hps/CornerControl.h>
#include <hps/Point.h>
#include <hps/TextAttributeKit.h>
#include <vector>

namespace HPS
{

class WindowKey;

// One of the 26 sides, edges and corners of the navigation cube: -1, 0 or 1 along each axis of the model's
// orientation, not all 0. (0, 0, 1) is the front, (1, 1, 0) the edge between right and top.
struct CubeRegion {
    int right = 0;
    int up = 0;
    int front = 0;
    friend bool operator==(CubeRegion const&, CubeRegion const&) = default;
};

// A cube whose sides bear the names of the directions that they are seen from. Materials of the palette: 0 to
// 5 are the back, top, left, front, bottom and right side, 6 is what the pointer is over, 7 the texts and 8
// the lines between the regions.
class NavigationCubeControl : public detail::CornerOperations<NavigationCubeControl>
{
public:
    explicit NavigationCubeControl(View const& view) : CornerOperations(Kind::NavigationCube, view) {}

    // A size in pixels counts for a side that is 100 pixels wide, and grows and shrinks with the cube. Of the
    // fonts the first one counts; without one the kit's font does.
    NavigationCubeControl& SetText(UTF8 const& back, UTF8 const& top, UTF8 const& left, UTF8 const& front,
                                   UTF8 const& bottom, UTF8 const& right, TextAttributeKit const& attributes,
                                   std::vector<UTF8> const& fonts = {});

    // What a place in the window, from -1 to 1, lies over. False beside the cube, and for a cube that is
    // hidden or not interactive.
    bool FindRegion(WindowKey const& window, Point const& position, CubeRegion& region) const;
    // The view's camera, turned about its target so that it looks at a region from straight in front.
    bool ComputeCamera(CubeRegion const& region, CameraKit& camera) const;

    // Paints a region in material 6, and the one before as it was.
    NavigationCubeControl& Highlight(CubeRegion const& region);
    NavigationCubeControl& Unhighlight() { return Highlight({}); }
};

} // namespace HPS
