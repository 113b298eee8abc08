#pragma once
#include "FrameContext.h"

namespace HPS::render
{

/// Effects on the picture as a whole. What is drawn between the two calls is what they work on.
class EffectStep
{
public:
    void begin(FrameContext const& context);
    void finish(FrameContext const& context);
};

} // namespace HPS::render
