#pragma once
#include "Buffer.h"
#include "FrameContext.h"

namespace HPS::render
{

/// Brings the lights of the scene to the device, for all programs that shade.
class LightStep
{
public:
    void draw(FrameContext const& context);

private:
    void warnOfTooMany(Lights const& lights);

    bool warned_ = false;
    Buffer buffer_;
};

} // namespace HPS::render
