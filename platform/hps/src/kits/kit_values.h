// Every value that a kit or a geometry may hold, taken apart into bools, numbers and text: what hashing,
// checking and dumping need.
#pragma once
#include <hps/AttributeLockKit.h>
#include <hps/BoundingKit.h>
#include <hps/DrawingAttributeKit.h>
#include <hps/ElementValues.h>
#include <hps/LinePatternOptionsKit.h>
#include <hps/MaterialMappingKit.h>
#include <hps/MatrixKit.h>
#include <hps/Rectangle.h>
#include <hps/TrimKit.h>
#include <hps/VisualEffectsKit.h>
#include <type_traits>

namespace HPS::scene
{

template <class T>
concept Scalar = std::is_arithmetic_v<T> || std::is_same_v<T, UTF8>;

// Calls f(part) for each bool, number and text in `value`, in a fixed order. Lists and what may be absent are
// preceded by their size.
template <class F, Scalar T> void visitParts(F& f, T const& value)
{
    f(value);
}
template <class F, class T>
requires std::is_enum_v<T>
void visitParts(F& f, T const& value)
{
    f(static_cast<std::uint32_t>(value));
}
template <class F> void visitParts(F& f, Point const& p)
{
    f(p.x), f(p.y), f(p.z);
}
template <class F> void visitParts(F& f, Vector const& v)
{
    f(v.x), f(v.y), f(v.z);
}
template <class F> void visitParts(F& f, Plane const& p)
{
    f(p.a), f(p.b), f(p.c), f(p.d);
}
template <class F, class T> void visitParts(F& f, Rectangle_2D<T> const& r)
{
    f(r.left), f(r.right), f(r.bottom), f(r.top);
}
// Numbers that hold as long as the process runs.
template <class F> void visitParts(F& f, KeyIndex const& index)
{
    f(index.slot), f(index.generation);
}
template <class F> void visitParts(F& f, RGBColor const& c)
{
    f(c.red), f(c.green), f(c.blue);
}
template <class F> void visitParts(F& f, RGBAColor const& c)
{
    f(c.red), f(c.green), f(c.blue), f(c.alpha);
}

// A value that lists its members as fields().
template <class Data>
concept HasFields = requires
{
    Data::fields();
};

template <class F, class T> void visitParts(F& f, std::vector<T> const& values);
template <class F, class T> void visitParts(F& f, std::optional<T> const& value);
template <class F, class... T> void visitParts(F& f, std::tuple<T...> const& values);
template <class F, class Data>
requires requires
{
    Data::aspects();
}
void visitParts(F& f, Data const& data);
template <class F, class Self, template <class> class Ops> void visitParts(F& f, Kit<Self, Ops> const& kit);
template <class F, HasFields Data> void visitParts(F& f, Data const& data);

template <class F> void visitParts(F& f, MatrixKit const& matrix)
{
    for (int i = 0; i < 16; ++i) f(matrix.Data()[i]);
}
template <class F> void visitParts(F& f, TrimKit const& trim)
{
    visitParts(f, trim.data());
}
template <class F, class T> void visitParts(F& f, ElementValues<T> const& all)
{
    visitParts(f, all.values);
    visitParts(f, all.isSet);
}
template <class F, class T> void visitParts(F& f, std::shared_ptr<T const> const& shared)
{
    f(shared != nullptr);
    if (shared) visitParts(f, *shared);
}
template <class F> void visitParts(F& f, SimpleCuboid const& box)
{
    visitParts(f, box.min);
    visitParts(f, box.max);
}
template <class F> void visitParts(F& f, SimpleSphere const& sphere)
{
    visitParts(f, sphere.center);
    f(sphere.radius);
}
template <class F> void visitParts(F& f, BoundingVolume const& volume)
{
    f(volume.isSphere);
    volume.isSphere ? visitParts(f, volume.sphere) : visitParts(f, volume.cuboid);
}
template <class F> void visitParts(F& f, LockEntry const& entry)
{
    visitParts(f, entry.type);
    f(entry.state);
}
template <class F, class Shape> void visitParts(F& f, CapOrJoin<Shape> const& value)
{
    visitParts(f, value.modifier);
    f(value.glyph);
    visitParts(f, value.shape);
}
template <class F> void visitParts(F& f, MaterialChannel const& channel)
{
    visitParts(f, channel.type);
    visitParts(f, channel.color);
    f(channel.texture);
}
template <class F> void visitParts(F& f, SimpleMaterial const& material)
{
    visitParts(f, material.color);
    visitParts(f, material.alpha);
    visitParts(f, material.index);
}
template <class F> void visitParts(F& f, ComplexMaterial const& material)
{
    visitParts(f, material.index);
    visitParts(f, material.values());
}

template <class F, class T> void visitParts(F& f, std::vector<T> const& values)
{
    f(static_cast<std::uint32_t>(values.size()));
    for (auto const& value : values) visitParts(f, value);
}
template <class F, class T> void visitParts(F& f, std::optional<T> const& value)
{
    f(value.has_value());
    if (value) visitParts(f, *value);
}
template <class F, class... T> void visitParts(F& f, std::tuple<T...> const& values)
{
    std::apply([&](auto const&... value) { (visitParts(f, value), ...); }, values);
}
// A kit's data: the id of each aspect that is set, and its value.
template <class F, class Data>
requires requires
{
    Data::aspects();
}
void visitParts(F& f, Data const& data)
{
    forEachAspect<Data>([&](auto const& aspect) {
        if (auto const& value = aspect.get(data)) {
            f(static_cast<std::uint32_t>(aspect.id));
            visitParts(f, *value);
        }
    });
}
template <class F, class Self, template <class> class Ops> void visitParts(F& f, Kit<Self, Ops> const& kit)
{
    visitParts(f, kit.data());
}

template <class F, HasFields Data> void visitParts(F& f, Data const& data)
{
    std::apply([&](auto... field) { (visitParts(f, data.*field), ...); }, Data::fields());
}

// Every number in it is one.
template <class T> bool isFinite(T const& value)
{
    bool finite = true;
    auto const look = [&](auto const& part) {
        if constexpr (std::is_floating_point_v<std::decay_t<decltype(part)>>)
            finite = finite && part - part == 0; // neither infinite nor no number
    };
    visitParts(look, value);
    return finite;
}

// Equal values have equal hashes.
template <class T> std::size_t hashValue(T const& value)
{
    std::size_t hash = 0;
    auto const mix = [&](auto const& part) {
        using Part = std::decay_t<decltype(part)>;
        std::size_t bits = 0;
        if constexpr (std::is_same_v<Part, UTF8>)
            bits = std::hash<std::string>()(part.Str());
        else
            bits = std::hash<Part>()(part);
        hash = (hash ^ bits) * 0x9E3779B97F4A7C15u;
        hash ^= hash >> 29;
    };
    visitParts(mix, value);
    return hash;
}

} // namespace HPS::scene
