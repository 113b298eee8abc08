#include "OcclusionPass.h"
#include "effect_bindings.h"
#include "full_screen.h"
#include "sample_disc.h"
#include <algorithm>
#include <epoxy/gl.h>

namespace HPS::render
{
namespace
{

constexpr double naturalRadius = 0.025; ///< of the scene's extent
constexpr std::size_t nicestTaps = 16, fastestTaps = 8;

} // namespace

OcclusionPass::OcclusionPass() : grainy_({GL_R8}), smooth_({GL_R8}) {}

void OcclusionPass::draw(int width, int height, Effects::Occlusion const& how, double extent)
{
    grainy_.resize((width + 1) / 2, (height + 1) / 2);
    smooth_.resize((width + 1) / 2, (height + 1) / 2);
    if (!useFullScreen(ProgramName::Occlusion)) return;
    std::size_t const count = how.nicest ? nicestTaps : fastestTaps;
    auto const taps = sampleDisc<nicestTaps>(count);
    glUniform4f(0, float(std::max(how.radius, 0.0f) * naturalRadius * extent), std::max(how.strength, 0.0f),
                float(count), 1.0f / float(count));
    glUniform2fv(1, GLsizei(count), taps[0].data());
    grainy_.bind();
    paintFullScreen();

    if (!useFullScreen(ProgramName::OcclusionBlur)) return;
    glUniform1f(0, std::max(how.sharpness, 0.0f));
    grainy_.read(PictureUnit);
    smooth_.bind();
    paintFullScreen();
}

} // namespace HPS::render
