#pragma once
#include "FrameContext.h"

namespace HPS::render
{

/// Makes what the model needs to be drawn with shadows. Runs before anything is drawn into the target.
class ShadowStep
{
public:
    void draw(FrameContext const& context);
};

} // namespace HPS::render
