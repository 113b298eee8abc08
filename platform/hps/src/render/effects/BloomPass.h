#pragma once
#include "Effects.h"
#include "Surface.h"

namespace HPS::render
{

/// Light of bright places that shines over their rims. At a quarter of the size.
class BloomPass
{
public:
    BloomPass();

    /// Picture and depths have to be bound as EffectUnit tells. `masked`: what stays without effects too.
    void draw(int width, int height, Effects::Bloom const& how, bool masked);
    void read(unsigned binding) const { glow_.read(binding); }

private:
    Surface bright_, between_, glow_;
};

} // namespace HPS::render
