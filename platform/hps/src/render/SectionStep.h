#pragma once
#include "FrameContext.h"

namespace HPS::render
{

/// Closes what sections have cut open, after what is opaque.
class SectionStep
{
public:
    void draw(FrameContext const& context);
};

} // namespace HPS::render
