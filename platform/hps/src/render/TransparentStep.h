#pragma once
#include "CallList.h"
#include "VisibleRecords.h"

namespace HPS::render
{

/// Draws what can be seen through, from back to front, over what is opaque.
class TransparentStep
{
public:
    void draw(FrameContext const& context, VisibleRecords const& visible);

private:
    std::vector<Instance> sorted_; ///< from back to front
    Buffer buffer_;                ///< these, on the device
    CallList calls_;
};

} // namespace HPS::render
