#pragma once
#include "Buffer.h"
#include "CallList.h"
#include "VisibleRecords.h"

namespace HPS::render
{

/// In a picture of hidden lines: draws the lines that faces hide, weaker than the others.
class HiddenLineStep
{
public:
    void draw(FrameContext const& context, VisibleRecords const& visible);

private:
    std::vector<Instance> dimmed_;
    Buffer buffer_; ///< these, on the device
    CallList calls_;
};

} // namespace HPS::render
