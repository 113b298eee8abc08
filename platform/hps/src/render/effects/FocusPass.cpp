#include "FocusPass.h"
#include "full_screen.h"
#include "sample_disc.h"
#include <algorithm>
#include <epoxy/gl.h>

namespace HPS::render
{
namespace
{

constexpr double sharpShare = 0.05; ///< of the scene's extent, to each side of the target, if nothing is set
constexpr double blurShare = 0.08;  ///< of the window's height, for a distance of the scene's extent
constexpr double largestShare = 0.02; ///< of the window's height: the largest disc's radius

} // namespace

FocusPass::FocusPass() : blurred_({GL_RGBA8}) {}

void FocusPass::setFocus() const
{
    glUniform4fv(2, 1, focus_);
}

void FocusPass::draw(int width, int height, Effects::DepthOfField const& how, Viewing const& view,
                     double extent, bool masked)
{
    double const size = std::max(extent, 1e-12);
    bool const set = how.farDistance > how.nearDistance;
    focus_[0] = float(set ? how.nearDistance : view.distance - sharpShare * size);
    focus_[1] = float(set ? how.farDistance : view.distance + sharpShare * size);
    focus_[2] = float(std::max(how.strength, 0.0f) * blurShare * height / size);
    focus_[3] = float(largestShare * height);
    blurred_.resize((width + 1) / 2, (height + 1) / 2);
    Features features;
    features.set(Feature::EffectMask, masked);
    if (!useFullScreen(ProgramName::OutOfFocus, features)) return;
    setFocus();
    auto const taps = sampleDisc<16>();
    glUniform2fv(3, GLsizei(taps.size()), taps[0].data());
    blurred_.bind();
    paintFullScreen();
}

} // namespace HPS::render
