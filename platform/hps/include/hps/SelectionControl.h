#pragma once
#include <hps/Cuboid.h>
#include <hps/Plane.h>
#include <hps/Rectangle.h>
#include <hps/SelectionOptionsKit.h>
#include <hps/SelectionResults.h>

namespace HPS
{

// Finds what a window shows at a place. No picture is needed for it. Options that a kit does not set are
// those of the window, or else the default ones.
//
// Found is what is selectable and seen, as net attributes say: visibility, cutting sections, culling. What is
// selectable by force is found even where it is not visible. Faces are found where they are; lines, edges,
// markers and vertices also as far beside as the options' proximity, and half of what they are drawn wide.
//
// All results replace what `results` held; the number of them is returned. Nothing is found in a window that
// is gone.
class SelectionControl
{
public:
    explicit SelectionControl(Key const& window) : window_(window) {}

    // Window space: -1 to 1 from left to right and from bottom to top.
    std::size_t SelectByPoint(Point const& place, SelectionOptionsKit const& options,
                              SelectionResults& results) const;
    std::size_t SelectByPoint(Point const& place, SelectionResults& results) const
    {
        return SelectByPoint(place, SelectionOptionsKit(), results);
    }
    // What reaches into a part of the window; its sides may be given in either order.
    std::size_t SelectByArea(Rectangle const& area, SelectionOptionsKit const& options,
                             SelectionResults& results) const;
    std::size_t SelectByArea(Rectangle const& area, SelectionResults& results) const
    {
        return SelectByArea(area, SelectionOptionsKit(), results);
    }
    // What a ray in the world meets. Proximity counts in pixels as the window shows its target.
    std::size_t SelectByRay(Point const& origin, Vector const& direction, SelectionOptionsKit const& options,
                            SelectionResults& results) const;
    // What reaches into a box in the world.
    std::size_t SelectByVolume(SimpleCuboid const& box, SelectionOptionsKit const& options,
                               SelectionResults& results) const;
    // What reaches into the space behind all of the planes: where a x + b y + c z + d is nowhere positive.
    std::size_t SelectByVolume(std::vector<Plane> const& planes, SelectionOptionsKit const& options,
                               SelectionResults& results) const;

private:
    Key window_;
};

} // namespace HPS
