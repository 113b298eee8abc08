#pragma once
#include <compare>
#include <cstdint>
#include <initializer_list>

namespace HPS::render
{

/// What a program can do beyond its plain self. Each becomes a macro of the same meaning in the shaders, see
/// the table in ShaderLibrary.cpp.
enum class Feature : std::uint32_t {
    Flat = 1u << 0,        ///< lit by the triangles' own normals
    Transparent = 1u << 1, ///< draws one side of a face alone where an instance asks for it
};

/// Which features a program is compiled with. A program of each combination that is drawn with stays.
struct Features {
    std::uint32_t bits = 0;
    std::uint8_t lights = 0; ///< distant lights, up to `maximumLights`; a number known to the compiler

    Features() = default;
    Features(std::initializer_list<Feature> features)
    {
        for (Feature feature : features) bits |= std::uint32_t(feature);
    }
    bool has(Feature feature) const { return (bits & std::uint32_t(feature)) != 0; }
    Features& set(Feature feature, bool on = true)
    {
        bits = on ? bits | std::uint32_t(feature) : bits & ~std::uint32_t(feature);
        return *this;
    }
    friend auto operator<=>(Features const&, Features const&) = default;
};

} // namespace HPS::render
