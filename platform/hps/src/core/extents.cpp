#include "extents.h"
#include <array>

namespace HPS::scene
{
namespace
{

// One of a segment's appearances moved within those above it.
struct Move {
    SegmentRecord const* segment;
    SimpleCuboid before, after; // in the coordinates of what holds it
};

// False if `before` may be what made the whole reach so far on some side, and `after` reaches less far there.
bool replacePart(SimpleCuboid& whole, SimpleCuboid const& before, SimpleCuboid const& after)
{
    constexpr std::array axes{&Point::x, &Point::y, &Point::z};
    for (auto const axis : axes) {
        if (before.min.*axis <= whole.min.*axis && !(after.min.*axis <= before.min.*axis)) return false;
        if (before.max.*axis >= whole.max.*axis && !(after.max.*axis >= before.max.*axis)) return false;
    }
    whole.Merge(after);
    return true;
}

SimpleCuboid placed(SimpleCuboid const& box, SegmentRecord const& segment)
{
    return segment.matrix ? transformed(box, *segment.matrix) : box;
}

} // namespace

SimpleCuboid transformed(SimpleCuboid const& box, MatrixKit const& matrix)
{
    SimpleCuboid moved;
    if (!box.IsValid()) return moved;
    for (unsigned i = 0; i < 8; ++i)
        moved.Merge(matrix.Transform(Point(i & 1 ? box.max.x : box.min.x, i & 2 ? box.max.y : box.min.y,
                                           i & 4 ? box.max.z : box.min.z)));
    return moved;
}

void moveBounds(SegmentRecord const& segment, MatrixKit const& before)
{
    // A segment that is excluded, or stands for a given volume, may not count as it is.
    if (segment.kit(KitKind::Bounding)) return invalidateBoundsAbove(segment);
    if (!segment.boundsKnown || !segment.bounds.IsValid()) return; // it counts nowhere as yet
    std::vector<Move> open{{&segment, transformed(segment.bounds, before), placed(segment.bounds, segment)}};
    while (!open.empty()) {
        auto const move = open.back();
        open.pop_back();
        forEachAbove(*move.segment, [&](SegmentRecord& above) {
            if (!above.boundsKnown) return;
            auto const old = above.bounds;
            if (above.kit(KitKind::Bounding) || !replacePart(above.bounds, move.before, move.after))
                invalidateBounds(above);
            else if (!(above.bounds == old))
                open.push_back({&above, placed(old, above), placed(above.bounds, above)});
        });
    }
}

} // namespace HPS::scene
