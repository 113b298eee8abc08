#include "OccurrenceTree.h"
#include <algorithm>
#include <unordered_map>

namespace HPS::render
{

using namespace scene;

namespace
{

constexpr Change ofState = Change::Attributes | Change::Conditions | Change::Styles | Change::Portfolio;

/// What hangs below a segment, in the order in which it is drawn.
template <class F> void forEachPart(SegmentRecord const& segment, F const& use)
{
    for (SlotIndex slot : segment.children) use(slot, SlotIndex(0));
    for (SlotIndex slot : segment.includes) use(store().at<IncludeRecord>(slot)->target, slot);
}

} // namespace

void OccurrenceTree::make(NetAttributes const& above, SegmentRecord const& top)
{
    occurrences_.clear();
    free_.clear();
    first_.assign(store().slotCount(), noOccurrence);
    used_ = 0;
    above_ = {withoutCamera(above.state), above.matrix};
    definitions_ = store().definitionStamp;
    create(noOccurrence, top.slot, 0);
    visitFrom({0, above.matrix, true, true, true, false});
}

void OccurrenceTree::refreshAll()
{
    if (!empty()) visitFrom({0, above_.matrix, false, false, false, true});
}

void OccurrenceTree::follow(NetAttributes const& given, std::span<ChangeMark const> marks)
{
    NetAttributes const above{withoutCamera(given.state), given.matrix};
    if (first_.size() < store().slotCount()) first_.resize(store().slotCount(), noOccurrence);
    // What is gone goes first, for its slot may already be another's.
    for (ChangeMark const& mark : marks)
        if (has(mark.changes, Change::Removed))
            while (mark.slot < first_.size() && first_[mark.slot] != noOccurrence) remove(first_[mark.slot]);
    if (empty() || occurrences_[0].state == nullptr) return;

    bool const moved = !(above.matrix == above_.matrix);
    bool const redefined = definitions_ != store().definitionStamp;
    bool const otherwise = above.state != above_.state;
    above_ = above;
    definitions_ = store().definitionStamp;
    if (moved || redefined || otherwise) visitFrom({0, above_.matrix, moved, false, false, redefined});

    for (ChangeMark const& mark : marks) {
        SlotIndex slot = mark.slot;
        Visit visit{0,
                    {},
                    has(mark.changes, Change::Matrix),
                    has(mark.changes, Change::Structure),
                    has(mark.changes, Change::Structure),
                    false};
        if (has(mark.changes, Change::Geometry))
            if (auto const* const geometry = store().at<GeometryRecord>(slot)) {
                slot = geometry->owner;
                visit.contents = true;
            }
        // Some kits matter to the segment alone and are in no net state.
        visit.contents = visit.contents || has(mark.changes, Change::Attributes);
        if (!has(mark.changes, ofState) && !visit.placed && !visit.contents) continue;
        // A visit may only make or unmake occurrences of what lies below, which is never the segment itself.
        for (OccurrenceId id = slot < first_.size() ? first_[slot] : noOccurrence; id != noOccurrence;
             id = occurrences_[id].nextSame) {
            visit.id = id;
            visit.above = matrixAbove(id);
            visitFrom(visit);
        }
    }
}

OccurrenceId OccurrenceTree::create(OccurrenceId parent, SlotIndex segment, SlotIndex include)
{
    OccurrenceId id = OccurrenceId(occurrences_.size());
    if (free_.empty()) {
        occurrences_.emplace_back();
    } else {
        id = free_.back();
        free_.pop_back();
    }
    Occurrence& made = occurrences_[id];
    made = {};
    made.segment = segment;
    made.include = include;
    made.parent = parent;
    if (segment >= first_.size()) first_.resize(store().slotCount(), noOccurrence);
    made.nextSame = first_[segment];
    if (made.nextSame != noOccurrence) occurrences_[made.nextSame].previousSame = id;
    first_[segment] = id;
    ++used_;
    return id;
}

void OccurrenceTree::remove(OccurrenceId top)
{
    if (OccurrenceId const parent = occurrences_[top].parent; parent != noOccurrence) {
        OccurrenceId* link = &occurrences_[parent].firstChild;
        while (*link != top) link = &occurrences_[*link].nextSibling;
        *link = occurrences_[top].nextSibling;
    }
    std::vector<OccurrenceId> gone{top};
    for (std::size_t i = 0; i < gone.size(); ++i)
        forEachChild(gone[i], [&](OccurrenceId child) { gone.push_back(child); });
    for (OccurrenceId id : gone) {
        Occurrence& o = occurrences_[id];
        if (o.nextSame != noOccurrence) occurrences_[o.nextSame].previousSame = o.previousSame;
        if (o.previousSame != noOccurrence)
            occurrences_[o.previousSame].nextSame = o.nextSame;
        else
            first_[o.segment] = o.nextSame;
        listener_.hide(id);
        o = {};
        free_.push_back(id);
        --used_;
    }
}

// Nothing is drawn otherwise for another camera, so that one that moves leaves all states as they are.
NetStatePointer OccurrenceTree::withoutCamera(NetStatePointer const& state)
{
    return state->block(KitKind::Camera) == nullptr ? state : fold_.without(state, KitKind::Camera);
}

NetStatePointer OccurrenceTree::stateAbove(Occurrence const& occurrence)
{
    NetStatePointer const& state =
        occurrence.parent == noOccurrence ? above_.state : occurrences_[occurrence.parent].state;
    auto const* const include =
        occurrence.include != 0 ? store().at<IncludeRecord>(occurrence.include) : nullptr;
    return include != nullptr ? fold_.through({state, {}}, *include).state : state;
}

MatrixKit OccurrenceTree::matrixAbove(OccurrenceId id) const
{
    std::vector<MatrixKit const*> way;
    for (id = occurrences_[id].parent; id != noOccurrence; id = occurrences_[id].parent)
        if (auto const& matrix = store().at<SegmentRecord>(occurrences_[id].segment)->matrix)
            way.push_back(&*matrix);
    // Multiplied in the order of a walk from the top, for the same rounding.
    MatrixKit product = above_.matrix;
    for (auto step = way.rbegin(); step != way.rend(); ++step) product = **step * product;
    return product;
}

NetAttributes OccurrenceTree::netOf(OccurrenceId id) const
{
    MatrixKit const above = matrixAbove(id);
    auto const& matrix = store().at<SegmentRecord>(occurrences_[id].segment)->matrix;
    return {occurrences_[id].state, matrix ? *matrix * above : above};
}

void OccurrenceTree::visitFrom(Visit first)
{
    open_.push_back(first);
    while (!open_.empty()) {
        Visit const visit = open_.back();
        open_.pop_back();
        auto const* const segment = store().at<SegmentRecord>(occurrences_[visit.id].segment);
        if (segment == nullptr) continue; // removed below the top by a mark that is yet to come
        NetStatePointer state = withoutCamera(fold_.state(stateAbove(occurrences_[visit.id]), *segment));
        bool const changed = state != occurrences_[visit.id].state;
        occurrences_[visit.id].state = std::move(state);
        if (visit.structure) matchChildren(visit.id, *segment);

        MatrixKit const matrix = segment->matrix ? *segment->matrix * visit.above : visit.above;
        if (changed || visit.placed || visit.contents || visit.everything)
            listener_.show(visit.id, *segment, {occurrences_[visit.id].state, matrix});
        if (!changed && !visit.placed && !visit.structure && !visit.everything) continue;
        auto const firstOpen = std::ptrdiff_t(open_.size());
        for (OccurrenceId child = occurrences_[visit.id].firstChild; child != noOccurrence;
             child = occurrences_[child].nextSibling) {
            bool const isNew = occurrences_[child].state == nullptr;
            open_.push_back({child, matrix, visit.placed || isNew, isNew, isNew, visit.everything});
        }
        std::reverse(open_.begin() + firstOpen, open_.end());
    }
}

// Keeps what is still there, so that one more child among thousands costs no more than a look at each.
void OccurrenceTree::matchChildren(OccurrenceId id, SegmentRecord const& segment)
{
    std::unordered_map<std::uint64_t, OccurrenceId> before;
    for (OccurrenceId child = occurrences_[id].firstChild; child != noOccurrence;
         child = occurrences_[child].nextSibling)
        before.emplace(std::uint64_t(occurrences_[child].include) << 32 | occurrences_[child].segment, child);
    std::vector<OccurrenceId> now;
    forEachPart(segment, [&](SlotIndex part, SlotIndex include) {
        if (store().at<SegmentRecord>(part) == nullptr) return;
        auto const found = before.empty() ? before.end() : before.find(std::uint64_t(include) << 32 | part);
        if (found == before.end()) {
            now.push_back(create(id, part, include));
        } else {
            now.push_back(found->second);
            before.erase(found);
        }
    });
    for (auto const& [key, child] : before) {
        occurrences_[child].parent = noOccurrence; // is linked nowhere any more once the rest is
        remove(child);
    }
    OccurrenceId next = noOccurrence;
    for (auto child = now.rbegin(); child != now.rend(); ++child) {
        occurrences_[*child].nextSibling = next;
        next = *child;
    }
    occurrences_[id].firstChild = next;
}

} // namespace HPS::render
