#pragma once
#include "DrawList.h"
#include "FaceLook.h"
#include "Look.h"
#include "MeshCache.h"
#include "net_attributes.h"
#include "read_scene.h"
#include <span>
#include <unordered_map>

namespace HPS::render
{

/// Turns what a view shows into a draw list, and keeps it up to date from the change marks: a camera that
/// moves costs nothing, any other change makes the list anew from meshes that are kept.
class SceneCompiler
{
public:
    struct Result {
        bool changed = false; ///< a new picture would differ
        bool listMade = false;
        std::uint32_t uploadedMeshes = 0;
        double uploadMilliseconds = 0;
    };

    /// `path` leads from the window down to the view's segment; includes may stand in it. Needs the device's
    /// context to be current.
    Result update(std::span<KeyIndex const> path, bool fromScratch);

    DrawList const& list() const { return list_; }

    /// What the segments say; quality, face style and whether there is a background are the caller's.
    Scene const& scene() const { return scene_; }

private:
    /// A segment of the path, as it was when the list was made.
    struct Place {
        scene::SlotIndex slot;
        std::vector<scene::KitPointer> kits;
        friend bool operator==(Place const&, Place const&) = default;
    };
    struct Held {
        scene::NetStatePointer state; ///< keeps the address in the key from being used again
        Look look;
        FaceLooks faces;
    };
    bool stillHolds(std::vector<Place> const& places, bool fromScratch);
    void makeList(scene::NetAttributes const& above, scene::SegmentRecord const& view);
    Held& heldFor(scene::NetStatePointer const& state);
    void draw(scene::SegmentRecord const& segment, Held& held, Mat4 const& matrix);
    void addFaces(scene::SegmentRecord const& segment, Held& held, Mat4 const& matrix);
    void add(MeshCache::Drawable const& drawable, Primitive primitive, Look::Stroke const& stroke,
             Mat4 const& matrix);
    void readScene(SceneSources const& sources);
    void readScenery(scene::SlotIndex slot, scene::NetAttributes const& net);

    scene::NetFold fold_;
    scene::ChangeCursor cursor_;
    std::vector<scene::ChangeMark> marks_; ///< work space
    std::vector<Place> places_;
    std::unordered_map<scene::NetState const*, Held> looks_; ///< of the list being made
    bool made_ = false;
    DrawList list_;
    Scene scene_;
};

} // namespace HPS::render
