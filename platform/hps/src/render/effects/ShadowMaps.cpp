#include "ShadowMaps.h"
#include "Device.h"
#include "bindings.h"
#include "full_screen.h"
#include "sample_disc.h"
#include "shadow_camera.h"
#include <algorithm>
#include <epoxy/gl.h>

namespace HPS::render
{
namespace
{

constexpr unsigned mapBinding = 5, maskBinding = 14, depthBinding = 1;
constexpr std::size_t mostSamples = 64;
constexpr float discRadius = 2; ///< pixels of a map: softens the steps of its pixels

/// As shadow_maps.glsl has it (std140).
struct ShadowBlock {
    float toMap[shadowLights][16];
    float radius[shadowLights][4];
    float sampling[4];
    float samples[mostSamples][2];
};

} // namespace

ShadowMaps::ShadowMaps() : mask_({GL_RGBA8}) {}

ShadowMaps::~ShadowMaps()
{
    if (texture_ == 0 || !Device::instance().makeCurrent()) return;
    glDeleteFramebuffers(1, &framebuffer_);
    glDeleteTextures(1, &texture_);
}

void ShadowMaps::resize(unsigned resolution)
{
    GLint largest = 1;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &largest);
    resolution = std::clamp(resolution, 16u, std::min(unsigned(largest), 8192u));
    if (resolution == resolution_) return;
    glDeleteTextures(1, &texture_);
    if (framebuffer_ == 0) glCreateFramebuffers(1, &framebuffer_);
    for (auto& key : keys_) key.reset();
    resolution_ = resolution;
    glCreateTextures(GL_TEXTURE_2D_ARRAY, 1, &texture_);
    auto const size = GLsizei(resolution);
    glTextureStorage3D(texture_, 1, GL_DEPTH_COMPONENT24, size, size, GLsizei(shadowLights));
    glTextureParameteri(texture_, GL_TEXTURE_COMPARE_MODE, GL_COMPARE_REF_TO_TEXTURE);
    glTextureParameteri(texture_, GL_TEXTURE_COMPARE_FUNC, GL_LEQUAL);
    glTextureParameteri(texture_, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTextureParameteri(texture_, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTextureParameteri(texture_, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glTextureParameteri(texture_, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
}

bool ShadowMaps::holds(std::size_t light, Key const& key) const
{
    return texture_ != 0 && keys_[light] == key;
}

void ShadowMaps::bind(std::size_t light, Key const& key)
{
    keys_[light] = key;
    glNamedFramebufferTextureLayer(framebuffer_, GL_DEPTH_ATTACHMENT, texture_, 0, GLint(light));
    glNamedFramebufferDrawBuffer(framebuffer_, GL_NONE);
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, framebuffer_);
    glViewport(0, 0, GLsizei(resolution_), GLsizei(resolution_));
    glDisable(GL_SCISSOR_TEST);
    glDepthMask(GL_TRUE);
    glClear(GL_DEPTH_BUFFER_BIT);
}

void ShadowMaps::makeMask(Surface const& depths, Viewing const& view,
                          Viewing const* const (&lights)[shadowLights], Shadows const& shadows)
{
    ShadowBlock block{};
    for (std::size_t i = 0; i < shadowLights; ++i) {
        if (lights[i] == nullptr) continue;
        Mat4 const toMap = viewToMap(view, *lights[i]);
        std::copy(toMap.begin(), toMap.end(), block.toMap[i]);
        double const texel = 1.0 / resolution_;
        double const world = 2 * lights[i]->halfWidth * texel;
        block.radius[i][0] = float(discRadius * texel);
        // One pixel's width towards the light, on top of what the map's own slope asks for.
        block.radius[i][1] = float(world / (lights[i]->farthest - lights[i]->nearest));
        block.radius[i][2] = 1;
    }
    std::size_t const count = std::clamp<std::size_t>(shadows.samples, 1, mostSamples);
    block.sampling[0] = float(count);
    block.sampling[1] = 1.0f / float(count);
    block.sampling[2] = shadows.jitter ? 1 : 0;
    auto const disc = sampleDisc<mostSamples>(count);
    for (std::size_t i = 0; i < count; ++i) std::copy(disc[i].begin(), disc[i].end(), block.samples[i]);
    if (count == 1) block.samples[0][0] = block.samples[0][1] = 0;
    block_.fill(std::span<ShadowBlock const>(&block, 1));

    mask_.resize(depths.width(), depths.height());
    if (!useFullScreen(ProgramName::ShadowMask)) return;
    glBindBufferBase(GL_UNIFORM_BUFFER, ShadowBinding, block_.name());
    depths.readDepth(depthBinding);
    glBindTextureUnit(mapBinding, texture_);
    mask_.bind();
    paintFullScreen();
}

void ShadowMaps::readMask() const
{
    mask_.read(maskBinding);
}

} // namespace HPS::render
