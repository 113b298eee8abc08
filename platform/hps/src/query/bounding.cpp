#include "bounding.h"
#include "geometry_records.h"
#include "stored_kit.h"
#include <hps/KeyPath.h>

namespace HPS::scene
{
namespace
{

BoundingData const& boundingKitOf(SegmentRecord const& segment)
{
    return valuesOf<BoundingData>(segment.kit(KitKind::Bounding));
}

bool isExcluded(SegmentRecord const& segment)
{
    return boundingKitOf(segment).exclusion.value_or(false);
}

// Calls f with each segment whose extent counts in this one's.
template <class F> void forEachPart(SegmentRecord const& segment, F&& f)
{
    auto const visit = [&](SlotIndex slot) {
        if (auto* const part = store().at<SegmentRecord>(slot); part && !isExcluded(*part)) f(*part);
    };
    for (auto const slot : segment.children) visit(slot);
    for (auto const slot : segment.includes) visit(store().at<IncludeRecord>(slot)->target);
}

// With the extents of all parts known.
SimpleCuboid computeBounds(SegmentRecord const& segment)
{
    if (auto const& volume = boundingKitOf(segment).volume) return volume->cuboid;
    SimpleCuboid box;
    for (auto const slot : segment.geometry) box.Merge(boxOf(*store().at<GeometryRecord>(slot)));
    forEachPart(segment, [&](SegmentRecord const& part) {
        box.Merge(part.matrix ? transformed(part.bounds, *part.matrix) : part.bounds);
    });
    return box;
}

} // namespace

std::array<Point, 8> cornersOf(SimpleCuboid const& box)
{
    std::array<Point, 8> corners;
    for (unsigned i = 0; i < 8; ++i)
        corners[i] = {i & 1 ? box.max.x : box.min.x, i & 2 ? box.max.y : box.min.y,
                      i & 4 ? box.max.z : box.min.z};
    return corners;
}

SimpleCuboid leafBox(Key const& leaf)
{
    if (auto const* const segment = store().resolve<SegmentRecord>(leaf)) return boundsOf(*segment);
    if (auto const* const geometry = store().resolve<GeometryRecord>(leaf)) return boxOf(*geometry);
    if (auto const* const include = store().resolve<IncludeRecord>(leaf))
        return worldBoundsOf(*store().at<SegmentRecord>(include->target));
    return {};
}

SimpleCuboid const& boundsOf(SegmentRecord const& segment)
{
    // Parts before the whole, with a stack of our own: scenes may be deeper than the thread's.
    std::vector<SlotIndex> open;
    if (!segment.boundsKnown) open.push_back(segment.slot);
    while (!open.empty()) {
        auto& current = *store().at<SegmentRecord>(open.back());
        auto const before = open.size();
        if (!current.boundsKnown && !boundingKitOf(current).volume)
            forEachPart(current, [&](SegmentRecord const& part) {
                if (!part.boundsKnown) open.push_back(part.slot);
            });
        if (open.size() != before) continue;
        if (!current.boundsKnown) current.bounds = computeBounds(current);
        current.boundsKnown = true;
        open.pop_back();
    }
    return segment.bounds;
}

SimpleCuboid worldBoundsOf(SegmentRecord const& segment)
{
    auto const& box = boundsOf(segment);
    return segment.matrix ? transformed(box, *segment.matrix) : box;
}

std::optional<std::vector<SegmentRecord const*>> segmentsOf(std::span<Key const> leafFirst)
{
    std::vector<SegmentRecord const*> segments;
    for (auto at = leafFirst.size(); at-- > 0;) {
        auto const* const record = store().resolve(leafFirst[at].Index());
        if (!record) return std::nullopt;
        auto const* const segment = store().at<SegmentRecord>(record->slot);
        if (segment && (segments.empty() || segments.back() != segment)) segments.push_back(segment);
    }
    return segments;
}

} // namespace HPS::scene

namespace HPS
{
using namespace scene;

bool BoundingControl::ShowVolume(SimpleSphere& sphere, SimpleCuboid& cuboid) const
{
    auto const* const record = store().resolve<SegmentRecord>(segment());
    if (!record) return false;
    if (auto const& given = data().volume) {
        sphere = given->sphere;
        cuboid = given->cuboid;
        return true;
    }
    auto const& box = boundsOf(*record);
    if (!box.IsValid()) return false;
    cuboid = box;
    sphere = SimpleSphere(box);
    return true;
}

bool KeyPath::ShowNetModellingMatrix(MatrixKit& matrix) const
{
    auto const segments = segmentsOf(keys_);
    if (keys_.empty() || !segments) return false;
    MatrixKit net;
    for (auto const* const segment : *segments)
        if (segment->matrix) net = *segment->matrix * net;
    matrix = net;
    return true;
}

bool KeyPath::ShowNetBounding(BoundingKit& kit) const
{
    MatrixKit matrix;
    if (!ShowNetModellingMatrix(matrix)) return false;
    auto const box = transformed(leafBox(Front()), matrix);
    if (!box.IsValid()) return false;
    kit.SetVolume(box);
    return true;
}

} // namespace HPS
