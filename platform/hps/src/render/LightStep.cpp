#include "LightStep.h"
#include "bindings.h"
#include "subscriptions.h"
#include <algorithm>
#include <cmath>
#include <epoxy/gl.h>
#include <string>

namespace HPS::render
{
namespace
{

/// As lights.glsl has it (std140).
struct LightBlock {
    struct {
        float direction[4], halfway[4], colour[4];
    } lights[maximumLights];
    struct {
        float place[4], axis[4], colour[4], cone[4];
    } spots[maximumLights];
};

void put(float* out, Vec3 const& v)
{
    out[0] = float(v.x);
    out[1] = float(v.y);
    out[2] = float(v.z);
}

/// From the axes of the world to those of the view.
Vec3 turned(Vec3 const& v, Viewing const& viewing)
{
    return {dot(v, viewing.right), dot(v, viewing.up), dot(v, viewing.back)};
}

void describe(DistantLight const& light, Viewing const& viewing, auto& out)
{
    Vec3 const d = normalised(light.direction, {0, 0, -1});
    Vec3 const seen = light.cameraRelative ? d : turned(d, viewing);
    put(out.direction, seen * -1);
    put(out.halfway, normalised(Vec3{0, 0, 1} - seen, {0, 0, 1}));
    std::copy_n(light.colour, 3, out.colour);
}

void describe(SpotLight const& light, Viewing const& viewing, auto& out)
{
    Vec3 const eye{0, 0, viewing.distance};
    Vec3 const place = light.cameraRelative ? light.position + eye : viewing.toView(light.position);
    Vec3 const target = light.cameraRelative ? light.target + eye : viewing.toView(light.target);
    put(out.place, place);
    put(out.axis, normalised(target - place, {0, 0, -1}));
    std::copy_n(light.colour, 3, out.colour);
    float const outer = std::cos(light.outerAngle), inner = std::cos(light.innerAngle);
    out.cone[0] = outer;
    out.cone[1] = 1 / std::max(inner - outer, 1e-5f);
    out.cone[2] = light.concentration;
}

} // namespace

void LightStep::warnOfTooMany(Lights const& lights)
{
    bool const tooMany = std::max(lights.distant.size(), lights.spots.size()) > maximumLights;
    if (tooMany && !warned_)
        scene::raiseWarning(UTF8("A view has more than " + std::to_string(maximumLights) +
                                 " lights of a kind; the rest of them does not shine"));
    warned_ = tooMany;
}

void LightStep::draw(FrameContext const& context)
{
    warnOfTooMany(context.scene.lights);
    LightBlock block{};
    Lights const& lights = context.scene.lights;
    for (std::size_t i = 0; i < std::min(lights.distant.size(), maximumLights); ++i)
        describe(lights.distant[i], context.viewing, block.lights[i]);
    for (std::size_t i = 0; i < std::min(lights.spots.size(), maximumLights); ++i)
        describe(lights.spots[i], context.viewing, block.spots[i]);
    buffer_.fill(std::span<LightBlock const>(&block, 1));
    glBindBufferBase(GL_UNIFORM_BUFFER, LightBinding, buffer_.name());
}

} // namespace HPS::render
