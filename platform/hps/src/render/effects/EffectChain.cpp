#include "EffectChain.h"
#include "effect_bindings.h"
#include "full_screen.h"
#include <algorithm>
#include <epoxy/gl.h>

namespace HPS::render
{
namespace
{

/// Has the part if it is on, and gives its memory back if it is not.
template <class Part, class... Arguments>
void keep(std::optional<Part>& part, bool on, Arguments&&... arguments)
{
    if (!on)
        part.reset();
    else if (!part)
        part.emplace(std::forward<Arguments>(arguments)...);
}

} // namespace

void EffectChain::take(Target const& target)
{
    int const w = target.width(), h = target.height();
    picture_->resize(w, h);
    glDisable(GL_SCISSOR_TEST);
    target.blitTo(picture_->framebuffer(), GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    picture_->read(PictureUnit);
    picture_->readDepth(DepthUnit);
}

void EffectChain::draw(Target const& target, Viewing const& view, Effects const& effects, double extent,
                       Surface const* without)
{
    bool const grades = effects.occlusion.on || effects.eyeDome.on || effects.silhouettes.on;
    bool const finishes = effects.bloom.on || effects.depthOfField.on || effects.smoothing;
    keep(picture_, grades || finishes, std::vector<unsigned>{GL_RGBA8}, GL_DEPTH_COMPONENT24);
    keep(graded_, grades && finishes, std::vector<unsigned>{GL_RGBA8}, 0u);
    keep(occlusion_, effects.occlusion.on);
    keep(bloom_, effects.bloom.on);
    keep(focus_, effects.depthOfField.on);
    if (!grades && !finishes) return;

    take(target);
    bool const masked = without != nullptr;
    if (masked) without->read(WithoutUnit);
    if (graded_) graded_->resize(target.width(), target.height());
    if (grades) grade(target, effects, extent, graded_ ? &*graded_ : nullptr, masked);
    if (finishes) finish(target, view, effects, extent, masked);
    target.bind();
}

void EffectChain::grade(Target const& target, Effects const& effects, double extent, Surface const* into,
                        bool masked)
{
    if (occlusion_) {
        occlusion_->draw(target.width(), target.height(), effects.occlusion, extent);
        occlusion_->read(OpenSkyUnit);
        picture_->read(PictureUnit);
    }
    Features features;
    features.set(Feature::Occlusion, effects.occlusion.on)
        .set(Feature::EyeDome, effects.eyeDome.on)
        .set(Feature::Silhouettes, effects.silhouettes.on)
        .set(Feature::EffectMask, masked);
    if (!useFullScreen(ProgramName::Grade, features)) return;
    auto const& dome = effects.eyeDome;
    glUniform4f(0, std::max(dome.exponent, 0.01f), std::max(dome.tolerance, 0.0f),
                std::max(dome.strength, 0.0f), 0);
    glUniform4f(1, dome.shade[0], dome.shade[1], dome.shade[2], 0);
    glUniform4f(2, std::max(effects.silhouettes.tolerance, 0.0f), effects.silhouettes.heavyExterior ? 1 : 0,
                0, 0);
    if (into != nullptr)
        into->bind();
    else
        target.bind();
    paintFullScreen();
}

void EffectChain::finish(Target const& target, Viewing const& view, Effects const& effects, double extent,
                         bool masked)
{
    Surface const& source = graded_ ? *graded_ : *picture_;
    if (bloom_) {
        source.read(PictureUnit);
        bloom_->draw(target.width(), target.height(), effects.bloom, masked);
        bloom_->read(GlowUnit);
    }
    source.read(PictureUnit);
    if (focus_) {
        focus_->draw(target.width(), target.height(), effects.depthOfField, view, extent, masked);
        focus_->read(BlurredUnit);
    }
    Features features;
    features.set(Feature::Bloom, effects.bloom.on)
        .set(Feature::DepthOfField, effects.depthOfField.on)
        .set(Feature::Smoothing, effects.smoothing)
        .set(Feature::EffectMask, masked);
    if (!useFullScreen(ProgramName::Finish, features)) return;
    if (bloom_) glUniform1f(0, 0.2f * std::max(effects.bloom.strength, 0.0f));
    if (focus_) focus_->setFocus();
    target.bind();
    paintFullScreen();
}

} // namespace HPS::render
