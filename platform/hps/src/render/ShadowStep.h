#pragma once
#include "FrameContext.h"

namespace HPS::render
{

/// The place, before anything is drawn into the target, where shadow maps will be made. There are none yet.
class ShadowStep
{
public:
    void draw(FrameContext const& context);
};

} // namespace HPS::render
