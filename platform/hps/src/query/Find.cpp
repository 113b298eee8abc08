#include "geometry_records.h"
#include "structure.h"
#include "user_data.h"
#include <algorithm>
#include <hps/SegmentKey.h>
#include <map>
#include <ranges>

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

// A geometry, with rays told from lines that have no end on either side.
SearchTypeArray answeredBy(GeometryRecord const& geometry, SearchTypeArray const& searches)
{
    auto types = answered(geometry.type, searches);
    if (geometry.type != Type::InfiniteLineKey) return types;
    auto const& data = static_cast<InfiniteLineRecord const&>(geometry).data;
    if (data.type != InfiniteLine::Type::Ray) return types;
    types.clear();
    for (auto const search : searches)
        if (search == Search::Type::InfiniteRay ||
            (search != Search::Type::InfiniteLine && answers(geometry.type, search)))
            types.push_back(search);
    return types;
}

// Geometry in a row is mostly of one type: asked once for all of it. Lines without ends are not.
class Answers
{
public:
    explicit Answers(SearchTypeArray const& searches) : searches_(searches) {}
    SearchTypeArray const& of(GeometryRecord const& geometry)
    {
        if (geometry.type != known_ || known_ == Type::InfiniteLineKey) {
            known_ = geometry.type;
            types_ = answeredBy(geometry, searches_);
        }
        return types_;
    }

private:
    SearchTypeArray const& searches_;
    Type known_ = Type::None;
    SearchTypeArray types_;
};

// The segment and, if asked for, all below it, from the top down.
std::vector<SlotIndex> segmentsIn(SegmentRecord const& top, Search::Space space)
{
    std::vector<SlotIndex> segments{top.slot};
    if (space == Search::Space::SegmentOnly) return segments;
    std::vector<SlotIndex> open;
    auto const openChildren = [&](SegmentRecord const& segment) {
        for (auto const child : segment.children | std::views::reverse) open.push_back(child);
    };
    openChildren(top);
    while (!open.empty()) {
        auto const slot = open.back();
        open.pop_back();
        segments.push_back(slot);
        openChildren(*store().at<SegmentRecord>(slot));
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
    auto const collect = [&](SlotList const& slots, SearchTypeArray const& matches) {
        if (matches.empty()) return;
        for (auto const slot : slots) items.push_back({Key(store().indexOf(slot)), matches});
    };
    auto const subsegments = answered(HPS::Type::SegmentKey, types);
    auto const includes = answered(HPS::Type::IncludeKey, types);
    Answers geometryAnswers(types);
    if (auto const* const top = store().resolve<SegmentRecord>(*this))
        for (auto const slot : segmentsIn(*top, space)) {
            auto const& segment = *store().at<SegmentRecord>(slot);
            collect(segment.children, subsegments);
            collect(segment.includes, includes);
            for (auto const geometry : segment.geometry)
                if (auto const& matches = geometryAnswers.of(*store().at<GeometryRecord>(geometry));
                    !matches.empty())
                    items.push_back({Key(store().indexOf(geometry)), matches});
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
        Answers geometryAnswers(types);
        removeGeometry(segment,
                       [&](GeometryRecord const& geometry) { return !geometryAnswers.of(geometry).empty(); });
        if (everything) unsetEverything(segment);
    }
    return *this;
}

} // namespace HPS
