// What a frame draws, as plain data: no database type and no OpenGL type.
#pragma once
#include "linear.h"
#include <compare>
#include <cstdint>
#include <vector>

namespace HPS::render
{

/// Thin lines are one pixel wide and cost half of what wide ones do; both draw the same meshes.
enum class Primitive : std::uint8_t { Faces, Lines, ThinLines, Markers };
inline constexpr int primitiveCount = 4;

/// A piece of an uploaded mesh. Lines and markers have no indices of their own: every four vertices are a
/// quad.
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

/// Bits of `Instance::flags`; bits 8 and up hold the `GlyphPart`s of a marker.
enum InstanceFlag : std::uint32_t {
    Unlit = 1,       ///< faces show their plain colour
    FrontOnly = 2,   ///< transparent faces: only those turned to the viewer
    BackOnly = 4,    ///< transparent faces: only those turned away
    SizeInWorld = 8, ///< `size` counts in units of the world, not in pixels
};
inline constexpr std::uint32_t glyphShift = 8;

/// What differs from one showing of a mesh to the next; goes to the graphics device as it is.
struct Instance {
    float rows[3][4];       ///< coordinate i in the world is rows[i] · (x, y, z, 1)
    std::uint8_t colour[4]; ///< red, green, blue, alpha
    float size = 1;         ///< width of a line or a marker, see `SizeInWorld`
    std::uint32_t flags = 0;
    std::uint32_t spare = 0;
};
static_assert(sizeof(Instance) == 64);

/// Draws that agree in this go to the device in one call.
struct Pipeline {
    bool transparent = false;
    Primitive primitive = Primitive::Faces;
    bool cullBack = false;
    bool closed = false;           ///< front faces hide all back faces from outside, so these may be left out
    bool mirrored = false;         ///< the instance's matrix turns the winding round; matters to culling only
    std::int16_t displacement = 0; ///< of faces, in depth steps, away from the viewer

    friend auto operator<=>(Pipeline const&, Pipeline const&) = default;
};

/// One showing of one mesh range.
struct Record {
    Pipeline pipeline;
    MeshRange range;
    Box world; ///< around what is drawn, in world coordinates
};

/// `records` and `instances` run in parallel.
struct DrawList {
    std::vector<Record> records;
    std::vector<Instance> instances;
    Box bounds;                ///< around all records
    std::uint64_t version = 0; ///< differs whenever the content does

    void clear();
    /// `local` is the range's box in its own coordinates, `matrix` leads from there to the world.
    /// Rows of `instance` and the mirroring are filled in here. What lies too far out for the device's
    /// numbers is left out.
    void add(Pipeline pipeline, MeshRange const& range, Box const& local, Mat4 const& matrix,
             Instance instance);
    /// Orders by pipeline and mesh, so that a frame makes few calls, and takes a new version.
    void finish();
};

struct Camera {
    Vec3 position{0, 0, 1};
    Vec3 target;
    Vec3 up{0, 1, 0};
    double fieldWidth = 2, fieldHeight = 2; ///< at the target, in world units; the window shows at least this
    bool perspective = false;
};

/// A light from infinitely far.
struct DistantLight {
    Vec3 direction{0, 0, -1}; ///< the way that the light travels; need not have length 1
    float colour[3] = {1, 1, 1};
    bool cameraRelative = false; ///< direction in x right, y up, z to the viewer
};

enum class FaceStyle : std::uint8_t {
    Smooth,     ///< lit by vertex normals
    Flat,       ///< lit by the triangles' own normals
    HiddenLine, ///< unseen themselves, but hiding what is behind
    None
};

/// All that a frame needs beside the draw list. Without a light everything shows its plain colour.
struct Scene {
    Camera camera;
    std::vector<DistantLight> lights; ///< the first `maximumLights` count
    bool background = true;           ///< off for what is drawn over another picture
    float backgroundTop[3] = {0, 0, 0};
    float backgroundBottom[3] = {0, 0, 0};
    FaceStyle faceStyle = FaceStyle::Smooth;
};
inline constexpr std::size_t maximumLights = 4;

} // namespace HPS::render
