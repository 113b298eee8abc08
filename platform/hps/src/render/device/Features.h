#pragma once
#include <compare>
#include <cstdint>
#include <initializer_list>

namespace HPS::render
{

/// What a program can do beyond its plain self. Each becomes a macro of the same meaning in the shaders, see
/// the table in ShaderLibrary.cpp.
enum class Feature : std::uint64_t {
    Flat = 1u << 0,        ///< lit by the triangles' own normals
    Transparent = 1u << 1, ///< draws one side of a face alone where an instance asks for it
    BackgroundImage = 1u << 18,
    BackgroundCube = 1u << 19,
    Cut = 1u << 20, ///< leaves out what the instance's cutting sections take away

    // What lights and materials ask for.
    Gouraud = 1ull << 32,     ///< lit at the corners, and blended in between
    FlatColours = 1ull << 33, ///< a triangle has the colour of its first corner
    Material = 1ull << 34,    ///< a row of the material table says more than the instance's colour
    Parameters = 1ull << 35,  ///< texture coordinates from the vertices
    Projected = 1ull << 36,   ///< texture coordinates from elsewhere
    SpecularMap = 1ull << 37,
    MirrorMap = 1ull << 38,
    TransmissionMap = 1ull << 39,
    EmissionMap = 1ull << 40,
    BumpMap = 1ull << 41,
    Mirror = 1ull << 42,            ///< surroundings are reflected: those of the next three, or a plain sky
    EnvironmentMap = 1ull << 43,    ///< a flat image
    EnvironmentCube = 1ull << 44,   ///< a cube map
    EnvironmentColour = 1ull << 45, ///< one colour all around
    Indexed = 1ull << 46,           ///< vertices name materials of a palette

    // What is seen through, see output.glsl.
    Peel = 1ull << 48,        ///< only what lies behind the layer that was peeled off last
    EverySample = 1ull << 49, ///< for each sample of a pixel
    Weighted = 1ull << 50,    ///< adds to weighted sums
    ScreenDoor = 1ull << 51,  ///< leaves pixels out in place of blending

    Shadowed = 1ull << 52,   ///< lights reach no further than the shadow mask says
    CoverDepth = 1ull << 53, ///< a depth map: cover becomes a share of its pixels
    CoverPlane = 1ull << 54, ///< what lies below a plane is left out

    // Effects that are on, and whether some of the scene goes without them.
    Occlusion = 1ull << 55,
    EyeDome = 1ull << 56,
    Silhouettes = 1ull << 57,
    Bloom = 1ull << 58,
    DepthOfField = 1ull << 59,
    Smoothing = 1ull << 60,
    EffectMask = 1ull << 61,
};

/// Which features a program is compiled with. A program of each combination that is drawn with stays.
struct Features {
    std::uint64_t bits = 0;
    // Numbers known to the compiler.
    std::uint8_t lights = 0; ///< distant ones, up to `maximumLights`
    std::uint8_t spots = 0;  ///< up to `maximumLights`
    std::uint8_t layers = 0; ///< diffuse textures, up to 8

    Features() = default;
    Features(std::initializer_list<Feature> features)
    {
        for (Feature feature : features) bits |= std::uint64_t(feature);
    }
    bool has(Feature feature) const { return (bits & std::uint64_t(feature)) != 0; }
    Features& set(Feature feature, bool on = true)
    {
        bits = on ? bits | std::uint64_t(feature) : bits & ~std::uint64_t(feature);
        return *this;
    }
    friend auto operator<=>(Features const&, Features const&) = default;
};

} // namespace HPS::render
