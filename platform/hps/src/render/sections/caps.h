// What a cut shows: the faces that close a cut body, and the lines around them.
#pragma once
#include "CapFiller.h"

namespace HPS::render
{

/// The cap on one plane.
struct Cap {
    Vec3 normal;                 ///< of length 1, away from what is kept
    std::vector<Vec3> triangles; ///< three corners each, counter-clockwise seen from where the normal leads
};

struct Caps {
    std::vector<Cap> faces;  ///< none of them empty
    std::vector<Vec3> edges; ///< two ends each; of open meshes too, which get no faces
    bool empty() const { return faces.empty() && edges.empty(); }
};

/// Planes in the coordinates of the mesh. A section shows only where it is not itself within another.
/// Costs what the planes meet, not what the mesh holds.
Caps makeCaps(CutMesh const& mesh, std::span<CutSection const> sections, CapFiller& filler);

} // namespace HPS::render
