#include "picked_paths.h"

#include "host_api.h"
#include "tagged_segments.h"

#include <algorithm>
#include <limits>
#include <set>

namespace ZelVizBase
{

namespace
{

bool isSegment(HPS::Key const& key)
{
    return key.HasType(HPS::Type::SegmentKey) && !key.HasType(HPS::Type::IncludeKey);
}

/// The path from the first key on that is wanted; empty if there is none.
template <class Wanted> HPS::KeyPath from(HPS::KeyPath path, Wanted const& wanted)
{
    while (!path.Empty() && !wanted(path.Front())) path.PopFront();
    return path;
}

HPS::KeyPath partOf(HPS::KeyPath const& path)
{
    HPS::KeyPath const instance = from(path, [](HPS::Key const& key) {
        return isSegment(key) && tagOf(key) == ZELSegmentTagger::TAG_INSTANCE;
    });
    return instance.Empty() ? path : instance;
}

using Parts = std::set<HPS::KeyArray>;

constexpr float thinnest = 1e-4F; ///< of the window: below it there is no pixel between a box and the border

Parts partsTouched(HPS::WindowKey const& window, HPS::Rectangle const& area)
{
    HPS::SelectionOptionsKit options;
    options.SetRelatedLimit(std::numeric_limits<int>::max())
        .SetLevel(HPS::Selection::Level::Entity)
        .SetSorting(HPS::Selection::Sorting::Off)
        .SetProximity(0);
    HPS::SelectionResults results;
    window.GetSelectionControl().SelectByArea(area, options, results);
    Parts parts;
    for (auto at = results.GetIterator(); at.IsValid(); at.Next())
        if (HPS::KeyPath path; at.GetItem().ShowPath(path)) parts.insert(partOf(path).Keys());
    return parts;
}

} // namespace

HPS::SelectionItem itemAt(HPS::WindowKey const& window, HPS::WindowPoint const& place)
{
    HPS::SelectionOptionsKit options;
    options.SetLevel(HPS::Selection::Level::Entity);
    HPS::SelectionResults results;
    window.GetSelectionControl().SelectByPoint(place, options, results);
    return results.GetIterator().GetItem();
}

HPS::KeyPath wholeOf(HPS::SelectionItem const& item)
{
    HPS::KeyPath path;
    if (!item.ShowPath(path)) return path;
    TAG_TYPE type = ZELSegmentTagger::TAG_NONE;
    HPS::Key const front = path.Front();
    if (front.HasType(HPS::Type::GeometryKey)) parentOf(front, type);
    if (type == ZELSegmentTagger::TAG_PMI) path.PopFront();
    return path;
}

HPS::KeyPath parentOf(HPS::KeyPath const& path)
{
    HPS::KeyPath above = path;
    above.PopFront();
    return from(std::move(above), [](HPS::Key const& key) {
        if (!isSegment(key)) return false;
        std::vector<unsigned long long> const ids = treeIdsOf(HPS::KeyPath(HPS::KeyArray{key}));
        return !ids.empty() && ids.back() != ToValue(ZELVizCore::EntityType::Brep);
    });
}

HPS::KeyPathArray partsIn(HPS::WindowKey const& window, HPS::Rectangle const& area, bool wholly)
{
    Parts parts = partsTouched(window, area);
    if (wholly) {
        HPS::Rectangle const beside[] = {{-1, area.left, -1, 1},
                                         {area.right, 1, -1, 1},
                                         {area.left, area.right, -1, area.bottom},
                                         {area.left, area.right, area.top, 1}};
        for (HPS::Rectangle const& strip : beside) {
            if (std::min(strip.Width(), strip.Height()) < thinnest) continue;
            for (HPS::KeyArray const& part : partsTouched(window, strip)) parts.erase(part);
        }
    }
    HPS::KeyPathArray paths;
    for (HPS::KeyArray const& part : parts) paths.emplace_back(part);
    return paths;
}

} // namespace ZelVizBase
