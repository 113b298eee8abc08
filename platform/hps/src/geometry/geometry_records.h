// What the database holds of each geometry. The arrays stand here once; kits are copies for the caller.
#pragma once
#include "record.h"
#include <hps/Cuboid.h>
#include <hps/DistantLightKit.h>
#include <hps/MarkerKit.h>
#include <hps/PolygonKit.h>
#include <hps/ShellKit.h>
#include <hps/TextKit.h>
#include <span>

namespace HPS::scene
{

struct ShellRecord : GeometryRecord {
    static constexpr HPS::Type family = HPS::Type::ShellKey;
    using Kit = ShellKit;
    ShellData data; // checked: every index has its point, every coordinate is finite
    SimpleCuboid box;
};

// One type for lines and polygons: what differs is the record's type.
template <HPS::Type TypeOf, class KitType> struct PointChainRecord : GeometryRecord {
    static constexpr HPS::Type family = TypeOf;
    using Kit = KitType;
    PointChain data;
    SimpleCuboid box;
};
using LineRecord = PointChainRecord<HPS::Type::LineKey, LineKit>;
using PolygonRecord = PointChainRecord<HPS::Type::PolygonKey, PolygonKit>;

struct MarkerRecord : GeometryRecord {
    static constexpr HPS::Type family = HPS::Type::MarkerKey;
    using Kit = MarkerKit;
    MarkerData data;
};

struct TextRecord : GeometryRecord {
    static constexpr HPS::Type family = HPS::Type::TextKey;
    using Kit = TextKit;
    TextData data;
};

struct DistantLightRecord : GeometryRecord {
    static constexpr HPS::Type family = HPS::Type::DistantLightKey;
    using Kit = DistantLightKit;
    DistantLightData data;
};

// Calls f with the record as its own type; nothing for a type without a record of its own.
template <class F> void visitGeometry(GeometryRecord const& record, F&& f)
{
    if (record.type == ShellRecord::family)
        f(static_cast<ShellRecord const&>(record));
    else if (record.type == LineRecord::family)
        f(static_cast<LineRecord const&>(record));
    else if (record.type == PolygonRecord::family)
        f(static_cast<PolygonRecord const&>(record));
    else if (record.type == MarkerRecord::family)
        f(static_cast<MarkerRecord const&>(record));
    else if (record.type == TextRecord::family)
        f(static_cast<TextRecord const&>(record));
    else if (record.type == DistantLightRecord::family)
        f(static_cast<DistantLightRecord const&>(record));
}

// The extent of a geometry in its segment's coordinates. Empty for a light. A text counts with its position
// alone: its size depends on where it is seen from.
SimpleCuboid boxOf(GeometryRecord const& record);

// One face of a shell with the holes that follow it.
struct FaceLoop {
    std::span<int const> indices;
    bool isHole;
};
// Calls f(loop) for each loop of a facelist that was checked.
template <class F> void forEachLoop(std::span<int const> facelist, F&& f)
{
    for (std::size_t at = 0; at < facelist.size();) {
        auto const count = facelist[at];
        auto const length = static_cast<std::size_t>(count < 0 ? -count : count);
        f(FaceLoop{facelist.subspan(at + 1, length), count < 0});
        at += 1 + length;
    }
}

// Whether the database can hold the geometry. `box` takes its extent.
bool check(ShellData const& data, SimpleCuboid& box);
bool check(PointChain const& data, SimpleCuboid& box);
bool check(MarkerData const& data);
bool check(TextData const& data);
bool check(DistantLightData const& data);

} // namespace HPS::scene
