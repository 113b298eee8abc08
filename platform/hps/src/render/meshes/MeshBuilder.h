#pragma once
#include "MeshStore.h"
#include "Triangulator.h"
#include "closed_mesh.h"
#include <hps/LineKit.h>
#include <hps/MaterialMappingKit.h>
#include <hps/ShellKit.h>
#include <memory>
#include <optional>
#include <vector>

namespace HPS::render
{

/// Which edges of a shell are drawn.
struct EdgeChoice {
    bool all = false;
    bool perimeter = false; ///< of one face alone
    bool hard = false;      ///< between faces that meet at more than 30 degrees
    bool any() const { return all || perimeter || hard; }
};

/// Triangles that follow each other in a mesh and have one source of material.
struct FaceGroup {
    std::uint32_t firstIndex, indexCount; ///< counted from the mesh's own first
    std::optional<float> paletteIndex;    ///< of the faces themselves
    std::shared_ptr<PolyhedronExtras const>
        mapping; ///< holds what goes before the segment's; null: nothing does
};

/// Gathers geometry into the vertices of one mesh. Buffers are kept from one mesh to the next.
class MeshBuilder
{
public:
    /// With `parameters`, faces are gathered with what they say of textures.
    void clear(bool parameters = false);

    /// `plain` leaves out the colours that the shell brings itself.
    void addShellFaces(ShellData const& shell, bool plain);
    void addShellEdges(ShellData const& shell, EdgeChoice const& choice);
    void addShellVertices(ShellData const& shell);
    void addLine(PointChain const& chain);
    void addPolygonFace(PointChain const& chain);
    void addPolygonEdge(PointChain const& chain);
    void addMarker(Point const& point);

    // Empty meshes where nothing was added. They need the device's context to be current.
    Mesh uploadFaces() const { return MeshStore::instance().addFaces(vertices_, indices_); }
    /// Gives parameters to the mesh that the same faces made before.
    void uploadParameters(Mesh& mesh);
    Mesh uploadLines() const { return MeshStore::instance().addLines(segments_); }
    Mesh uploadMarkers() const { return MeshStore::instance().addMarkers(points_); }

    /// That the mesh has so far; it holds one kind of primitive.
    std::uint32_t indexCount() const
    {
        return std::uint32_t(indices_.size() + 6 * (segments_.size() + points_.size()));
    }

    /// In the order of their indices; faces of no group follow what the segment says.
    std::vector<FaceGroup> const& groups() const { return groups_; }
    /// True if vertices name materials of the palette.
    bool indexed() const { return indexed_; }
    /// True if every vertex has parameters.
    bool parametersComplete() const;
    /// True if a face brings a colour that is not opaque.
    bool translucent() const { return translucent_; }
    /// True if the faces bound volumes and are turned outwards.
    bool closed() const { return boundsVolumes(vertices_, indices_); }

private:
    struct Edge {
        std::uint32_t from, to, face;
    };
    FaceVertex vertexOf(ShellData const& shell, std::uint32_t corner, bool plain);
    void putColour(FaceVertex& vertex, RGBAColor const& colour);
    void putParameters(ShellData const& shell, std::uint32_t corner);
    std::vector<std::uint32_t> triangleOrder(ShellData const& shell, bool plain) const;
    void closeGroup(std::uint32_t first, std::optional<float> index, ShellData const& shell);
    void addTriangle(std::array<std::uint32_t, 3> const& corners, ShellData const& shell, bool plain,
                     RGBAColor const* colour, std::uint32_t shared);
    Vec3 positionOf(ShellData const& shell, std::uint32_t corner) const;
    void addSegment(Point const& from, Point const& to);
    std::vector<Vec3> faceNormals(ShellData const& shell, std::size_t faces) const;

    Triangulator triangulator_;
    std::vector<FaceVertex> vertices_;
    std::vector<std::uint32_t> indices_;
    std::vector<LineSegment> segments_;
    std::vector<MarkerVertex> points_;
    std::vector<VertexParameters> parameters_; ///< of the first vertices, if wanted
    std::vector<FaceGroup> groups_;
    bool translucent_ = false, indexed_ = false, wantsParameters_ = false;
    std::vector<Edge> edges_; ///< work space
    ShellData polygon_;       ///< work space
};

} // namespace HPS::render
