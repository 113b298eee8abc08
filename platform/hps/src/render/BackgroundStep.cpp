#include "BackgroundStep.h"
#include "MeshStore.h"
#include "ShaderLibrary.h"
#include "bindings.h"
#include <algorithm>
#include <epoxy/gl.h>

namespace HPS::render
{
namespace
{

/// As background.glsl has it (std140).
struct BackgroundBlock {
    float top[4], bottom[4];
};

} // namespace

void BackgroundStep::draw(FrameContext const& context)
{
    Background const& background = context.scene.background;
    if (!background.shown) return;
    BackgroundBlock block{};
    std::copy_n(background.top, 3, block.top);
    std::copy_n(background.bottom, 3, block.bottom);
    buffer_.fill(std::span<BackgroundBlock const>(&block, 1));
    glBindBufferBase(GL_UNIFORM_BUFFER, BackgroundBinding, buffer_.name());
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_BLEND);
    glUseProgram(ShaderLibrary::instance().program(ProgramName::Background));
    MeshStore::instance().bindNothing();
    glDrawArrays(GL_TRIANGLES, 0, 3);
    glEnable(GL_DEPTH_TEST);
    ++context.counts.calls;
}

} // namespace HPS::render
