#pragma once

#include <narmeta/infra/ZELReference.h>

#include <unordered_map>

namespace NarMetaInfra
{
/// What a face of a mesh carries beside its triangles; each aspect may be absent.
struct FaceSurface {
    std::shared_ptr<NarMetaVisu::Material> material;
    std::vector<float> textureCoordinates; ///< u, v per point of the face
};
using FaceSurfaces = std::unordered_map<Id, FaceSurface>;

/// Makes a graphical reference: its bodies, but for hidden ones, become visualisation nodes under the group
/// of its PID, and it keeps no body. A reference with nothing to show stays without visualisation data.
void makeGraphical(ZELReference& reference, std::vector<BrepBody> bodies, FaceSurfaces const& surfaces = {});
} // namespace NarMetaInfra
