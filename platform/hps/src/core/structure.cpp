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
        owner->children.remove(segment.slot);
        invalidateBounds(*owner);
        noteChange(*owner, Change::Structure);
    } else {
        store().roots.remove(segment.slot);
    }
}

void removeInclude(IncludeRecord& include)
{
    if (auto* const target = store().at<SegmentRecord>(include.target))
        target->includers.remove(include.slot);
    if (auto* const owner = store().at<SegmentRecord>(include.owner)) {
        owner->includes.remove(include.slot);
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
        if (auto* const target = all.at<SegmentRecord>(include.target)) target->includers.remove(slot);
        all.release(include);
    }
    while (!segment.includers.empty()) removeInclude(*all.at<IncludeRecord>(segment.includers.back()));
    while (!segment.geometry.empty()) {
        auto& geometry = *all.at<GeometryRecord>(segment.geometry.back());
        segment.geometry.pop_back();
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
        owner->children.push_back(segment.slot);
        indexName(*owner, segment);
        noteChange(*owner, Change::Structure);
    } else {
        store().roots.push_back(segment.slot);
    }
    return segment;
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
    owner.children.push_back(segment.slot);
    indexName(owner, segment);
    invalidateBounds(owner);
    noteChange(owner, Change::Structure);
    return true;
}

bool standsBelow(SegmentRecord const& segment, SegmentRecord const& top)
{
    if (segment.slot == top.slot) return true;
    if (top.children.empty() && top.includes.empty()) return false;
    std::vector<SegmentRecord const*> open{&segment};
    std::unordered_set<SlotIndex> seen;
    while (!open.empty()) {
        auto const& current = *open.back();
        open.pop_back();
        bool found = false;
        forEachAbove(current, [&](SegmentRecord const& above) {
            found = found || above.slot == top.slot;
            // Only what several ways lead to can be met twice.
            if ((above.includers.empty() && above.owner == 0) || !seen.insert(above.slot).second) return;
            open.push_back(&above);
        });
        if (found) return true;
    }
    return false;
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
    owner.includes.push_back(include.slot);
    target.includers.push_back(include.slot);
    invalidateBounds(owner);
    noteChange(owner, Change::Structure);
    return include;
}

std::string freeName(SegmentRecord const& owner, std::string const& name)
{
    if (!findChild(owner, name)) return name;
    for (std::size_t number = 2;; ++number) {
        auto numbered = name + " (" + std::to_string(number) + ')';
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
        to.children.push_back(slot);
        indexName(to, child);
    }
    for (auto const slot : std::exchange(from.includes, {})) {
        all.at<IncludeRecord>(slot)->owner = to.slot;
        to.includes.push_back(slot);
    }
    for (auto const slot : std::exchange(from.geometry, {})) {
        all.at<GeometryRecord>(slot)->owner = to.slot;
        to.geometry.push_back(slot);
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
        owner.geometry.remove(record.slot);
        invalidateBounds(owner);
        noteChange(owner, Change::Structure);
        releaseGeometry(*geometry);
    } else if (auto* const style = all.at<StyleRecord>(record.slot)) {
        auto& owner = *all.at<SegmentRecord>(style->owner);
        owner.extras->styles.remove(record.slot);
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
    // The last ones first: their includes then stand at the end of the lists they leave.
    for (auto i = children.size(); i-- > 0;) dissolveTree(*store().at<SegmentRecord>(children[i]));
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
