#include "extents.h"
#include "references.h"
#include "user_data.h"
#include <unordered_set>

namespace HPS::scene
{

void releaseGeometry(GeometryRecord& geometry)
{
    auto const slot = geometry.slot;
    setTarget(slot, 0);
    store().release(geometry);
    noteTarget(slot);
}

namespace
{

std::string_view nameOf(SlotIndex segment)
{
    return store().at<SegmentRecord>(segment)->name;
}

void append(SlotList& list, OwnedRecord& record)
{
    record.place = list.push_back(record.slot);
}

// `place` is where the records of the list keep the place that they have in it.
template <class R> void takeOut(SlotList& list, R const& record, SlotList::Place R::*place = &R::place)
{
    list.remove(record.slot, record.*place,
                [&](SlotIndex slot) -> SlotList::Place& { return store().at<R>(slot)->*place; });
}

void takeOutOfTarget(IncludeRecord const& include)
{
    if (auto* const target = store().at<SegmentRecord>(include.target))
        takeOut(target->includers, include, &IncludeRecord::placeInTarget);
}

void forEachBelow(SegmentRecord const& segment, auto&& f)
{
    for (auto const slot : segment.children) f(*store().at<SegmentRecord>(slot));
    for (auto const slot : segment.includes)
        f(*store().at<SegmentRecord>(store().at<IncludeRecord>(slot)->target));
}

// One of two searches of the segments' graph that look for each other's start: up from a segment, or down
// from one.
class Search
{
public:
    Search(SegmentRecord const& from, SegmentRecord const& wanted) : open_{&from}, wanted_(wanted) {}
    bool found() const { return found_; }
    bool done() const { return found_ || open_.empty(); }
    SegmentRecord const& next() const { return *open_.back(); }
    std::size_t work() const { return work_; } // links followed
    void step(auto&& forEachNext)
    {
        auto const& current = *open_.back();
        open_.pop_back();
        forEachNext(current, [&](SegmentRecord const& reached) {
            ++work_;
            found_ = found_ || &reached == &wanted_;
            if (seen_.insert(reached.slot).second) open_.push_back(&reached);
        });
    }

private:
    std::vector<SegmentRecord const*> open_;
    std::unordered_set<SlotIndex> seen_;
    SegmentRecord const& wanted_;
    std::size_t work_ = 0;
    bool found_ = false;
};

void indexName(SegmentRecord& owner, SegmentRecord const& child)
{
    if (child.name.empty()) return;
    if (owner.extras && !owner.extras->childrenByName.empty()) {
        owner.extras->childrenByName.insert(child.slot, nameOf);
    } else if (owner.children.size() > SegmentRecord::indexedFrom) {
        for (auto const slot : owner.children)
            if (!nameOf(slot).empty()) owner.rare().childrenByName.insert(slot, nameOf);
    }
}

void unindexName(SegmentRecord& owner, SegmentRecord const& child)
{
    if (!child.name.empty() && owner.extras) owner.extras->childrenByName.erase(child.slot, nameOf);
}

void detach(SegmentRecord& segment)
{
    if (auto* const owner = store().at<SegmentRecord>(segment.owner)) {
        unindexName(*owner, segment);
        takeOut(owner->children, segment);
        invalidateBounds(*owner);
        noteChange(*owner, Change::Structure);
    } else {
        takeOut(store().roots, segment);
    }
}

void removeInclude(IncludeRecord& include)
{
    takeOutOfTarget(include);
    if (auto* const owner = store().at<SegmentRecord>(include.owner)) {
        takeOut(owner->includes, include);
        invalidateBounds(*owner);
        noteChange(*owner, Change::Structure);
    }
    store().release(include);
}

// Releases what one segment holds, its children excepted, and the segment.
void dissolve(SegmentRecord& segment)
{
    auto& all = store();
    for (auto const slot : segment.includes) {
        auto& include = *all.at<IncludeRecord>(slot);
        takeOutOfTarget(include);
        all.release(include);
    }
    while (!segment.includers.empty()) removeInclude(*all.at<IncludeRecord>(segment.includers.back()));
    while (!segment.geometry.empty()) {
        auto& geometry = *all.at<GeometryRecord>(segment.geometry.back());
        takeOut(segment.geometry, geometry);
        releaseGeometry(geometry);
    }
    if (segment.extras)
        for (auto const slot : segment.extras->styles) all.release(*all.at<StyleRecord>(slot));
    if (segment.isStyleSource) ++all.definitionStamp;
    all.release(segment);
}

// Deletes children before their owners, however deep they stand.
void dissolveTree(SegmentRecord& top)
{
    std::vector<SlotIndex> order{top.slot};
    for (std::size_t i = 0; i < order.size(); ++i)
        for (auto const child : store().at<SegmentRecord>(order[i])->children) order.push_back(child);
    while (!order.empty()) {
        dissolve(*store().at<SegmentRecord>(order.back()));
        order.pop_back();
    }
}

} // namespace

SegmentRecord& createSegment(SegmentRecord* owner, std::string_view name, HPS::Type type)
{
    SegmentRecord& segment = isOfType(type, WindowRecord::family) ? store().create<WindowRecord>(type)
                                                                  : store().create<SegmentRecord>(type);
    segment.name = name;
    segment.boundsKnown = true; // it is empty
    if (owner) {
        segment.owner = owner->slot;
        append(owner->children, segment);
        indexName(*owner, segment);
        noteChange(*owner, Change::Structure);
    } else {
        append(store().roots, segment);
    }
    return segment;
}

SegmentRecord& createHiddenRoot()
{
    auto& segment = createSegment(nullptr, {});
    takeOut(store().roots, segment);
    return segment;
}

void showRoot(SegmentRecord& root)
{
    append(store().roots, root);
}

SegmentRecord* findChild(SegmentRecord const& owner, std::string_view name)
{
    if (name.empty()) return nullptr;
    if (owner.extras && !owner.extras->childrenByName.empty()) {
        return store().at<SegmentRecord>(owner.extras->childrenByName.find(name, nameOf));
    }
    for (auto const slot : owner.children)
        if (auto* const child = store().at<SegmentRecord>(slot); child->name == name) return child;
    return nullptr;
}

bool rename(SegmentRecord& segment, std::string_view name)
{
    if (segment.name == name) return true;
    auto* const owner = store().at<SegmentRecord>(segment.owner);
    if (owner && findChild(*owner, name)) return false;
    if (owner) unindexName(*owner, segment);
    segment.name = name;
    if (owner) indexName(*owner, segment);
    noteChange(segment, Change::Name);
    return true;
}

bool moveTo(SegmentRecord& segment, SegmentRecord& owner)
{
    if (segment.owner == owner.slot) return true;
    if (standsBelow(owner, segment) || findChild(owner, segment.name)) return false;
    detach(segment);
    segment.owner = owner.slot;
    append(owner.children, segment);
    indexName(owner, segment);
    invalidateBounds(owner);
    noteChange(owner, Change::Structure);
    return true;
}

bool standsBelow(SegmentRecord const& segment, SegmentRecord const& top)
{
    if (segment.slot == top.slot) return true;
    if (top.children.empty() && top.includes.empty()) return false;
    // From both ends, so that it takes no longer than twice the shorter way: a segment stands below few
    // others in most scenes, and in a deep one what is included is small.
    Search up(segment, top);
    Search down(top, segment);
    while (!up.done() && !down.done()) {
        auto const workUp = up.work() + up.next().includers.size() + 1;
        auto const workDown = down.work() + down.next().children.size() + down.next().includes.size();
        if (workUp <= workDown)
            up.step([](auto const& at, auto&& f) { forEachAbove(at, f); });
        else
            down.step([](auto const& at, auto&& f) { forEachBelow(at, f); });
    }
    return up.found() || down.found();
}

IncludeRecord* createInclude(SegmentRecord& owner, SegmentRecord& target)
{
    return standsBelow(owner, target) ? nullptr : &addInclude(owner, target);
}

IncludeRecord& addInclude(SegmentRecord& owner, SegmentRecord& target)
{
    auto& include = store().create<IncludeRecord>(HPS::Type::IncludeKey);
    include.owner = owner.slot;
    include.target = target.slot;
    append(owner.includes, include);
    include.placeInTarget = target.includers.push_back(include.slot);
    invalidateBounds(owner);
    noteChange(owner, Change::Structure);
    return include;
}

std::string freeName(SegmentRecord const& owner, std::string_view name)
{
    std::string const wanted(name);
    if (!findChild(owner, wanted)) return wanted;
    for (std::size_t number = 2;; ++number) {
        auto numbered = wanted + " (" + std::to_string(number) + ')';
        if (!findChild(owner, numbered)) return numbered;
    }
}

void moveContents(SegmentRecord& from, SegmentRecord& to)
{
    auto& all = store();
    for (auto const slot : std::exchange(from.children, {})) {
        auto& child = *all.at<SegmentRecord>(slot);
        child.name = freeName(to, child.name);
        child.owner = to.slot;
        append(to.children, child);
        indexName(to, child);
    }
    for (auto const slot : std::exchange(from.includes, {})) {
        auto& include = *all.at<IncludeRecord>(slot);
        include.owner = to.slot;
        append(to.includes, include);
    }
    for (auto const slot : std::exchange(from.geometry, {})) {
        auto& geometry = *all.at<GeometryRecord>(slot);
        geometry.owner = to.slot;
        append(to.geometry, geometry);
    }
    if (from.extras) {
        from.extras->childrenByName.clear();
        for (auto const slot : std::exchange(from.extras->styles, {})) {
            all.at<StyleRecord>(slot)->owner = to.slot;
            to.rare().styles.push_back(slot);
        }
    }
    for (auto* const segment : {&from, &to}) {
        invalidateBounds(*segment);
        noteChange(*segment, Change::Structure | Change::Styles);
    }
}

void remove(Record& record)
{
    auto& all = store();
    if (auto* const segment = all.at<SegmentRecord>(record.slot)) {
        detach(*segment);
        dissolveTree(*segment);
    } else if (auto* const include = all.at<IncludeRecord>(record.slot)) {
        removeInclude(*include);
    } else if (auto* const geometry = all.at<GeometryRecord>(record.slot)) {
        auto& owner = *all.at<SegmentRecord>(geometry->owner);
        takeOut(owner.geometry, *geometry);
        invalidateBounds(owner);
        noteChange(owner, Change::Structure);
        releaseGeometry(*geometry);
    } else if (auto* const style = all.at<StyleRecord>(record.slot)) {
        auto& owner = *all.at<SegmentRecord>(style->owner);
        std::erase(owner.extras->styles, record.slot);
        noteChange(owner, Change::Styles);
        all.release(record);
    } else {
        noteDefinitions(record);
        all.release(record);
    }
}

void removeChildren(SegmentRecord& segment)
{
    if (segment.children.empty()) return;
    auto const children = std::move(segment.children);
    segment.children = {};
    if (segment.extras) segment.extras->childrenByName.clear();
    for (auto const slot : children) dissolveTree(*store().at<SegmentRecord>(slot));
    invalidateBounds(segment);
    noteChange(segment, Change::Structure);
}

void removeIncludes(SegmentRecord& segment)
{
    while (!segment.includes.empty()) removeInclude(*store().at<IncludeRecord>(segment.includes.back()));
}

void removeAllGeometry(SegmentRecord& segment)
{
    removeGeometry(segment, [](GeometryRecord const&) { return true; });
}

void noteChange(SegmentRecord& segment, Change changes)
{
    auto& all = store();
    if (has(changes, Change::Attributes | Change::Conditions | Change::Styles | Change::Portfolio)) {
        segment.attributeStamp = all.nextStamp();
        if (segment.isStyleSource) ++all.definitionStamp;
    }
    all.changes.mark(segment.slot, changes);
}

void noteDefinitions(Record& portfolio)
{
    ++store().definitionStamp;
    store().changes.mark(portfolio.slot, Change::Portfolio);
}

void invalidateBounds(SegmentRecord& segment)
{
    if (!segment.boundsKnown) return;
    segment.boundsKnown = false;
    std::vector<SegmentRecord*> open{&segment};
    while (!open.empty()) {
        auto const& current = *open.back();
        open.pop_back();
        forEachAbove(current, [&](SegmentRecord& above) {
            // Where an extent is not known, none above is.
            if (!above.boundsKnown) return;
            above.boundsKnown = false;
            open.push_back(&above);
        });
    }
}

void invalidateBoundsAbove(SegmentRecord const& segment)
{
    forEachAbove(segment, [](SegmentRecord& above) { invalidateBounds(above); });
}

} // namespace HPS::scene
