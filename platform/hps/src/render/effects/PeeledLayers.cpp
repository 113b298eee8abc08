#include "PeeledLayers.h"
#include "Device.h"
#include "full_screen.h"
#include <algorithm>
#include <epoxy/gl.h>

namespace HPS::render
{
namespace
{

constexpr unsigned mostLayers = 64;
constexpr unsigned peeledBinding = 15;

/// Pixels that a layer has to cover to be worth another one behind it.
unsigned smallestArea(Transparency const& how, PixelArea const& area)
{
    double const whole = double(area.width) * area.height;
    double const pixels = how.areaInPercent ? whole * how.minimumArea / 100 : how.minimumArea;
    return unsigned(std::clamp(pixels, 0.0, whole));
}

} // namespace

PeeledLayers::PeeledLayers()
    : layers_{Surface({GL_RGBA8}, GL_DEPTH_COMPONENT24), Surface({GL_RGBA8}, GL_DEPTH_COMPONENT24)},
      gathered_({GL_RGBA8})
{
}

PeeledLayers::~PeeledLayers()
{
    if (query_ != 0 && Device::instance().makeCurrent()) glDeleteQueries(1, &query_);
}

Features PeeledLayers::features(Target const& target, Transparency const& how)
{
    Features features{Feature::Peel};
    features.set(Feature::EverySample, how.everySample && target.samples() > 1);
    return features;
}

unsigned PeeledLayers::gather(Surface const& from, PixelArea const& area, bool everySample, int samples)
{
    Features features;
    features.set(Feature::EverySample, everySample);
    if (!useFullScreen(ProgramName::Layer, features)) return 0;
    if (query_ == 0) glCreateQueries(GL_SAMPLES_PASSED, 1, &query_);
    gathered_.bind(area);
    glEnable(GL_BLEND);
    glBlendFunc(GL_ONE_MINUS_DST_ALPHA, GL_ONE);
    from.read(0);
    glBeginQuery(GL_SAMPLES_PASSED, query_);
    paintFullScreen();
    glEndQuery(GL_SAMPLES_PASSED);
    GLuint covered = 0;
    glGetQueryObjectuiv(query_, GL_QUERY_RESULT, &covered);
    return covered / unsigned(samples);
}

unsigned PeeledLayers::draw(Target const& target, PixelArea const& area, Transparency const& how,
                            std::function<void()> const& draw)
{
    bool const everySample = how.everySample && target.samples() > 1;
    int const samples = everySample ? target.samples() : 1;
    int const w = target.width(), h = target.height();
    for (Surface& layer : layers_) layer.resize(w, h, samples);
    gathered_.resize(w, h, samples);
    unsigned const enough = smallestArea(how, area);
    PixelArea const drawnArea = grown(area, w, h);
    unsigned const most = std::clamp(how.layers, 1u, mostLayers);

    gathered_.bind(drawnArea);
    float const nothing[4] = {0, 0, 0, 0}, nearest = 0;
    glDepthMask(GL_TRUE);
    glClearNamedFramebufferfv(gathered_.framebuffer(), GL_COLOR, 0, nothing);
    glClearNamedFramebufferfv(layers_[1].framebuffer(), GL_DEPTH, 0, &nearest);
    // What hides a layer for good is there from the start, what was peeled off before it is not drawn.
    auto begin = [&](Surface const& layer, Surface const& before) {
        layer.bind(drawnArea);
        target.blitTo(layer.framebuffer(), GL_DEPTH_BUFFER_BIT);
        glClearNamedFramebufferfv(layer.framebuffer(), GL_COLOR, 0, nothing);
        before.readDepth(peeledBinding);
        glEnable(GL_DEPTH_TEST);
    };
    unsigned drawn = 0;
    bool more = true;
    while (more && drawn < most) {
        Surface const& layer = layers_[drawn % 2];
        Surface const& before = layers_[(drawn + 1) % 2];
        begin(layer, before); // of what is drawn the nearest remains
        glDepthMask(GL_TRUE);
        glDisable(GL_BLEND);
        draw();
        more = gather(layer, drawnArea, everySample, samples) > enough;
        ++drawn;
    }
    if (more) { // what lies deeper than the last layer goes below it all, in whatever order it comes
        Surface const& last = layers_[(drawn + 1) % 2];
        Surface const& rest = layers_[drawn % 2];
        begin(rest, last);
        glDepthMask(GL_FALSE);
        glEnable(GL_BLEND);
        glBlendFunc(GL_ONE_MINUS_DST_ALPHA, GL_ONE);
        draw();
        gather(rest, drawnArea, everySample, samples);
    }

    Features features;
    features.set(Feature::EverySample, everySample);
    if (useFullScreen(ProgramName::Layer, features)) {
        bindWithin(target, area);
        glEnable(GL_BLEND);
        glBlendFunc(GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
        gathered_.read(0);
        paintFullScreen();
    }
    target.bind();
    glDisable(GL_SCISSOR_TEST);
    return drawn;
}

} // namespace HPS::render
