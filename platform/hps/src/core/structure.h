// The tree of segments: making, finding and removing what it consists of, with marks for all of it.
#pragma once
#include "store.h"

namespace HPS::scene
{

// `owner` null makes a root. The name must not be taken among the owner's children; the empty name never is.
SegmentRecord& createSegment(SegmentRecord* owner, std::string_view name,
                             HPS::Type type = HPS::Type::SegmentKey);
SegmentRecord* findChild(SegmentRecord const& owner, std::string_view name);
// A root that no list of roots shows: for what is on its way to its place.
SegmentRecord& createHiddenRoot();
void showRoot(SegmentRecord& root);
bool rename(SegmentRecord& segment, std::string_view name); // false if a sibling has the name
bool moveTo(SegmentRecord& segment, SegmentRecord& owner);  // false if `owner` stands below `segment`

// True if `segment` is `top`, or stands below it by children and includes.
bool standsBelow(SegmentRecord const& segment, SegmentRecord const& top);

// Null if the include would close a circle.
IncludeRecord* createInclude(SegmentRecord& owner, SegmentRecord& target);
// For who knows that no circle closes.
IncludeRecord& addInclude(SegmentRecord& owner, SegmentRecord& target);

// Hands children, includes, geometry and styles of `from` to `to`, which must not stand below it. A child
// whose name is taken there gets a number behind it.
void moveContents(SegmentRecord& from, SegmentRecord& to);
// `name`, or if a child of `owner` has it, the name with the first number behind it that is free.
std::string freeName(SegmentRecord const& owner, std::string_view name);

// Each removes the object with all that it holds, and all includes of a segment.
void remove(Record& record);
void removeChildren(SegmentRecord& segment);
void removeIncludes(SegmentRecord& segment);
// Whoever lets go of a geometry does it by this: what refers to it is told.
void releaseGeometry(GeometryRecord& geometry);
// Geometry for which wanted(record) holds.
template <class F> void removeGeometry(SegmentRecord& segment, F&& wanted);
void removeAllGeometry(SegmentRecord& segment);

// Called for every write to a segment. The kinds tell what is recomputed: marks, fold stamps, extents.
void noteChange(SegmentRecord& segment, Change changes);
// The definitions of a portfolio changed.
void noteDefinitions(Record& portfolio);
// The extent of the segment's contents changed, and so those of all that shows it.
void invalidateBounds(SegmentRecord& segment);
// The segment's place in the extents of those above changed: its matrix, its exclusion, its given volume.
void invalidateBoundsAbove(SegmentRecord const& segment);

template <class F> void removeGeometry(SegmentRecord& segment, F&& wanted)
{
    SlotList kept;
    for (auto const slot : segment.geometry) {
        auto* const geometry = store().at<GeometryRecord>(slot);
        if (wanted(*geometry))
            releaseGeometry(*geometry);
        else
            geometry->place = kept.push_back(slot);
    }
    bool const anyGone = kept.size() != segment.geometry.size();
    segment.geometry = std::move(kept); // in any case: the places are those in it
    if (!anyGone) return;
    invalidateBounds(segment);
    noteChange(segment, Change::Structure);
}

} // namespace HPS::scene
