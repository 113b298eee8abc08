#pragma once
#include "Buffer.h"
#include "CallList.h"
#include "ListBuffers.h"
#include "VisibleRecords.h"

namespace HPS::render
{

/// Tells the shaders where sections cut, and closes what they have cut open, after what is opaque.
class SectionStep
{
public:
    /// Before anything that sections may cut.
    void prepare(FrameContext const& context);
    /// Leaves the materials of the caps bound, if there are any.
    void draw(FrameContext const& context);

private:
    Buffer planes_;
    ListBuffers buffers_;
    CallList calls_;
    VisibleRecords visible_;
};

} // namespace HPS::render
