// What a window shows at a place, found the long way: every triangle, every piece of every line and every
// point is brought to the screen and looked at.
#pragma once
#include "ViewFrame.h"
#include "net_attributes.h"
#include <hps/KeyPath.h>
#include <set>

namespace HPS
{

class Exhaustive
{
public:
    Exhaustive(KeyPath const& toView, CameraKit const& camera, int width, int height);

    /// Pixels from the upper left corner.
    struct Square {
        double left, top, right, bottom;
        Square grown(double by) const { return {left - by, top - by, right + by, bottom + by}; }
    };
    struct Answer {
        std::set<KeyArray> certain;  ///< paths of geometries in the square
        std::set<KeyArray> possible; ///< and of those that rounding may bring in
    };
    Answer in(Square const& square) const;
    /// The face that is nearest under a pixel, and all those that rounding may bring before it.
    Answer nearestAt(double x, double y) const;

    std::size_t primitiveCount() const { return primitives_.size(); }

private:
    struct Corner {
        double x, y, height; ///< window space: lines stay lines
    };
    struct Primitive {
        std::size_t path;
        std::array<Corner, 8> corners; ///< one, two, or those of a convex polygon
        std::size_t count;
        Square extent;
    };
    struct Visit;
    void walk(Visit const& visit);
    void addGeometry(scene::GeometryRecord const& geometry, Visit const& visit);
    void add(std::vector<Point> const& corners, Visit const& visit, std::size_t path);
    static std::optional<double> heightAt(Primitive const& primitive, double x, double y, double slack);
    static bool meets(Primitive const& primitive, Square const& square);

    scene::ViewFrame frame_;
    scene::NetFold fold_;
    int width_, height_;
    std::vector<KeyArray> paths_;
    std::vector<Primitive> primitives_;
};

} // namespace HPS
