// What the meshes' vertex shaders read, as plain data.
#pragma once
#include <cstdint>

namespace HPS::render
{

/// Thin lines are one pixel wide and cost half of what wide ones do; both draw the same meshes. Strokes are
/// lines with a pattern, or with caps and joins of their own. View edges are lines that show from some sides
/// only. Glyphs are flat drawings at a point: letters, and markers that the marker shader does not know.
enum class Primitive : std::uint8_t { Faces, Lines, ThinLines, Markers, Glyphs, Strokes, ViewEdges };
inline constexpr int primitiveCount = 7;

/// A piece of an uploaded mesh. Only faces and glyphs have indices of their own: of the rest every four
/// vertices are a quad.
struct MeshRange {
    std::uint32_t firstIndex = 0;
    std::uint32_t indexCount = 0;
    std::uint32_t baseVertex = 0;
};

/// A marker's symbol is a union of these; the bits are known to the marker shader.
enum GlyphPart : std::uint32_t {
    Disc = 1,
    SmallDisc = 2,
    Ring = 4,
    SmallRing = 8,
    SolidSquare = 16,
    Square = 32,
    Plus = 64,
    Times = 128,
    SolidTriangle = 256, ///< on its base, see `UpsideDown`
    Triangle = 512,
    Diamond = 1024,
    RisingStroke = 2048,
    FallingStroke = 4096,
    UpsideDown = 8192
};

/// Bits of `Instance::flags`; bits 8 and up hold the `GlyphPart`s of a marker, or the place of a stroke's
/// first distance, see `DistancesGiven`.
enum InstanceFlag : std::uint32_t {
    Unlit = 1,         ///< faces show their plain colour
    FrontOnly = 2,     ///< transparent faces: only those turned to the viewer
    BackOnly = 4,      ///< transparent faces: only those turned away
    SizeInWorld = 8,   ///< `size` counts in units of the world, not in pixels
    SizeInWindow = 16, ///< `size` counts in heights of the window
    Planted = 32, ///< glyphs: rows hold, in columns, what one unit to the right, one up and the drawing's
                  ///< origin mean in the world, in multiples of `size`, and then the place that it stands at
    FacesViewer = 64,     ///< planted glyphs: the first three columns count along the axes of the view
    DistancesGiven = 128, ///< strokes: lengths along chains come from the frame's buffer, in pixels
    Unshadowed = 256,     ///< faces: shadows do not fall on it
};
inline constexpr std::uint32_t glyphShift = 8;

/// What differs from one showing of a mesh to the next; goes to the graphics device as it is.
struct Instance {
    float rows[3][4];       ///< coordinate i in the world is rows[i] · (x, y, z, 1)
    std::uint8_t colour[4]; ///< red, green, blue, alpha
    float size = 1;         ///< width of a line or a marker, see `SizeInWorld`
    std::uint32_t flags = 0;
    std::uint32_t material = 0; ///< see below
};
static_assert(sizeof(Instance) == 64);

/// `Instance::material` holds a row of the material table, 0 for none but the colour, and above it the number
/// of a set of cutting sections, 0 for none.
inline constexpr std::uint32_t materialBits = 20;
inline constexpr std::uint32_t materialRowLimit = 1u << materialBits;
inline constexpr std::uint32_t sectionSetLimit = 1u << (32 - materialBits);
constexpr std::uint32_t packMaterial(std::uint32_t row, std::uint32_t sectionSet)
{
    return row | sectionSet << materialBits;
}

} // namespace HPS::render
