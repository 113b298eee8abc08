#include "SegmentIndex.h"
#include "affine.h"
#include "drawn_shapes.h"
#include "extents.h"
#include "geometry_records.h"
#include "stored_kit.h"
#include <hps/SubwindowKit.h>

namespace HPS::selection
{

using namespace scene;

namespace
{

constexpr std::size_t fewParts = 6;

Box boxAround(SimpleCuboid const& cuboid)
{
    Box box;
    if (!cuboid.IsValid()) return box;
    box.add(cuboid.min.x, cuboid.min.y, cuboid.min.z);
    box.add(cuboid.max.x, cuboid.max.y, cuboid.max.z);
    return box;
}

bool isWindow(SegmentRecord const& segment)
{
    return valuesOf<SubwindowData>(segment.kit(KitKind::Subwindow)).subwindow.has_value();
}

bool mayDrawOtherwise(SegmentRecord const& segment)
{
    bool const byStyles = segment.extras && !segment.extras->styles.empty();
    return byStyles || segment.kit(KitKind::LineAttribute) != nullptr ||
           segment.kit(KitKind::EdgeAttribute) != nullptr ||
           segment.kit(KitKind::MarkerAttribute) != nullptr ||
           segment.kit(KitKind::DrawingAttribute) != nullptr;
}

std::uint8_t contentOfGeometry(GeometryRecord const& geometry)
{
    auto const* const shown = render::shownBy(geometry).geometry;
    if (shown == nullptr) return 0;
    if (shown->type == Type::InfiniteLineKey || shown->type == Type::TextKey) return HasBoundless;
    auto const as = render::drawnAs(shown->type);
    return std::uint8_t((as.faces ? HasFaces : 0) | (as.chains ? HasLines : 0) |
                        (as.markers ? HasMarkers : 0));
}

/// The segment that a child is, or that an include shows.
SegmentRecord const* segmentOf(SlotIndex part)
{
    if (auto const* const include = store().at<IncludeRecord>(part))
        return store().at<SegmentRecord>(include->target);
    return store().at<SegmentRecord>(part);
}

template <class F> void forEachSegment(SegmentRecord const& segment, F const& use)
{
    for (SlotIndex const slot : segment.children)
        if (auto const* const part = segmentOf(slot)) use(slot, *part);
    for (SlotIndex const slot : segment.includes)
        if (auto const* const part = segmentOf(slot)) use(slot, *part);
}

} // namespace

SegmentIndex::Entry& SegmentIndex::entry(SlotIndex segment)
{
    if (segment >= entries_.size()) entries_.resize(store().slotCount());
    auto& place = entries_[segment];
    if (place == nullptr) place = std::make_unique<Entry>();
    return *place;
}

SegmentIndex::Entry const& SegmentIndex::of(SegmentRecord const& segment)
{
    // Parts before the whole, with a stack of our own: scenes may be deeper than the thread's.
    std::vector<SegmentRecord const*> open;
    if (!entry(segment.slot).known) open.push_back(&segment);
    while (!open.empty()) {
        SegmentRecord const& current = *open.back();
        if (entry(current.slot).known) {
            open.pop_back();
            continue;
        }
        auto const before = open.size();
        forEachSegment(current, [&](SlotIndex, SegmentRecord const& part) {
            if (!entry(part.slot).known) open.push_back(&part);
        });
        if (open.size() != before) continue;
        open.pop_back();
        compute(current, entry(current.slot));
    }
    return entry(segment.slot);
}

Box SegmentIndex::boxOf(SlotIndex part) const
{
    if (auto const* const geometry = store().at<GeometryRecord>(part))
        return loosened(boxAround(scene::boxOf(*geometry)));
    auto const* const segment = segmentOf(part);
    if (segment == nullptr) return {};
    Box const& bounds = entries_[segment->slot]->bounds;
    return segment->matrix ? loosened(render::transformed(bounds, wide(*segment->matrix))) : bounds;
}

std::uint8_t SegmentIndex::contentOf(SlotIndex part) const
{
    if (auto const* const geometry = store().at<GeometryRecord>(part)) return contentOfGeometry(*geometry);
    auto const* const segment = segmentOf(part);
    if (segment == nullptr) return 0;
    Entry const& entry = *entries_[segment->slot];
    if (entry.window) return HasBoundless;
    // What a filter holds back of an include takes its default again.
    bool const otherwise = entry.drawsOtherwise || store().filterOf(part) != nullptr;
    return std::uint8_t(entry.content | (otherwise && entry.content != 0 ? DrawsOtherwise : 0));
}

void SegmentIndex::compute(SegmentRecord const& segment, Entry& entry)
{
    std::vector<SlotIndex> bounded, boundless;
    entry.content = 0;
    entry.sections = false;
    entry.window = isWindow(segment);
    entry.drawsOtherwise = mayDrawOtherwise(segment);
    auto add = [&](SlotIndex part, std::uint8_t content) {
        if (content == 0) return;
        entry.content |= content;
        ((content & HasBoundless) != 0 ? boundless : bounded).push_back(part);
    };
    for (SlotIndex const slot : segment.geometry) {
        auto const& geometry = *store().at<GeometryRecord>(slot);
        entry.sections = entry.sections || geometry.type == Type::CuttingSectionKey;
        add(slot, contentOfGeometry(geometry));
    }
    forEachSegment(segment, [&](SlotIndex slot, SegmentRecord const&) { add(slot, contentOf(slot)); });

    entry.bounded = std::uint32_t(bounded.size());
    bool const same = bounded.size() <= entry.parts.size() &&
                      std::equal(bounded.begin(), bounded.end(), entry.parts.begin());
    bounded.insert(bounded.end(), boundless.begin(), boundless.end());
    entry.parts = std::move(bounded);
    entry.parts.shrink_to_fit();
    auto boxOfPart = [&](std::uint32_t i) { return boxOf(entry.parts[i]); };
    entry.bounds = {};
    if (entry.bounded > fewParts) {
        if (same && entry.tree && entry.tree->size() == entry.bounded) {
            entry.tree->refit(boxOfPart);
        } else {
            entry.tree = std::make_unique<BoxTree>();
            entry.tree->build(entry.bounded, boxOfPart);
        }
        entry.bounds = entry.tree->bounds();
    } else {
        entry.tree.reset();
        for (std::uint32_t i = 0; i < entry.bounded; ++i) entry.bounds.add(boxOfPart(i));
    }
    // What is boundless may have bounded things beside it.
    for (std::size_t i = entry.bounded; i < entry.parts.size(); ++i) entry.bounds.add(boxOf(entry.parts[i]));
    entry.known = true;
}

// A segment that is not known is in no known one.
void SegmentIndex::forget(SegmentRecord const& segment)
{
    std::vector<SegmentRecord const*> open{&segment};
    while (!open.empty()) {
        SegmentRecord const& current = *open.back();
        open.pop_back();
        if (current.slot >= entries_.size() || entries_[current.slot] == nullptr ||
            !entries_[current.slot]->known)
            continue;
        entries_[current.slot]->known = false;
        forEachAbove(current, [&](SegmentRecord const& above) { open.push_back(&above); });
    }
}

void SegmentIndex::apply(std::span<ChangeMark const> marks)
{
    for (ChangeMark const& mark : marks)
        if (has(mark.changes, Change::Removed) && mark.slot < entries_.size()) entries_[mark.slot].reset();
    for (ChangeMark const& mark : marks) {
        if (has(mark.changes, Change::Geometry))
            if (auto const* const geometry = store().at<GeometryRecord>(mark.slot))
                if (auto const* const owner = store().at<SegmentRecord>(geometry->owner)) forget(*owner);
        auto const* const segment = store().at<SegmentRecord>(mark.slot);
        if (segment == nullptr) continue;
        bool const known = mark.slot < entries_.size() && entries_[mark.slot] != nullptr;
        bool const otherwise = known && has(mark.changes, Change::Attributes | Change::Styles) &&
                               (entries_[mark.slot]->window != isWindow(*segment) ||
                                entries_[mark.slot]->drawsOtherwise != mayDrawOtherwise(*segment));
        if (has(mark.changes, Change::Structure) || otherwise) forget(*segment);
        if (has(mark.changes, Change::Matrix))
            forEachAbove(*segment, [&](SegmentRecord const& above) { forget(above); });
    }
}

std::size_t SegmentIndex::bytes() const
{
    std::size_t total = entries_.capacity() * sizeof entries_[0];
    for (auto const& entry : entries_)
        if (entry != nullptr)
            total += sizeof *entry + entry->parts.capacity() * sizeof(SlotIndex) +
                     (entry->tree ? sizeof(BoxTree) + entry->tree->bytes() : 0);
    return total;
}

} // namespace HPS::selection
