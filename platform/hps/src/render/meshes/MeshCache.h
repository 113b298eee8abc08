#pragma once
#include "MeshBuilder.h"
#include "change_log.h"
#include "segment_record.h"
#include <memory>
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

    /// What a segment holds by itself.
    struct Content {
        bool faces = false, chains = false, markers = false;
        std::vector<scene::SlotIndex> scenery; ///< what is no mesh but acts on those: lights, sections
        bool empty() const { return !faces && !chains && !markers && scenery.empty(); }
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
        bool closed = false;             ///< faces that bound a volume, see `boundsVolumes`
    };

    /// Reads the change marks. Call it once before a compile.
    void refresh();

    /// Valid until the next `refresh`, as all of these are.
    Content const& content(scene::SegmentRecord const& segment) { return entry(segment).content; }
    Drawable const& faces(scene::SegmentRecord const& segment, bool plain);
    /// What `faces` gives, with the parameters that textures need where the geometry has any.
    Drawable const& withParameters(scene::SegmentRecord const& segment, bool plain);
    Drawable const& edges(scene::SegmentRecord const& segment, EdgeChoice const& choice);
    Drawable const& lines(scene::SegmentRecord const& segment);
    Drawable const& markers(scene::SegmentRecord const& segment);
    Drawable const& vertices(scene::SegmentRecord const& segment);

    /// Since the process began.
    std::uint32_t uploads() const { return uploads_; }
    double uploadMilliseconds() const { return uploadMilliseconds_; }

private:
    /// Which mesh of a segment; edges have one for each choice.
    enum Kind : std::uint8_t { Faces, PlainFaces, Lines, Markers, Vertices, FirstEdges };
    struct Entry {
        std::uint32_t generation = 0;
        Content content;
        std::vector<std::pair<std::uint8_t, std::unique_ptr<Drawable>>> drawables;
    };
    MeshCache() = default;
    Entry& entry(scene::SegmentRecord const& segment);
    template <class Gather>
    Drawable& find(scene::SegmentRecord const& segment, std::uint8_t kind, Gather gather);
    template <class Record, class Add> void gather(scene::SegmentRecord const& segment, Add const& add);
    void gatherFaces(scene::SegmentRecord const& segment, bool plain);
    void drop(scene::SlotIndex slot);

    scene::ChangeCursor cursor_;
    std::vector<scene::ChangeMark> marks_;        ///< work space
    std::vector<std::unique_ptr<Entry>> entries_; ///< by the segments' slots; null until drawn
    MeshBuilder builder_;
    std::vector<Part> parts_; ///< of what is gathered in the builder
    std::uint32_t uploads_ = 0;
    double uploadMilliseconds_ = 0;
};

} // namespace HPS::render
