// A surface's material as it lies in the device's memory, std430. The shaders read it from material.glsl.
#pragma once
#include <cstdint>

namespace HPS::render
{

/// Where on a texture a point of a surface lies; the numbers are known to texturing.glsl.
enum class LayerSource : std::uint32_t {
    Parameters, ///< the vertices' own
    Object,
    World,
    Normal,       ///< in the axes of the view
    Reflection,   ///< as on a polished ball that the viewer looks at
    Surroundings, ///< reflection in the world, by longitude and latitude
    Sphere,       ///< longitude and latitude around the middle of the mesh
    Cylinder,     ///< longitude around the middle of the mesh, and height
};

enum class LayerBlend : std::uint32_t {
    Replace,       ///< colour from the texture, alpha from both
    Modulate,      ///< the product
    Decal,         ///< over the colour, as its own alpha says
    ModulatedDecal ///< the product over the colour, as the texture's alpha says
};

struct LayerRow {
    float u[4] = {1, 0, 0, 0}; ///< texture coordinates are u · (p, 1) and v · (p, 1)
    float v[4] = {0, 1, 0, 0};
    float modulation[4] = {1, 1, 1, 1};
    LayerSource source = LayerSource::Parameters;
    LayerBlend blend = LayerBlend::Replace;
    std::uint32_t first = 0; ///< of the vertices' parameters
    std::uint32_t flags = 0; ///< see `LayerFlag`
};
static_assert(sizeof(LayerRow) == 64);

enum LayerFlag : std::uint32_t {
    Trimmed = 1,      ///< nothing outside of the image
    HoldsNormals = 2, ///< a bump texture of directions, not of heights
};

struct MaterialRow {
    float diffuse[4] = {1, 1, 1, 1};           ///< for who finds the row by an index in a palette
    float specular[3] = {0.25f, 0.25f, 0.25f}; ///< what every surface has for which nothing is set
    float exponent = 32;                       ///< of the highlight
    float emission[3] = {0, 0, 0};
    std::uint32_t ownAmbient = 0; ///< 1: the two ambient colours take the place of sky and ground
    float mirror[3] = {0, 0, 0};  ///< the share of the light that is reflected
    std::uint32_t firstLayer = 0; ///< of the layer table; in the order of `SurfaceKind::textures`
    float transmission[3] = {0, 0, 0};
    std::uint32_t parameters = 0; ///< added to a vertex's number: its place in the parameter buffer
    float environment[3] = {1, 1, 1};
    std::uint32_t palette = 0; ///< row of the palette's first material
    float ambientUp[3] = {0, 0, 0};
    std::uint32_t paletteSize = 0;
    float ambientDown[3] = {0, 0, 0};
    float scale = 1; ///< of the mesh: one over its longest side
    float low[3] = {0, 0, 0};
    float inverseHeight = 1; ///< one over the mesh's extent along y
    float centre[3] = {0, 0, 0};
    std::uint32_t indexRule = 0; ///< see `IndexRule`

    bool operator==(MaterialRow const&) const = default;
};
static_assert(sizeof(MaterialRow) == 160);

/// How palette indices at vertices become colours in between.
enum IndexRule : std::uint32_t {
    BlendColours = 1, ///< neighbouring materials are mixed; otherwise the nearest one shows
    BlendIndices = 2  ///< the index varies over a face; otherwise the colour does
};

} // namespace HPS::render
