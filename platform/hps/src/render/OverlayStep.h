#pragma once
#include "CallList.h"
#include "VisibleRecords.h"

namespace HPS::render
{

/// Draws what lies over everything else, as its segments ask for.
class OverlayStep
{
public:
    void draw(FrameContext const& context, VisibleRecords const& visible);

private:
    CallList calls_;
};

} // namespace HPS::render
