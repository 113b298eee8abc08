#pragma once
#include "change_log.h"
#include "net_attributes.h"
#include <span>
#include <vector>

namespace HPS::render
{

/// A segment as it is shown on one path.
using OccurrenceId = std::uint32_t;
inline constexpr OccurrenceId noOccurrence = ~OccurrenceId(0);

/// Told what shows differently.
class OccurrenceListener
{
public:
    /// New, or its contents, what holds there, or its place have changed.
    virtual void show(OccurrenceId id, scene::SegmentRecord const& segment,
                      scene::NetAttributes const& net) = 0;
    /// No longer shown; the id may be used again.
    virtual void hide(OccurrenceId id) = 0;

protected:
    ~OccurrenceListener() = default;
};

/// Everything that hangs below one segment, through children and includes, with what holds at each place.
/// Follows the change marks: what a mark does not reach is neither visited nor told of. An index leads from
/// a segment to its occurrences, so that an edit costs what it touches. Matrices are not kept; they are
/// multiplied again along the way down.
class OccurrenceTree
{
public:
    OccurrenceTree(scene::NetFold& fold, OccurrenceListener& listener) : fold_(fold), listener_(listener) {}

    /// Starts afresh. `above` holds above `top`.
    void make(scene::NetAttributes const& above, scene::SegmentRecord const& top);

    /// Brings the tree from the state of its last `make` or `follow` to the present one. Marks of segments
    /// that are not in the tree do nothing.
    void follow(scene::NetAttributes const& above, std::span<scene::ChangeMark const> marks);

    /// Shows all of it again.
    void refreshAll();

    bool empty() const { return occurrences_.empty(); }
    std::size_t size() const { return used_; }

    scene::SlotIndex segmentOf(OccurrenceId id) const { return occurrences_[id].segment; }
    scene::SlotIndex includeOf(OccurrenceId id) const { return occurrences_[id].include; }
    OccurrenceId parentOf(OccurrenceId id) const { return occurrences_[id].parent; }
    bool hasChildren(OccurrenceId id) const { return occurrences_[id].firstChild != noOccurrence; }
    scene::NetStatePointer const& stateOf(OccurrenceId id) const { return occurrences_[id].state; }
    scene::NetAttributes netOf(OccurrenceId id) const;

    /// Calls visit(id) for all occurrences of a segment.
    template <class Visit> void forEach(scene::SlotIndex segment, Visit const& visit) const
    {
        if (segment >= first_.size()) return;
        for (OccurrenceId id = first_[segment]; id != noOccurrence; id = occurrences_[id].nextSame) visit(id);
    }

    template <class Visit> void forEachChild(OccurrenceId id, Visit const& visit) const
    {
        for (OccurrenceId child = occurrences_[id].firstChild; child != noOccurrence;
             child = occurrences_[child].nextSibling)
            visit(child);
    }

private:
    struct Occurrence {
        scene::NetStatePointer state; ///< null for a free place
        scene::SlotIndex segment = 0;
        scene::SlotIndex include = 0; ///< 0 for a child
        OccurrenceId parent = noOccurrence;
        OccurrenceId firstChild = noOccurrence;
        OccurrenceId nextSibling = noOccurrence;
        OccurrenceId nextSame = noOccurrence, previousSame = noOccurrence; ///< of the same segment
    };
    /// Why an occurrence is looked at.
    struct Visit {
        OccurrenceId id;
        MatrixKit above;
        bool placed;     ///< its matrix may have changed
        bool contents;   ///< geometry came, went or changed
        bool structure;  ///< its children may be others
        bool everything; ///< all below shows again, even where nothing has changed
    };
    OccurrenceId create(OccurrenceId parent, scene::SlotIndex segment, scene::SlotIndex include);
    void remove(OccurrenceId id);
    void visitFrom(Visit first);
    void matchChildren(OccurrenceId id, scene::SegmentRecord const& segment);
    scene::NetStatePointer withoutCamera(scene::NetStatePointer const& state);
    scene::NetStatePointer stateAbove(Occurrence const& occurrence);
    MatrixKit matrixAbove(OccurrenceId id) const;

    scene::NetFold& fold_;
    OccurrenceListener& listener_;
    scene::NetAttributes above_;
    std::vector<Occurrence> occurrences_; ///< the first one is the top
    std::vector<OccurrenceId> free_;
    std::vector<OccurrenceId> first_; ///< by the segments' slots
    std::vector<Visit> open_;         ///< work space
    std::size_t used_ = 0;
    std::uint32_t definitions_ = 0;
};

} // namespace HPS::render
