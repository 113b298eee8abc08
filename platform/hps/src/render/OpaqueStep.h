#pragma once
#include "CallList.h"
#include "VisibleRecords.h"

namespace HPS::render
{

/// Draws what hides what lies behind it.
class OpaqueStep
{
public:
    void draw(FrameContext const& context, VisibleRecords const& visible);

private:
    CallList calls_;
};

} // namespace HPS::render
