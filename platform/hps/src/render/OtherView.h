#pragma once
#include "Buffer.h"
#include "FrameContext.h"
#include "SectionStep.h"

namespace HPS::render
{

/// Another view of the frame's scene than the viewer's: all programs see it as long as this lives.
class OtherView
{
public:
    /// What the device holds of it; kept from frame to frame.
    struct Buffers {
        Buffer frame;
        SectionStep sections;
    };
    OtherView(FrameContext const& context, Buffers& buffers, Viewing const& viewing, int width, int height);
    ~OtherView();
    OtherView(OtherView const&) = delete;
    OtherView& operator=(OtherView const&) = delete;

private:
    unsigned frameBefore_;
    int sectionsBefore_ = 0;
};

} // namespace HPS::render
