#include "BackgroundStep.h"
#include "MeshStore.h"
#include "ShaderLibrary.h"
#include "TextureStore.h"
#include "bindings.h"
#include <algorithm>
#include <epoxy/gl.h>

namespace HPS::render
{
namespace
{

/// As background.glsl has it (std140).
struct BackgroundBlock {
    float from[4], to[4], ramp[4];
    float sight[16];
};

void put(float* out, Vec3 const& v)
{
    out[0] = float(v.x);
    out[1] = float(v.y);
    out[2] = float(v.z);
}

BackgroundBlock blockOf(Background const& background, Viewing const& viewing)
{
    BackgroundBlock block{};
    std::copy_n(background.from, 4, block.from);
    std::copy_n(background.to, 4, block.to);
    std::copy_n(background.ramp, 3, block.ramp);
    // Far away all is seen as from the eye; without a perspective, as through a lens of 45 degrees.
    double const reach = viewing.perspective ? viewing.distance : 2.4 * viewing.halfHeight;
    put(block.sight, viewing.right * viewing.halfWidth);
    put(block.sight + 4, viewing.up * viewing.halfHeight);
    put(block.sight + 8, viewing.back * -reach);
    return block;
}

/// Puts the picture on texture unit 0; what is named and not there shows a placeholder. Gives what the
/// program has to do.
Features bindPicture(Background const& background)
{
    TextureStore& textures = TextureStore::instance();
    auto use = [&](Sampled const& sampled, Feature feature) {
        glBindTextureUnit(0, sampled.texture->name());
        glBindSampler(0, sampled.sampler);
        return Features{feature};
    };
    switch (background.kind) {
    case Background::Kind::Nothing:
    case Background::Kind::Ramp:
        break;
    case Background::Kind::Image:
        return use(background.image ? textures.flat(*background.image, background.definition)
                                    : textures.missing(background.definition),
                   Feature::BackgroundImage);
    case Background::Kind::CubeMap:
        if (background.cubeMap)
            return use(textures.cube(*background.cubeMap, background.definition), Feature::BackgroundCube);
        return use(textures.missing(background.definition), Feature::BackgroundImage);
    }
    return {};
}

} // namespace

void BackgroundStep::draw(FrameContext const& context)
{
    Background const& background = context.scene.background;
    if (!background.shown) return;
    if (background.kind == Background::Kind::Nothing) {
        glClearColor(0, 0, 0, 0);
        glClear(GL_COLOR_BUFFER_BIT);
        return;
    }
    BackgroundBlock const block = blockOf(background, context.viewing);
    buffer_.fill(std::span<BackgroundBlock const>(&block, 1));
    glBindBufferBase(GL_UNIFORM_BUFFER, BackgroundBinding, buffer_.name());
    glDisable(GL_DEPTH_TEST);
    if (background.from[3] < 1)
        glEnable(GL_BLEND);
    else
        glDisable(GL_BLEND);
    glUseProgram(ShaderLibrary::instance().program(ProgramName::Background, bindPicture(background)));
    MeshStore::instance().bindNothing();
    glDrawArrays(GL_TRIANGLES, 0, 3);
    glEnable(GL_DEPTH_TEST);
    ++context.counts.calls;
}

} // namespace HPS::render
