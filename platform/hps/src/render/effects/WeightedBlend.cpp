#include "WeightedBlend.h"
#include "full_screen.h"
#include <epoxy/gl.h>

namespace HPS::render
{

WeightedBlend::WeightedBlend()
    : sums_({GL_RGBA16F, GL_R16F}, GL_DEPTH_COMPONENT24), resolved_({GL_RGBA16F, GL_R16F})
{
}

void WeightedBlend::draw(Target const& target, PixelArea const& area, std::function<void()> const& draw)
{
    int const w = target.width(), h = target.height();
    sums_.resize(w, h, target.samples());
    PixelArea const cleared = grown(area, w, h);
    sums_.bind(cleared);
    target.blitTo(sums_.framebuffer(), GL_DEPTH_BUFFER_BIT);
    float const nothing[4] = {0, 0, 0, 0}, all[4] = {1, 1, 1, 1};
    glClearNamedFramebufferfv(sums_.framebuffer(), GL_COLOR, 0, nothing);
    glClearNamedFramebufferfv(sums_.framebuffer(), GL_COLOR, 1, all);
    glEnable(GL_DEPTH_TEST);
    glDepthMask(GL_FALSE);
    glEnable(GL_BLEND);
    glBlendFunci(0, GL_ONE, GL_ONE);
    glBlendFunci(1, GL_ZERO, GL_ONE_MINUS_SRC_COLOR);
    draw();

    Surface const* sums = &sums_;
    if (target.samples() > 1) {
        resolved_.resize(w, h);
        for (GLenum const which : {GL_COLOR_ATTACHMENT0, GL_COLOR_ATTACHMENT1}) {
            glNamedFramebufferReadBuffer(sums_.framebuffer(), which);
            glNamedFramebufferDrawBuffer(resolved_.framebuffer(), which);
            glBlitNamedFramebuffer(sums_.framebuffer(), resolved_.framebuffer(), 0, 0, w, h, 0, 0, w, h,
                                   GL_COLOR_BUFFER_BIT, GL_NEAREST);
        }
        sums = &resolved_;
    }
    if (useFullScreen(ProgramName::Weighted)) {
        bindWithin(target, area);
        glEnable(GL_BLEND);
        glBlendFunc(GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
        sums->read(0, 0);
        sums->read(1, 1);
        paintFullScreen();
    }
    target.bind();
    glDisable(GL_SCISSOR_TEST);
}

} // namespace HPS::render
