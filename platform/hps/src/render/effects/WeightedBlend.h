#pragma once
#include "PeeledLayers.h"

namespace HPS::render
{

/// Puts together what is seen through without any order, as a mean in which near things count more.
/// M. McGuire, L. Bavoil, "Weighted Blended Order-Independent Transparency" (2013).
class WeightedBlend
{
public:
    WeightedBlend();

    /// As PeeledLayers::draw; `draw` is called once and needs Feature::Weighted.
    void draw(Target const& target, PixelArea const& area, std::function<void()> const& draw);

private:
    Surface sums_;     ///< as many samples as the target
    Surface resolved_; ///< one sample; unused where the target has no more
};

} // namespace HPS::render
