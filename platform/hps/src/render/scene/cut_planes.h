// Planes that cut, as plain numbers.
#pragma once
#include "linear.h"
#include <span>
#include <vector>

namespace HPS::render
{

/// Takes away where `at` is positive, if the other planes of its section agree.
struct CutPlane {
    Vec3 normal; ///< need not have length 1
    double offset = 0;

    double at(Vec3 const& p) const { return dot(normal, p) + offset; }
    friend bool operator==(CutPlane const&, CutPlane const&) = default;
};

/// Takes away the space that lies before all of its planes. One without planes takes nothing.
using CutSection = std::vector<CutPlane>;

/// The plane in coordinates that `matrix` leads out of: a point there lies before it if its image lies before
/// `plane`.
inline CutPlane pulledBack(CutPlane const& plane, Mat4 const& m)
{
    Vec3 const& n = plane.normal;
    return {{m[0] * n.x + m[1] * n.y + m[2] * n.z, m[4] * n.x + m[5] * n.y + m[6] * n.z,
             m[8] * n.x + m[9] * n.y + m[10] * n.z},
            m[12] * n.x + m[13] * n.y + m[14] * n.z + plane.offset};
}
std::vector<CutSection> pulledBack(std::span<CutSection const> sections, Mat4 const& matrix);

/// The plane in the coordinates that `matrix` leads into; `plane` itself if the matrix flattens space.
CutPlane pushedForward(CutPlane const& plane, Mat4 const& matrix);

/// What sections do to a box. `Cut` where they may do either.
enum class CutReach { Whole, Cut, Gone };
CutReach reachOf(std::span<CutSection const> sections, Box const& box);

/// True for a point that no section takes away.
bool isKept(std::span<CutSection const> sections, Vec3 const& point);

} // namespace HPS::render
