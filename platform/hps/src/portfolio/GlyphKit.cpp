#include "portfolio_record.h"

namespace HPS
{

namespace
{

using Kind = GlyphElement::Kind;

constexpr std::uint8_t full = 100; // the radius of every built-in glyph

GlyphElement lines(GlyphPointArray points)
{
    return {Kind::Lines, std::move(points), 0};
}
GlyphElement closed(GlyphPointArray points)
{
    points.push_back(points.front());
    return lines(std::move(points));
}
GlyphElement filled(GlyphPointArray points)
{
    return {Kind::Polygon, std::move(points), 0};
}
GlyphElement circle(std::uint8_t radius)
{
    return {Kind::Circle, {{0, 0}}, radius};
}
GlyphElement disc(std::uint8_t radius)
{
    return {Kind::Disc, {{0, 0}}, radius};
}

GlyphPointArray square(std::int8_t half)
{
    auto const low = static_cast<std::int8_t>(-half);
    return {{low, low}, {half, low}, {half, half}, {low, half}};
}

std::map<std::string, GlyphKit, std::less<>> makeBuiltIn()
{
    // Corners of an equilateral triangle on the full circle, and the diagonals of a square within it.
    GlyphPointArray const up{{-87, -50}, {87, -50}, {0, 100}}, down{{-87, 50}, {0, -100}, {87, 50}};
    auto const rising = lines({{-71, -71}, {71, 71}}), falling = lines({{-71, 71}, {71, -71}});
    auto const flat = lines({{-100, 0}, {100, 0}}), upright = lines({{0, -100}, {0, 100}});

    std::map<std::string, GlyphElementArray> const drawings{
        {"times", {rising, falling}},
        {"plus", {flat, upright}},
        {"splat", {rising, falling, flat, upright}},
        {"slant right", {rising}},
        {"slant left", {falling}},
        {"dot", {disc(20)}},
        {"circle", {circle(full)}},
        {"solid circle", {disc(full)}},
        {"circle with circle", {circle(full), circle(50)}},
        {"circle with dot", {circle(full), disc(20)}},
        {"circle with times", {circle(full), rising, falling}},
        {"box", {closed(square(71))}},
        {"Box", {closed(square(100))}},
        {"solid box", {filled(square(71))}},
        {"diamond", {closed({{0, -100}, {100, 0}, {0, 100}, {-100, 0}})}},
        {"triangle up", {closed(up)}},
        {"solid triangle up", {filled(up)}},
        {"triangle down", {closed(down)}},
        {"solid triangle down", {filled(down)}},
    };
    std::map<std::string, GlyphKit, std::less<>> kits;
    for (auto const& [name, elements] : drawings)
        kits[name].SetRadius(full).SetOffset({0, 0}).SetElements(elements);
    return kits;
}

std::map<std::string, GlyphKit, std::less<>> const& builtIn()
{
    static auto const kits = makeBuiltIn();
    return kits;
}

} // namespace

GlyphKit const* scene::builtInGlyph(std::string_view name)
{
    auto const found = builtIn().find(name);
    return found == builtIn().end() ? nullptr : &found->second;
}

GlyphKit GlyphKit::GetDefault(UTF8 const& name)
{
    auto const* const kit = scene::builtInGlyph(name.Str());
    return kit ? *kit : GlyphKit();
}

std::vector<UTF8> GlyphKit::GetDefaultNames()
{
    std::vector<UTF8> names;
    for (auto const& [name, kit] : builtIn()) names.emplace_back(name);
    return names;
}

} // namespace HPS
