#pragma once
#include "Buffer.h"
#include "CallList.h"
#include "VisibleRecords.h"

namespace HPS::render
{

/// Tells the shaders where sections cut, and closes what they have cut open, after what is opaque.
class SectionStep
{
public:
    /// Before anything that sections may cut.
    void prepare(FrameContext const& context);
    void draw(FrameContext const& context);

private:
    Buffer planes_, instances_;
    CallList calls_;
    VisibleRecords visible_;
    std::uint64_t uploaded_ = 0; ///< version of the caps in `instances_`
};

} // namespace HPS::render
