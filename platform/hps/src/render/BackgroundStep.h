#pragma once
#include "Buffer.h"
#include "FrameContext.h"

namespace HPS::render
{

/// Paints what lies behind everything.
class BackgroundStep
{
public:
    void draw(FrameContext const& context);

private:
    Buffer buffer_;
};

} // namespace HPS::render
