#pragma once
#include "BloomPass.h"
#include "FocusPass.h"
#include "OcclusionPass.h"
#include "Target.h"
#include <optional>

namespace HPS::render
{

/// Works on a picture that is drawn but for what stands above it: takes colours and depths out of the target,
/// and lays the result over the colours there. Depths and what is drawn later stay as they are. Each effect
/// that is on has surfaces of its own; those that are off have none.
class EffectChain
{
public:
    /// The frame block of `view` has to be bound. `extent` is the size of the scene, which the effects
    /// measure by. Pixels of `without`, if there is one, hold the `EffectBit`s of what stays as it is there.
    void draw(Target const& target, Viewing const& view, Effects const& effects, double extent,
              Surface const* without);

private:
    void take(Target const& target);
    /// The effects that look at a pixel and those beside it, into a surface or, without one, into the target.
    void grade(Target const& target, Effects const& effects, double extent, Surface const* into, bool masked);
    void finish(Target const& target, Viewing const& view, Effects const& effects, double extent,
                bool masked);

    std::optional<Surface> picture_; ///< colours and depths as drawn, one sample a pixel
    std::optional<Surface> graded_;  ///< colours between the last two passes, where both run
    std::optional<OcclusionPass> occlusion_;
    std::optional<BloomPass> bloom_;
    std::optional<FocusPass> focus_;
};

} // namespace HPS::render
