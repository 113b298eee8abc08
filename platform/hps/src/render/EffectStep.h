#pragma once
#include "FrameContext.h"

namespace HPS::render
{

/// The place of effects on the picture as a whole: they will work on what is drawn between the two calls.
/// There are none yet.
class EffectStep
{
public:
    void begin(FrameContext const& context);
    void finish(FrameContext const& context);
};

} // namespace HPS::render
