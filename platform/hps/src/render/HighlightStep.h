#pragma once
#include "CallList.h"
#include "ListBuffers.h"
#include "OverlayStep.h"
#include "VisibleRecords.h"

namespace HPS::render
{

/// Draws what is highlighted once more, in the look of its style: the list of the scene's highlights, over
/// the finished picture and at the depths that are in the target.
class HighlightStep
{
public:
    void draw(FrameContext const& context);

private:
    void push(FrameContext const& context, RecordRun const& run);

    ListBuffers buffers_;
    VisibleRecords visible_;
    CallList calls_;
    OverlayStep overlay_;
};

} // namespace HPS::render
