#pragma once
#include "FrameContext.h"

namespace HPS::render
{

/// Draws what is highlighted once more, in the look of its style.
class HighlightStep
{
public:
    void draw(FrameContext const& context);
};

} // namespace HPS::render
