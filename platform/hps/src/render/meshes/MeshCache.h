#pragma once
#include "MeshBuilder.h"
#include "change_log.h"
#include "drawn_shapes.h"
#include "segment_record.h"
#include <memory>
#include <unordered_map>
#include <vector>

namespace HPS::render
{

/// The uploaded meshes of segments: all geometry of one kind in one segment is one mesh, whatever number of
/// shells it consists of, made when first drawn and shared by all that show the segment. Change marks throw
/// it away. Needs the device's context to be current.
class MeshCache
{
public:
    static MeshCache& instance();

    /// What a segment holds by itself, references counted as what they show.
    struct Content {
        bool faces = false, chains = false, markers = false, endless = false;
        bool curved = false;     ///< meshes depend on the fineness
        bool references = false; ///< shows what stands elsewhere
        std::vector<scene::SlotIndex> texts;
        std::vector<scene::SlotIndex> scenery; ///< what is no mesh but acts on those: lights, sections
        bool drawable() const { return faces || chains || markers || endless || !texts.empty(); }
        bool empty() const { return !drawable() && scenery.empty(); }
    };
    /// The indices that one piece of geometry has in a mesh.
    struct Part {
        scene::SlotIndex geometry;
        std::uint32_t firstIndex; ///< counted from the mesh's own first
        std::uint32_t indexCount;
    };
    struct Drawable {
        Mesh mesh;
        std::vector<Part> parts;         ///< in the order of their indices; those without any are left out
        std::vector<FaceGroup> groups;   ///< faces with a source of material of their own
        bool indexed = false;            ///< vertices name materials of the palette
        bool parametersKnown = false;    ///< see `withParameters`
        bool parametersComplete = false; ///< every vertex has some
        bool translucent = false;        ///< by colours of its own
        bool viewEdges = false;          ///< edges: there are such besides
        bool closed = false;             ///< faces that bound a volume, see `boundsVolumes`
        std::shared_ptr<StrokeChains const> chains; ///< of strokes, to be measured on the screen
    };

    /// Reads the change marks. Call it once before a compile.
    void refresh();

    /// Adds to marks of change one for each reference to what they tell of.
    void markReferences(std::vector<scene::ChangeMark>& marks) const;

    /// Valid until the next `refresh`, as all of these are.
    Content const& content(scene::SegmentRecord const& segment) { return entry(segment).content; }
    Drawable const& faces(scene::SegmentRecord const& segment, bool plain, Fineness const& fineness);
    /// What `faces` gives, with the parameters that textures need where the geometry has any.
    Drawable const& withParameters(scene::SegmentRecord const& segment, bool plain, Fineness const& fineness);
    Drawable const& edges(scene::SegmentRecord const& segment, EdgeChoice const& choice, bool plain,
                          Fineness const& fineness);
    /// Of the same choice those that show from some sides only or have colours.
    Drawable const& viewEdges(scene::SegmentRecord const& segment, EdgeChoice const& choice, bool plain,
                              Fineness const& fineness);
    Drawable const& edgeStrokes(scene::SegmentRecord const& segment, EdgeChoice const& choice,
                                Fineness const& fineness);
    Drawable const& lines(scene::SegmentRecord const& segment, Fineness const& fineness);
    Drawable const& lineStrokes(scene::SegmentRecord const& segment, Fineness const& fineness);
    /// Lines and rays without end.
    Drawable const& endlessStrokes(scene::SegmentRecord const& segment);
    /// Drawings at ends or corners of lines.
    Drawable const& lineGlyphs(scene::SegmentRecord const& segment, GlyphKit const& glyph, ChainPlace where,
                               Fineness const& fineness);
    /// The faces as triangles for the processor; valid until anything else is asked for.
    struct Triangles {
        std::span<FaceVertex const> vertices;
        std::span<std::uint32_t const> indices;
        std::span<Part const> parts;
    };
    Triangles triangles(scene::SegmentRecord const& segment, Fineness const& fineness);
    /// Differs from that of every other state of every segment.
    std::uint64_t version(scene::SegmentRecord const& segment) { return entry(segment).version; }
    /// Of a fineness, as far as it matters to a segment.
    std::uint32_t numberOf(scene::SegmentRecord const& segment, Fineness const& fineness);
    Drawable const& markers(scene::SegmentRecord const& segment);
    Drawable const& vertices(scene::SegmentRecord const& segment, bool plain, Fineness const& fineness);
    /// Markers, or vertices, as drawings. Degrees.
    Drawable const& glyphMarkers(scene::SegmentRecord const& segment, GlyphKit const& glyph, float rotation);
    Drawable const& glyphVertices(scene::SegmentRecord const& segment, GlyphKit const& glyph, float rotation,
                                  Fineness const& fineness);
    Drawable const& contours(scene::SegmentRecord const& segment, ContourLineData const& contours,
                             std::uint32_t wrap, std::uint32_t number, Fineness const& fineness);

    /// Since the process began.
    std::uint32_t uploads() const { return uploads_; }
    double uploadMilliseconds() const { return uploadMilliseconds_; }

private:
    template <class T> friend T& ofContext();
    /// Which mesh of a segment, together with the numbers of what it depends on.
    enum class Kind : std::uint8_t {
        Faces,
        PlainFaces,
        Edges,
        ViewEdges,
        EdgeStrokes,
        Lines,
        LineStrokes,
        EndlessStrokes,
        LineGlyphs,
        Markers,
        Vertices,
        GlyphMarkers,
        GlyphVertices,
        Contours
    };
    struct MeshKey {
        Kind kind;
        std::uint32_t fineness = 0;
        std::uint32_t variant = 0;
        std::uint32_t second = 0;
        bool operator==(MeshKey const&) const = default;
    };
    /// Values that meshes depend on, by small numbers. Few.
    template <class T> class Numbers
    {
    public:
        std::uint32_t of(T const& value)
        {
            for (std::uint32_t i = 0; i < known_.size(); ++i)
                if (known_[i] == value) return i;
            known_.push_back(value);
            return std::uint32_t(known_.size() - 1);
        }

    private:
        std::vector<T> known_;
    };
    struct Entry {
        std::uint32_t generation = 0;
        std::uint64_t version = 0;
        Content content;
        std::vector<std::pair<MeshKey, std::unique_ptr<Drawable>>> drawables;
    };
    MeshCache() { MeshStore::instance(); } // it goes later, for the meshes to be given back
    Entry& entry(scene::SegmentRecord const& segment);
    template <class Gather> Drawable& find(scene::SegmentRecord const& segment, MeshKey key, Gather gather);
    /// Calls add(shown) for each geometry of the segment.
    template <class Add> void gather(scene::SegmentRecord const& segment, Add const& add);
    /// Calls add(shell, cells) for each geometry that has faces.
    template <class Add>
    void gatherFaces(scene::SegmentRecord const& segment, Fineness const& fineness, Add const& add);
    template <class Add>
    void gatherChains(scene::SegmentRecord const& segment, Fineness const& fineness, Add const& add);
    template <class Add> void gatherMarkers(scene::SegmentRecord const& segment, Add const& add);
    Mesh uploadStrokes();
    void drop(scene::SlotIndex slot);
    void noteReferences(scene::SegmentRecord const& segment);

    scene::ChangeCursor cursor_;
    std::vector<scene::ChangeMark> marks_;        ///< work space
    std::vector<std::unique_ptr<Entry>> entries_; ///< by the segments' slots; null until drawn
    MeshBuilder builder_;
    ShellData shell_;                            ///< work space
    std::shared_ptr<StrokeChains const> chains_; ///< of what is gathered
    Numbers<Fineness> finenesses_;
    Numbers<EdgeChoice> choices_;
    Numbers<std::pair<GlyphKit, float>> glyphs_;
    Numbers<ContourLineData> contours_;
    /// By what they show; some of the past too.
    std::unordered_map<scene::SlotIndex, std::vector<scene::SlotIndex>> references_;
    std::vector<Part> parts_; ///< of what is gathered in the builder
    std::uint32_t uploads_ = 0;
    double uploadMilliseconds_ = 0;
};

} // namespace HPS::render
