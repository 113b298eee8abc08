#include "OtherView.h"
#include "bindings.h"
#include "frame_block.h"
#include <epoxy/gl.h>

namespace HPS::render
{

OtherView::OtherView(FrameContext const& context, Buffers& buffers, Viewing const& viewing, int width,
                     int height)
    : frameBefore_(context.frameBlock)
{
    FrameBlock const block = frameBlock(viewing, width, height);
    buffers.frame.fill(std::span<FrameBlock const>(&block, 1));
    glBindBufferBase(GL_UNIFORM_BUFFER, FrameBinding, buffers.frame.name());
    if (!context.scene.sections.any()) return;
    // The planes of sections count from where the view looks.
    GLint framebuffer = 0;
    glGetIntegeri_v(GL_SHADER_STORAGE_BUFFER_BINDING, SectionBinding, &sectionsBefore_);
    glGetIntegerv(GL_DRAW_FRAMEBUFFER_BINDING, &framebuffer);
    GLint viewport[4];
    glGetIntegerv(GL_VIEWPORT, viewport);
    buffers.sections.prepare({context.target, context.list, context.scene, viewing, false,
                              context.instanceBuffer, context.counts, context.frameBlock, false});
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, GLuint(framebuffer));
    glViewport(viewport[0], viewport[1], viewport[2], viewport[3]);
}

OtherView::~OtherView()
{
    glBindBufferBase(GL_UNIFORM_BUFFER, FrameBinding, frameBefore_);
    if (sectionsBefore_ != 0)
        glBindBufferBase(GL_SHADER_STORAGE_BUFFER, SectionBinding, GLuint(sectionsBefore_));
}

} // namespace HPS::render
