#pragma once
#include "MeshStore.h"
#include <span>

namespace HPS::render
{

/// True if the triangles bound one or more volumes without a gap and run counter-clockwise seen from outside,
/// so that from outside no back face is ever seen. Points are the same if their coordinates are. False where
/// a part of the mesh is a hollow in another: that would need a look at what lies in what.
///
/// An edge is shut if triangles run along it as often one way as the other. Instead of keeping all edges, a
/// number made of the two ends is added for one way and taken away for the other; of an open mesh the sum is
/// zero by a chance of 1 in 2^64. Volumes are sums of tetrahedra over one point, by connected part. Takes
/// linear time.
bool boundsVolumes(std::span<FaceVertex const> vertices, std::span<std::uint32_t const> indices);

} // namespace HPS::render
