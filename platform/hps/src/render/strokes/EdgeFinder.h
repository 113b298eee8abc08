#pragma once
#include <cstdint>
#include <hps/ShellKit.h>
#include <vector>

namespace HPS::render
{

/// Classes of edges; one edge may belong to several.
enum EdgeKind : std::uint32_t {
    PlainEdge = 1,       ///< every one
    AdjacentEdge = 2,    ///< of two faces
    PerimeterEdge = 4,   ///< of one face alone
    HardEdge = 8,        ///< of two faces that meet at more than the hard angle
    QuadEdge = 16,       ///< of a face of four corners in a mesh of rows and columns
    SilhouetteEdge = 32, ///< seen where one face is turned to the viewer and the other away
    NonCulledEdge = 64,  ///< seen where a face of it is turned to the viewer
};

struct FoundEdge {
    std::uint32_t from, to; ///< points
    std::uint32_t kinds;    ///< those wanted that it belongs to
    Vector normals[2];      ///< of its faces, length 1; the second repeats the first at a perimeter
};

/// The edges of a shell that belong to a wanted kind, each once. Points of equal coordinates are one point:
/// faces that share no index may meet all the same. Faces that are made invisible have no edges. Angles in
/// degrees. Linear time but for one sort.
std::vector<FoundEdge> findEdges(ShellData const& shell, std::uint32_t wanted, double hardAngle,
                                 bool rowsAndColumns = false);

} // namespace HPS::render
