#pragma once
#include "FrameContext.h"

namespace HPS::render
{

/// What is drawn over everything else: subwindows and overlays.
class OverlayStep
{
public:
    void draw(FrameContext const& context);
};

} // namespace HPS::render
