#pragma once
#include "FrameContext.h"

namespace HPS::render
{

/// The place, after what is opaque, where what sections have cut open will be closed. Nothing is drawn here
/// yet.
class SectionStep
{
public:
    void draw(FrameContext const& context);
};

} // namespace HPS::render
