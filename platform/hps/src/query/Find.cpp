#include "structure.h"
#include "user_data.h"
#include <algorithm>
#include <hps/SegmentKey.h>
#include <map>

namespace HPS
{
using namespace scene;

namespace
{

// The search that a type of object answers to; geometry also answers to Geometry, and all to Everything.
Search::Type searchFor(Type type)
{
    static std::map<Type, Search::Type> const table = {
        {Type::IncludeKey, Search::Type::Includes},
        {Type::ReferenceKey, Search::Type::Reference},
        {Type::CircleKey, Search::Type::Circle},
        {Type::CircularArcKey, Search::Type::CircularArc},
        {Type::CircularWedgeKey, Search::Type::CircularWedge},
        {Type::CuttingSectionKey, Search::Type::CuttingSection},
        {Type::CylinderKey, Search::Type::Cylinder},
        {Type::DistantLightKey, Search::Type::DistantLight},
        {Type::EllipseKey, Search::Type::Ellipse},
        {Type::EllipticalArcKey, Search::Type::EllipticalArc},
        {Type::LineKey, Search::Type::Line},
        {Type::GridKey, Search::Type::Grid},
        {Type::InfiniteLineKey, Search::Type::InfiniteLine},
        {Type::MarkerKey, Search::Type::Marker},
        {Type::MeshKey, Search::Type::Mesh},
        {Type::NURBSCurveKey, Search::Type::NURBSCurve},
        {Type::NURBSSurfaceKey, Search::Type::NURBSSurface},
        {Type::PolygonKey, Search::Type::Polygon},
        {Type::ShellKey, Search::Type::Shell},
        {Type::SphereKey, Search::Type::Sphere},
        {Type::SpotlightKey, Search::Type::Spotlight},
        {Type::TextKey, Search::Type::Text},
    };
    if (isOfType(type, Type::SegmentKey)) return Search::Type::Subsegments;
    auto const found = table.find(type);
    return found == table.end() ? Search::Type::Everything : found->second;
}

bool answers(Type type, Search::Type search)
{
    if (search == Search::Type::Everything) return true;
    if (type == Type::PortfolioKey) return false;
    if (search == Search::Type::Geometry) return isOfType(type, Type::GeometryKey);
    return searchFor(type) == search;
}

SearchTypeArray answered(Type type, SearchTypeArray const& searches)
{
    SearchTypeArray types;
    for (auto const search : searches)
        if (answers(type, search)) types.push_back(search);
    return types;
}

// The segment and, if asked for, all below it, from the top down.
std::vector<SlotIndex> segmentsIn(SegmentRecord const& top, Search::Space space)
{
    std::vector<SlotIndex> segments{top.slot};
    if (space == Search::Space::SegmentOnly) return segments;
    std::vector<SlotIndex> open(top.children.begin(), top.children.end());
    std::reverse(open.begin(), open.end());
    while (!open.empty()) {
        auto const slot = open.back();
        open.pop_back();
        segments.push_back(slot);
        auto const& children = store().at<SegmentRecord>(slot)->children;
        for (auto i = children.size(); i-- > 0;) open.push_back(children[i]);
    }
    return segments;
}

void unsetEverything(SegmentRecord& segment)
{
    bool const changed = !segment.kits.empty() || segment.extras || segment.matrix;
    if (segment.extras)
        while (!segment.extras->styles.empty())
            remove(*store().at<StyleRecord>(segment.extras->styles.back()));
    segment.kits.clear();
    segment.extras.reset();
    segment.matrix.reset();
    segment.userData.reset();
    if (!changed) return;
    segment.boundsKnown = false;
    invalidateBoundsAbove(segment);
    noteChange(segment, Change::Attributes | Change::Matrix | Change::Conditions | Change::Styles |
                            Change::Portfolio | Change::Bounding);
}

} // namespace

std::size_t SegmentKey::Find(Search::Type type, Search::Space space, SearchResults& results) const
{
    return Find(SearchTypeArray{type}, space, results);
}

std::size_t SegmentKey::Find(SearchTypeArray const& types, Search::Space space, SearchResults& results) const
{
    std::vector<SearchResult> items;
    auto const collect = [&](std::span<SlotIndex const> slots) {
        HPS::Type known = HPS::Type::None;
        SearchTypeArray matches;
        for (auto const slot : slots) {
            Key const key(store().indexOf(slot));
            if (auto const type = key.Type(); type != known) {
                known = type;
                matches = answered(type, types);
            }
            if (!matches.empty()) items.push_back({key, matches});
        }
    };
    if (auto const* const top = store().resolve<SegmentRecord>(*this))
        for (auto const slot : segmentsIn(*top, space)) {
            auto const& segment = *store().at<SegmentRecord>(slot);
            collect(segment.children);
            collect(segment.includes);
            collect(segment.geometry);
        }
    results = SearchResults(std::move(items));
    return results.GetCount();
}

SegmentKey& SegmentKey::Flush(Search::Type type, Search::Space space)
{
    return Flush(SearchTypeArray{type}, space);
}

SegmentKey& SegmentKey::Flush(SearchTypeArray const& types, Search::Space space)
{
    auto* const top = store().resolve<SegmentRecord>(*this);
    if (!top) return *this;
    bool const everything = !answered(HPS::Type::PortfolioKey, types).empty(); // what only Everything names
    if (!answered(HPS::Type::SegmentKey, types).empty()) removeChildren(*top);
    for (auto const slot : segmentsIn(*top, space)) {
        auto& segment = *store().at<SegmentRecord>(slot);
        if (!answered(HPS::Type::IncludeKey, types).empty()) removeIncludes(segment);
        HPS::Type known = HPS::Type::None;
        bool wanted = false;
        removeGeometry(segment, [&](GeometryRecord const& geometry) {
            if (geometry.type != known) {
                known = geometry.type;
                wanted = !answered(known, types).empty();
            }
            return wanted;
        });
        if (everything) unsetEverything(segment);
    }
    return *this;
}

} // namespace HPS
