#include "VisibleExtent.h"
#include "bounding.h"
#include "drawn_shapes.h"
#include "geometry_records.h"
#include "walk.h"
#include <hps/VisibilityKit.h>
#include <unordered_map>

namespace HPS::render
{
namespace
{

using namespace scene;

enum Kinds : std::uint32_t { Surfaces = 1, Chains = 2, Markers = 4, Texts = 8, AllKinds = 15 };

std::uint32_t visibleKinds(VisibilityData const& visibility)
{
    static VisibilityData const fallback = VisibilityKit::GetDefault().data();
    auto shows = [&](VisibilityKinds::Kind kind) {
        return visibility.shows(kind, fallback.shows(kind, true));
    };
    std::uint32_t kinds = 0;
    if (shows(VisibilityKinds::Faces) || shows(VisibilityKinds::GenericEdges) ||
        shows(VisibilityKinds::PerimeterEdges) || shows(VisibilityKinds::Vertices))
        kinds |= Surfaces;
    if (shows(VisibilityKinds::Lines)) kinds |= Chains;
    if (shows(VisibilityKinds::Markers)) kinds |= Markers;
    if (shows(VisibilityKinds::Text)) kinds |= Texts;
    return kinds;
}

/// Calls use(point) for every point of the segment's own geometry of these kinds.
template <class F> void forEachPoint(SegmentRecord const& segment, std::uint32_t kinds, F const& use)
{
    for (SlotIndex slot : segment.geometry) {
        auto all = [&](auto const* record) {
            for (Point const& p : record->data.points) use(p);
        };
        // What is curved reaches to the corners of its box, which is enough to see it whole.
        auto useBox = [&](SimpleCuboid const& box) {
            if (!box.IsValid()) return;
            for (Point const& corner : cornersOf(box)) use(corner);
        };
        auto const* const geometry = store().at<GeometryRecord>(slot);
        if (geometry == nullptr) continue;
        if (geometry->type == Type::ShellKey && (kinds & Surfaces) != 0)
            all(static_cast<ShellRecord const*>(geometry));
        else if (geometry->type == Type::PolygonKey && (kinds & Surfaces) != 0)
            all(static_cast<PolygonRecord const*>(geometry));
        else if (geometry->type == Type::LineKey && (kinds & Chains) != 0)
            all(static_cast<LineRecord const*>(geometry));
        else if (geometry->type == Type::MarkerKey && (kinds & Markers) != 0)
            use(static_cast<MarkerRecord const*>(geometry)->data.point);
        else if (geometry->type == Type::TextKey && (kinds & Texts) != 0)
            use(static_cast<TextRecord const*>(geometry)->data.position);
        else if (auto const as = drawnAs(geometry->type); (as.faces && (kinds & Surfaces) != 0) ||
                                                          (as.chains && (kinds & Chains) != 0) ||
                                                          geometry->type == Type::ReferenceKey)
            useBox(boxOf(*geometry));
    }
}

/// p · direction in the world is p · pull.direction + pull.offset in the item's coordinates.
struct Pull {
    Vec3 direction;
    double offset;

    Pull(Mat4 const& m, Vec3 const& d)
        : direction{dot({m[0], m[1], m[2]}, d), dot({m[4], m[5], m[6]}, d), dot({m[8], m[9], m[10]}, d)},
          offset(dot({m[12], m[13], m[14]}, d))
    {
    }
    double of(Point const& p) const
    {
        return p.x * direction.x + p.y * direction.y + p.z * direction.z + offset;
    }
    double of(Box const& box) const
    {
        return std::max(box.low[0] * direction.x, box.high[0] * direction.x) +
               std::max(box.low[1] * direction.y, box.high[1] * direction.y) +
               std::max(box.low[2] * direction.z, box.high[2] * direction.z) + offset;
    }
};

} // namespace

VisibleExtent::VisibleExtent(SegmentRecord const& top)
{
    NetFold fold;
    std::unordered_map<std::uint64_t, Box> boxes; // of segments by slot and kinds
    walk(fold, fold.root(), top, [&](SegmentRecord const& segment, NetAttributes const& net) {
        auto const& bounding = valuesOf<BoundingData>(segment.kit(KitKind::Bounding));
        if (bounding.exclusion.value_or(false) && &segment != &top) return false;
        Mat4 matrix;
        std::copy_n(net.matrix.Data(), 16, matrix.begin());
        if (bounding.volume) {
            Box box;
            box.add(bounding.volume->cuboid.min.x, bounding.volume->cuboid.min.y,
                    bounding.volume->cuboid.min.z);
            box.add(bounding.volume->cuboid.max.x, bounding.volume->cuboid.max.y,
                    bounding.volume->cuboid.max.z);
            if (transformed(box, matrix).drawable()) items_.push_back({nullptr, 0, matrix, box});
            return false;
        }
        if (segment.geometry.empty()) return true;
        std::uint32_t const kinds = visibleKinds(net.state->get<VisibilityData>());
        auto const [found, isNew] = boxes.try_emplace(std::uint64_t(segment.slot) << 4 | kinds);
        if (isNew) forEachPoint(segment, kinds, [&](Point const& p) { found->second.add(p.x, p.y, p.z); });
        if (transformed(found->second, matrix).drawable())
            items_.push_back({&segment, kinds, matrix, found->second});
        return true;
    });
}

double VisibleExtent::support(Vec3 const& direction) const
{
    std::vector<std::pair<double, Item const*>> bounds;
    bounds.reserve(items_.size());
    for (Item const& item : items_) bounds.emplace_back(Pull(item.matrix, direction).of(item.local), &item);
    // A heap, for mostly few boxes reach far enough to be looked into.
    auto const less = [](auto const& a, auto const& b) { return a.first < b.first; };
    std::make_heap(bounds.begin(), bounds.end(), less);
    double largest = std::numeric_limits<double>::lowest();
    while (!bounds.empty() && bounds.front().first > largest) {
        auto const [bound, item] = bounds.front();
        std::pop_heap(bounds.begin(), bounds.end(), less);
        bounds.pop_back();
        if (item->segment == nullptr) {
            largest = bound;
            continue;
        }
        Pull const pull(item->matrix, direction);
        forEachPoint(*item->segment, item->kinds,
                     [&](Point const& p) { largest = std::max(largest, pull.of(p)); });
    }
    return largest;
}

} // namespace HPS::render
