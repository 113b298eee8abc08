#pragma once
#include "DrawList.h"
#include "FaceLook.h"
#include "Look.h"
#include "MeshCache.h"
#include "OccurrenceTree.h"
#include "SectionCompiler.h"
#include "SegmentDrawer.h"
#include "highlight_targets.h"
#include "net_attributes.h"
#include "read_scene.h"
#include <hps/SubwindowKit.h>
#include <map>
#include <set>
#include <span>
#include <unordered_map>

namespace HPS::render
{

/// A segment that is a window of its own within the view.
struct Subwindow {
    OccurrenceId id, within; ///< `within` is the subwindow around it, or none
    SubwindowData data;
    bool shown = true;
    std::int16_t order = 0; ///< drawn later the higher it is
    DrawList list;
    Scene scene;
};

/// Turns what a view shows into a draw list, and keeps it up to date from the change marks: a camera that
/// moves costs nothing, an edit costs what it touches. Meshes are kept.
class SceneCompiler final : private OccurrenceListener
{
public:
    struct Result {
        bool changed = false;            ///< a new picture would differ
        bool onlyHighlight = false;      ///< in its highlights alone
        bool listMade = false;           ///< from scratch
        std::uint32_t shownSegments = 0; ///< occurrences whose records were looked at
        std::uint32_t uploadedMeshes = 0;
        double uploadMilliseconds = 0;
    };

    /// `path` leads from the window down to the view's segment; includes may stand in it. Needs the device's
    /// context to be current.
    Result update(std::span<KeyIndex const> path, bool fromScratch, FaceStyle style = FaceStyle::Smooth);

    DrawList const& list() const { return list_; }
    OccurrenceTree const& occurrences() const { return tree_; }
    /// Net states kept, of the past too.
    std::size_t stateCount() const { return fold_.stateCount(); }

    /// In the order of drawing.
    std::vector<Subwindow const*> subwindows() const;

    /// What the segments say; quality and whether there is a background are the caller's.
    Scene const& scene() const { return scene_; }

private:
    /// What a net state comes to.
    struct Held {
        scene::NetStatePointer state; ///< keeps the address in the key from being used again
        Look look;
        FaceLooks faces;
        FaceSide cap; ///< where sections cut
        Placing placing;
    };
    void show(OccurrenceId id, scene::SegmentRecord const& segment, scene::NetAttributes const& net) override;
    void hide(OccurrenceId id) override;

    bool noteSubwindow(OccurrenceId id, scene::SegmentRecord const& segment);
    Subwindow* subwindowAround(OccurrenceId id);
    void readSubwindows();
    void makeList(scene::NetAttributes const& above, scene::SegmentRecord const& view);
    Held& heldFor(scene::NetStatePointer const& state);
    void sweepHeld();
    void makeHighlight();
    void highlightBelow(OccurrenceId top, HighlightTargets const& targets);
    void highlight(OccurrenceId id, MatrixKit const& matrix, std::span<std::uint32_t const> numbers,
                   scene::SlotIndex geometry);
    SectionCompiler::Scope const& enterScope(OccurrenceId id, scene::SegmentRecord const& segment,
                                             scene::NetAttributes const& net, bool isSubwindow);
    void readScene(SceneSources const& sources);
    void readAllScenery();
    void readScenery(scene::SlotIndex slot, scene::NetAttributes const& net);

    scene::NetFold fold_;
    scene::ChangeCursor cursor_;
    std::vector<scene::ChangeMark> marks_; ///< work space
    std::vector<KeyIndex> path_;           ///< as of the last update
    OccurrenceTree tree_{fold_, *this};
    std::unordered_map<scene::NetState const*, Held> held_;
    std::size_t heldLimit_ = 0;      ///< a sweep is worth it from here on
    std::uint32_t definitions_ = 0;  ///< stamp that `held_` was made under
    std::set<OccurrenceId> scenery_; ///< that hold lights, sections and the like
    bool sceneryStale_ = false;
    std::uint32_t shown_ = 0;
    bool made_ = false;
    bool outlined_ = false; ///< faces are not seen themselves
    DrawList list_, highlight_;
    std::map<OccurrenceId, Subwindow> subwindows_;
    bool making_ = false;    ///< from scratch
    bool startOver_ = false; ///< what was drawn in one window belongs into another
    TextCompiler texts_;
    SectionCompiler sections_;
    std::vector<SectionCompiler::Scope> scopes_; ///< by occurrence
    Scene scene_;
};

} // namespace HPS::render
