#pragma once
#include "CapFiller.h"
#include "CutMeshCache.h"
#include "DrawList.h"
#include "FaceLook.h"
#include "Look.h"
#include "Sections.h"
#include "net_attributes.h"
#include <map>
#include <memory>

namespace HPS::render
{

/// How caps look where a net state holds. Needs the device's context to be current.
FaceSide capSide(scene::NetState const& state);

/// Finds the cutting sections of a scene while its list is made, and closes what they cut. When a section
/// moves, no list is made anew: only the caps of what it meets are.
class SectionCompiler
{
public:
    /// A number that the caller gives each showing of a segment.
    using Place = std::uint32_t;

    /// What holds below a segment; it comes from its owner, and starts from nothing.
    struct Scope {
        std::uint32_t set = 0;  ///< of sections, in force for all below
        std::uint32_t tree = 0; ///< of bodies that are closed together, 0 for none
        std::uint32_t own = 0;  ///< of sections, in force for the segment itself
    };

    /// All places are entered anew.
    void begin();

    /// All places have been entered.
    void settle() { stale_ = false; }

    /// A place that is new or has changed, its owner before it. What was said of it is forgotten.
    Scope enter(Place place, scene::SegmentRecord const& segment, std::span<scene::SlotIndex const> scenery,
                scene::NetAttributes const& net, Scope const& owner);

    /// That the place has faces, which are in reach of sections. `local` is around them.
    void addBody(Place place, scene::SegmentRecord const& segment, Look const& look, FaceSide const& side,
                 Box const& local, Mat4 const& matrix, Scope const& scope);

    /// The place is no longer shown.
    void leave(Place place);

    /// Sections came or went, so that the scopes of what is below are others: all has to be entered anew.
    bool stale() const { return stale_; }

    /// True for a section that is in force somewhere.
    bool holds(scene::SlotIndex slot) const;

    /// Works out planes and caps as the sections stand now. `bounds` are around what they cut. Needs the
    /// device's context to be current.
    void finish(Box const& bounds);

    /// As of the last `finish`.
    Sections const& sections() const { return sections_; }

private:
    struct Placed {
        scene::SlotIndex slot;
        Place place;
        Mat4 matrix; ///< to the world
    };
    struct Part {
        scene::SlotIndex segment;
        Mat4 matrix; ///< to the world
        Box world;
        Scope scope;
        Look::Cut look;
        Fineness fineness;
        FaceSide side;
        std::int16_t displacement;
    };
    /// What is closed by caps: one segment, or all of a tree.
    struct Body {
        std::vector<CutMeshCache::Member> members;
        Box world;
        Mat4 matrix; ///< of the body to the world
        std::uint32_t set;
        Look::Cut look;
        Fineness fineness;
        FaceSide side;
        std::int16_t displacement;
    };
    struct CapMesh {
        struct Face {
            Vec3 normal; ///< in the body's coordinates
            Mesh mesh;
        };
        std::vector<Face> faces;
        Mesh edges;
        bool used = true;
    };
    std::uint32_t intern(std::vector<std::uint32_t> const& set);
    std::vector<std::uint32_t> place(Place place, std::span<scene::SlotIndex const> scenery,
                                     Mat4 const& matrix);
    void readPlanes();
    void gatherBodies();
    void close(Body const& body);
    CapMesh const& capMesh(CutMesh const& mesh, std::uint64_t serial, std::vector<CutSection> const& local);
    void addFace(CapMesh::Face const& face, Body const& body);
    void addEdges(Mesh const& mesh, Body const& body);
    void showPlanes(Box const& bounds);

    std::vector<Placed> placed_;
    std::map<std::vector<std::uint32_t>, std::uint32_t> setNumbers_;
    std::map<Place, Part> parts_;
    std::map<std::uint32_t, Mat4> trees_; ///< their matrices to the world; the number is the place's plus 1
    bool stale_ = false, partsChanged_ = true;
    std::vector<Body> bodies_;
    std::map<std::vector<double>, CapMesh> capMeshes_;
    std::vector<Mesh> indicators_; ///< of the planes themselves
    CapFiller filler_;
    double tile_ = 1; ///< size in the world of one repeat of a texture on caps
    Sections sections_;
    DrawList caps_;
};

} // namespace HPS::render
