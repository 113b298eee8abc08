#include "BloomPass.h"
#include "effect_bindings.h"
#include "full_screen.h"
#include "gaussian.h"
#include <algorithm>
#include <epoxy/gl.h>

namespace HPS::render
{
namespace
{

constexpr float brightFrom = 0.75f; ///< of the largest of red, green and blue
constexpr unsigned mostPasses = 24;
constexpr std::size_t mostTaps = 32;

/// Light that falls off along a ray of a star; sums up to 1 over both of a line's rays.
std::vector<BlurTap> rayTaps(double reach)
{
    std::vector<BlurTap> taps;
    double sum = 0;
    for (std::size_t i = 0; i < mostTaps; ++i) {
        double const offset = 3 * reach * double(i) / double(mostTaps - 1);
        double const weight = std::exp(-offset / reach);
        taps.push_back({float(offset), float(weight)});
        sum += weight * (i == 0 ? 1 : 2);
    }
    for (BlurTap& tap : taps) tap.weight = float(tap.weight / sum);
    return taps;
}

} // namespace

BloomPass::BloomPass() : bright_({GL_RGBA16F}), between_({GL_RGBA16F}), glow_({GL_RGBA16F}) {}

void BloomPass::draw(int width, int height, Effects::Bloom const& how, bool masked)
{
    int const w = (width + 3) / 4, h = (height + 3) / 4;
    for (Surface* surface : {&bright_, &between_, &glow_}) surface->resize(w, h);
    Features features;
    features.set(Feature::EffectMask, masked);
    if (!useFullScreen(ProgramName::Bright, features)) return;
    glUniform2f(0, brightFrom, 1 / (1 - brightFrom));
    bright_.bind();
    paintFullScreen();

    if (!useFullScreen(ProgramName::Blur)) return;
    double const passes = std::clamp(how.blur, 1u, mostPasses);
    bool const star = how.shape == Effects::Bloom::Shape::Star;
    auto const taps = star ? rayTaps(1.5 * passes) : gaussianTaps(0.8 * passes);
    glUniform2fv(1, GLsizei(std::min(taps.size(), mostTaps)), &taps[0].offset);
    auto spread = [&](Surface const& from, Surface const& to, float x, float y) {
        glUniform4f(0, x / float(w), y / float(h), 1, float(std::min(taps.size(), mostTaps)));
        from.read(PictureUnit);
        to.bind();
        paintFullScreen();
    };
    if (!star) {
        spread(bright_, between_, 1, 0);
        spread(between_, glow_, 0, 1);
        return;
    }
    constexpr float diagonal = 0.70710678f;
    spread(bright_, glow_, diagonal, diagonal);
    glEnable(GL_BLEND);
    glBlendFunc(GL_ONE, GL_ONE);
    spread(bright_, glow_, diagonal, -diagonal);
    glDisable(GL_BLEND);
}

} // namespace HPS::render
