#include "Target.h"
#include "Device.h"
#include <algorithm>
#include <cassert>
#include <epoxy/gl.h>

namespace HPS::render
{

Target::~Target()
{
    if (drawn_ != 0 && Device::instance().makeCurrent()) release();
}

void Target::release()
{
    glDeleteFramebuffers(1, &drawn_);
    glDeleteFramebuffers(1, &resolved_);
    glDeleteRenderbuffers(1, &colour_);
    glDeleteRenderbuffers(1, &depth_);
    glDeleteRenderbuffers(1, &resolvedColour_);
    drawn_ = resolved_ = colour_ = depth_ = resolvedColour_ = 0;
}

void Target::resize(int width, int height, int samples)
{
    assert(width > 0 && height > 0 && "Target::resize: width and height are at least 1");
    samples = std::clamp(samples, 1, Device::instance().maximumSamples());
    if (drawn_ != 0 && width == width_ && height == height_ && samples == samples_) return;
    if (drawn_ != 0) release();
    width_ = width;
    height_ = height;
    samples_ = samples;

    auto attach = [&](unsigned framebuffer, unsigned& buffer, GLenum where, GLenum format, int count) {
        glCreateRenderbuffers(1, &buffer);
        // A storage of one "multisample" is another thing than a plain one, and may not be read directly.
        if (count > 1)
            glNamedRenderbufferStorageMultisample(buffer, count, format, width, height);
        else
            glNamedRenderbufferStorage(buffer, format, width, height);
        glNamedFramebufferRenderbuffer(framebuffer, where, GL_RENDERBUFFER, buffer);
    };
    glCreateFramebuffers(1, &drawn_);
    attach(drawn_, colour_, GL_COLOR_ATTACHMENT0, GL_RGBA8, samples);
    attach(drawn_, depth_, GL_DEPTH_ATTACHMENT, GL_DEPTH_COMPONENT24, samples);
    if (samples > 1) {
        glCreateFramebuffers(1, &resolved_);
        attach(resolved_, resolvedColour_, GL_COLOR_ATTACHMENT0, GL_RGBA8, 1);
    }
}

void Target::bind() const
{
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, drawn_);
    glViewport(0, 0, width_, height_);
}

void Target::copyFrom(Target const& other, int left, int bottom) const
{
    glBlitNamedFramebuffer(other.drawn_, drawn_, left, bottom, left + width_, bottom + height_, 0, 0, width_,
                           height_, GL_COLOR_BUFFER_BIT, GL_NEAREST);
}

void Target::copyTo(Target const& other, int left, int bottom) const
{
    glBlitNamedFramebuffer(drawn_, other.drawn_, 0, 0, width_, height_, left, bottom, left + width_,
                           bottom + height_, GL_COLOR_BUFFER_BIT, GL_NEAREST);
}

void Target::blitTo(unsigned framebuffer, unsigned what) const
{
    glBlitNamedFramebuffer(drawn_, framebuffer, 0, 0, width_, height_, 0, 0, width_, height_, what,
                           GL_NEAREST);
}

void Target::resolve() const
{
    if (resolved_ != 0)
        glBlitNamedFramebuffer(drawn_, resolved_, 0, 0, width_, height_, 0, 0, width_, height_,
                               GL_COLOR_BUFFER_BIT, GL_NEAREST);
    glFinish();
}

void Target::read(std::vector<std::uint8_t>& pixels) const
{
    std::size_t const row = std::size_t(width_) * 4;
    pixels.resize(row * std::size_t(height_));
    glBindFramebuffer(GL_READ_FRAMEBUFFER, resolved_ != 0 ? resolved_ : drawn_);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, width_, height_, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
    for (int top = 0, bottom = height_ - 1; top < bottom; ++top, --bottom)
        std::swap_ranges(pixels.begin() + std::ptrdiff_t(row) * top,
                         pixels.begin() + std::ptrdiff_t(row) * (top + 1),
                         pixels.begin() + std::ptrdiff_t(row) * bottom);
}

} // namespace HPS::render
