// What the database holds of each geometry. The arrays stand here once; kits are copies for the caller.
#pragma once
#include "record.h"
#include <hps/SegmentKey.h>
#include <hps/geometry_list.h>
#include <span>
#include <tuple>

namespace HPS::scene
{

template <class KeyType> struct RecordOf : GeometryRecord {
    static constexpr HPS::Type family = KeyType::StaticType;
    using Kit = typename KeyType::Kit;
    using Data = std::decay_t<decltype(shapeOf(std::declval<Kit&>()))>;
    Data data; // checked: every index has its point, every number is finite
    SimpleCuboid box;
};

#define HPS_RECORD(Name) using Name##Record = RecordOf<GeometryKeyOf<HPS::Type::Name##Key, Name##Kit>>;
HPS_GEOMETRY_KINDS(HPS_RECORD)
#undef HPS_RECORD

template <class...> struct TypeList {
};
template <class, class... R> using TypeListBehind = TypeList<R...>;
#define HPS_NEXT(Name) , Name##Record
using GeometryRecords = TypeListBehind<void HPS_GEOMETRY_KINDS(HPS_NEXT)>;
#undef HPS_NEXT

namespace detail
{
template <class... R, class F> void visit(TypeList<R...>, GeometryRecord const& record, F&& f)
{
    ((record.type == R::family && (f(static_cast<R const&>(record)), true)) || ...);
}
} // namespace detail

// Calls f with the record as its own type.
template <class F> void visitGeometry(GeometryRecord const& record, F&& f)
{
    detail::visit(GeometryRecords(), record, std::forward<F>(f));
}

// The name of a kind, as it stands in files.
constexpr char const* nameOfGeometry(HPS::Type type)
{
#define HPS_NAME(Name)                                                                                       \
    if (type == HPS::Type::Name##Key) return #Name;
    HPS_GEOMETRY_KINDS(HPS_NAME)
#undef HPS_NAME
    return "";
}

// The extent of a geometry in its segment's coordinates. Empty for what has no place: a light, an infinite
// line, a cutting section. A text counts with its position alone: its size depends on where it is seen from.
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

// Whether the database can hold the geometry; `box` then takes its extent.
template <class Record> bool check(typename Record::Data const& data, SimpleCuboid& box);

} // namespace HPS::scene
