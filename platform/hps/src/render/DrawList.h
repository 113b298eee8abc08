// What a frame draws, as plain data: no database type and no OpenGL type.
#pragma once
#include "Instance.h"
#include "MaterialTable.h"
#include "linear.h"
#include <compare>
#include <cstdint>
#include <vector>

namespace HPS::render
{

/// Draws that agree in this go to the device in one call.
struct Pipeline {
    bool transparent = false;
    Primitive primitive = Primitive::Faces;
    bool cullBack = false;
    bool closed = false; ///< front faces hide all back faces from outside, so these may be left out
    bool cullFront = false;
    bool mirrored = false;         ///< the instance's matrix turns the winding round; matters to culling only
    std::int16_t displacement = 0; ///< of faces, in depth steps, away from the viewer
    std::uint16_t surface = 0;     ///< kind of the material table: features and textures beyond the plain

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
    MaterialTable materials;   ///< that `Instance::material` counts in
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

} // namespace HPS::render
