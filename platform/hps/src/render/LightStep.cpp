#include "LightStep.h"
#include "bindings.h"
#include <algorithm>
#include <epoxy/gl.h>

namespace HPS::render
{
namespace
{

/// As lights.glsl has it (std140).
struct LightBlock {
    struct {
        float direction[4], halfway[4], colour[4];
    } lights[maximumLights];
};

void put(float* out, Vec3 const& v)
{
    out[0] = float(v.x);
    out[1] = float(v.y);
    out[2] = float(v.z);
}

} // namespace

void LightStep::draw(FrameContext const& context)
{
    LightBlock block{};
    auto const& distant = context.scene.lights.distant;
    Viewing const& viewing = context.viewing;
    for (std::size_t i = 0; i < std::min(distant.size(), maximumLights); ++i) {
        DistantLight const& light = distant[i];
        Vec3 const d = normalised(light.direction, {0, 0, -1});
        Vec3 const seen =
            light.cameraRelative ? d : Vec3{dot(d, viewing.right), dot(d, viewing.up), dot(d, viewing.back)};
        put(block.lights[i].direction, seen * -1);
        put(block.lights[i].halfway, normalised(Vec3{0, 0, 1} - seen, {0, 0, 1}));
        std::copy_n(light.colour, 3, block.lights[i].colour);
    }
    buffer_.fill(std::span<LightBlock const>(&block, 1));
    glBindBufferBase(GL_UNIFORM_BUFFER, LightBinding, buffer_.name());
}

} // namespace HPS::render
