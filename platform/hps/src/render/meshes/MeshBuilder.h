#pragma once
#include "EdgeFinder.h"
#include "MeshStore.h"
#include "OutlineFiller.h"
#include "Triangulator.h"
#include "closed_mesh.h"
#include "contours.h"
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
    std::uint32_t kinds = 0; ///< `EdgeKind`s
    float hardAngle = 30;    ///< degrees
    bool any() const { return kinds != 0; }
    bool operator==(EdgeChoice const&) const = default;
};

/// Triangles that follow each other in a mesh and have one source of material.
struct FaceGroup {
    std::uint32_t firstIndex, indexCount; ///< counted from the mesh's own first
    std::optional<float> paletteIndex;    ///< of the faces themselves
    std::shared_ptr<PolyhedronExtras const>
        mapping; ///< holds what goes before the segment's; null: nothing does
};
/// Where glyphs stand along chains.
enum class ChainPlace : std::uint8_t { Start, End, Corner };

/// Gathers geometry into the vertices of one mesh. Buffers are kept from one mesh to the next.
class MeshBuilder
{
public:
    /// With `parameters`, faces are gathered with what they say of textures.
    void clear(bool parameters = false);

    /// `plain` leaves out the colours that the shell brings itself.
    void addShellFaces(ShellData const& shell, bool plain);
    /// Faces of four corners are the cells of a mesh if `cells` is set. Edges that show from some sides only,
    /// or have a colour, go to the view edges, the rest to the lines; both are filled by one call.
    void addShellEdges(ShellData const& shell, EdgeChoice const& choice, bool cells, bool plain);
    /// The same edges as chains of one piece each, for lines with a pattern.
    void addEdgeStrokes(ShellData const& shell, EdgeChoice const& choice, bool cells);
    void addShellVertices(ShellData const& shell, bool plain);
    void addLine(std::span<Point const> points);
    void addMarker(Point const& point);
    void addMarker(Point const& point, RGBAColor const& colour);
    /// A drawing at a place, in halves of a marker's size; turned to `toward` unless that is the place
    /// itself.
    void addGlyph(FlatMesh const& drawing, Point const& place, Point const& toward);
    void addGlyphs(FlatMesh const& drawing, std::span<Point const> chain, ChainPlace where);
    StrokeChains& strokes() { return strokes_; }
    void addContours(ShellData const& shell, ContourLineData const& contours, std::uint32_t wrap);
    /// Lines of one number alone, of those that `addContours` found.
    void chooseContours(std::uint32_t number);

    // Empty meshes where nothing was added. They need the device's context to be current.
    Mesh uploadFaces() const { return MeshStore::instance().addFaces(vertices_, indices_); }
    /// Gives parameters to the mesh that the same faces made before.
    void uploadParameters(Mesh& mesh);
    Mesh uploadLines() const { return MeshStore::instance().addLines(segments_); }
    Mesh uploadMarkers() const { return MeshStore::instance().addMarkers(points_); }
    Mesh uploadViewEdges() const { return MeshStore::instance().addViewEdges(viewEdges_); }
    Mesh uploadGlyphs() const { return MeshStore::instance().addGlyphs(glyphCorners_, indices_); }
    /// Numbers the pieces.
    Mesh uploadStrokes();

    /// That the mesh has so far; it holds one kind of primitive.
    std::uint32_t indexCount() const
    {
        return std::uint32_t(indices_.size() + 6 * (segments_.size() + points_.size() + viewEdges_.size() +
                                                    strokes_.pieces.size()));
    }

    /// In the order of their indices; faces of no group follow what the segment says.
    std::vector<FaceGroup> const& groups() const { return groups_; }
    /// True if vertices name materials of the palette.
    bool indexed() const { return indexed_; }
    /// True if every vertex has parameters.
    bool parametersComplete() const;
    bool hasViewEdges() const { return !viewEdges_.empty(); }
    std::span<FaceVertex const> vertices() const { return vertices_; }
    std::span<std::uint32_t const> indices() const { return indices_; }

    /// True if a face brings a colour that is not opaque.
    bool translucent() const { return translucent_; }
    /// True if the faces bound volumes and are turned outwards.
    bool closed() const { return boundsVolumes(vertices_, indices_); }

private:
    FaceVertex vertexOf(ShellData const& shell, std::uint32_t corner, bool plain);
    void putColour(FaceVertex& vertex, RGBAColor const& colour);
    void putParameters(ShellData const& shell, std::uint32_t corner);
    std::vector<std::uint32_t> triangleOrder(ShellData const& shell, bool plain) const;
    void closeGroup(std::uint32_t first, std::optional<float> index, ShellData const& shell);
    void putColour(std::uint8_t (&out)[4], RGBAColor const& colour);
    void addTriangle(std::array<std::uint32_t, 3> const& corners, ShellData const& shell, bool plain,
                     RGBAColor const* colour, std::uint32_t shared);
    Vec3 positionOf(ShellData const& shell, std::uint32_t corner) const;
    void addSegment(Point const& from, Point const& to);
    void addAllEdges(ShellData const& shell);

    Triangulator triangulator_;
    std::vector<FaceVertex> vertices_;
    std::vector<std::uint32_t> indices_;
    std::vector<LineSegment> segments_;
    std::vector<MarkerVertex> points_;
    std::vector<VertexParameters> parameters_; ///< of the first vertices, if wanted
    std::vector<FaceGroup> groups_;
    bool translucent_ = false, indexed_ = false, wantsParameters_ = false;
    std::vector<ViewEdge> viewEdges_;
    std::vector<GlyphVertex> glyphCorners_;
    StrokeChains strokes_;
    std::vector<ContourPiece> contours_;
    std::vector<std::uint64_t> edges_; ///< work space
};

} // namespace HPS::render
