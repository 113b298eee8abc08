#pragma once
#include "Effects.h"
#include "Surface.h"

namespace HPS::render
{

/// Darkness of corners: how much of what is above each place is open. At half size.
class OcclusionPass
{
public:
    OcclusionPass();

    /// The depths that `effect_bindings.h` tells of have to be bound. `extent` is the size of the scene.
    void draw(int width, int height, Effects::Occlusion const& how, double extent);
    void read(unsigned binding) const { smooth_.read(binding); }

private:
    Surface grainy_, smooth_;
};

} // namespace HPS::render
