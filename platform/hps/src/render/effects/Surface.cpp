#include "Surface.h"
#include "Device.h"
#include <algorithm>
#include <cassert>
#include <epoxy/gl.h>

namespace HPS::render
{
namespace
{

unsigned makeTexture(unsigned format, int width, int height, int samples, GLenum filter)
{
    unsigned name = 0;
    if (samples > 1) {
        glCreateTextures(GL_TEXTURE_2D_MULTISAMPLE, 1, &name);
        glTextureStorage2DMultisample(name, samples, format, width, height, GL_TRUE);
        return name;
    }
    glCreateTextures(GL_TEXTURE_2D, 1, &name);
    glTextureStorage2D(name, 1, format, width, height);
    glTextureParameteri(name, GL_TEXTURE_MIN_FILTER, GLint(filter));
    glTextureParameteri(name, GL_TEXTURE_MAG_FILTER, GLint(filter));
    glTextureParameteri(name, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glTextureParameteri(name, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    return name;
}

} // namespace

Surface::Surface(std::vector<unsigned> colourFormats, unsigned depthFormat)
    : formats_(std::move(colourFormats)), depthFormat_(depthFormat)
{
}

Surface::~Surface()
{
    if (allocated() && Device::instance().makeCurrent()) release();
}

void Surface::release()
{
    if (!allocated()) return;
    glDeleteFramebuffers(1, &framebuffer_);
    glDeleteTextures(GLsizei(colours_.size()), colours_.data());
    glDeleteTextures(1, &depth_);
    colours_.clear();
    framebuffer_ = depth_ = 0;
}

void Surface::resize(int width, int height, int samples)
{
    assert(width > 0 && height > 0 && "Surface::resize: width and height are at least 1");
    samples = std::clamp(samples, 1, Device::instance().maximumSamples());
    if (allocated() && width == width_ && height == height_ && samples == samples_) return;
    release();
    width_ = width;
    height_ = height;
    samples_ = samples;
    glCreateFramebuffers(1, &framebuffer_);
    std::vector<GLenum> drawn;
    for (unsigned const format : formats_) {
        GLenum const where = GL_COLOR_ATTACHMENT0 + GLenum(colours_.size());
        colours_.push_back(makeTexture(format, width, height, samples, GL_LINEAR));
        glNamedFramebufferTexture(framebuffer_, where, colours_.back(), 0);
        drawn.push_back(where);
    }
    if (drawn.empty()) drawn.push_back(GL_NONE);
    glNamedFramebufferDrawBuffers(framebuffer_, GLsizei(drawn.size()), drawn.data());
    if (depthFormat_ == 0) return;
    depth_ = makeTexture(depthFormat_, width, height, samples, GL_NEAREST);
    glNamedFramebufferTexture(framebuffer_, GL_DEPTH_ATTACHMENT, depth_, 0);
}

void Surface::bind() const
{
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, framebuffer_);
    glViewport(0, 0, width_, height_);
    glDisable(GL_SCISSOR_TEST);
}

void Surface::bind(PixelArea const& area) const
{
    bind();
    glEnable(GL_SCISSOR_TEST);
    glScissor(area.x, area.y, area.width, area.height);
}

void Surface::read(unsigned binding, std::size_t i) const
{
    glBindTextureUnit(binding, colours_[i]);
}

void Surface::readDepth(unsigned binding) const
{
    glBindTextureUnit(binding, depth_);
}

PixelArea grown(PixelArea const& area, int width, int height)
{
    constexpr int rim = 2;
    int const left = std::max(area.x - rim, 0), low = std::max(area.y - rim, 0);
    return {left, low, std::min(area.x + area.width + rim, width) - left,
            std::min(area.y + area.height + rim, height) - low};
}

void bindWithin(Target const& target, PixelArea const& area)
{
    target.bind();
    glEnable(GL_SCISSOR_TEST);
    glScissor(area.x, area.y, area.width, area.height);
}

} // namespace HPS::render
