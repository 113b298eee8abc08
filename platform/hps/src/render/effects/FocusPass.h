#pragma once
#include "Effects.h"
#include "Surface.h"
#include "Viewing.h"

namespace HPS::render
{

/// The picture as it looks out of focus. At half size.
class FocusPass
{
public:
    FocusPass();

    /// Picture and depths have to be bound as EffectUnit tells.
    void draw(int width, int height, Effects::DepthOfField const& how, Viewing const& view, double extent,
              bool masked);
    void read(unsigned binding) const { blurred_.read(binding); }
    /// For the program that is current: what focus.glsl asks for.
    void setFocus() const;

private:
    Surface blurred_;
    float focus_[4] = {};
};

} // namespace HPS::render
