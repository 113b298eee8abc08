#pragma once
#include "CutMesh.h"

namespace HPS::render
{

/// Where a plane runs through a mesh: chains of points on the plane.
struct Outline {
    struct Chain {
        std::uint32_t first, count; ///< in `points`
        bool loop;                  ///< its end meets its start
        bool solid;                 ///< goes round material: part of what bounds a volume
    };
    std::vector<Vec3> points;
    std::vector<Chain> chains;
    bool oriented = true;  ///< the solid loops all have the material on one side
    bool touching = false; ///< corners or faces of the mesh lie in the plane

    bool anySolid() const;
};

/// What lies in the plane counts as kept or as taken away, as `touchingKept` says; so the outline is that a
/// little before or a little behind the plane, and never runs along a face that lies in it.
Outline outlineOf(CutMesh const& mesh, CutPlane const& plane, bool touchingKept);

/// Distance from the plane, in its values, up to which a point of the mesh counts as lying in it.
double marginOf(CutMesh const& mesh, CutPlane const& plane);

} // namespace HPS::render
