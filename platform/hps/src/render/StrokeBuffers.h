#pragma once
#include "Buffer.h"
#include "FrameContext.h"

namespace HPS::render
{

/// What the strokes' shaders read, on the device: patterns, and lengths of chains on the screen.
class StrokeBuffers
{
public:
    /// Brings both up to date and binds them, if the list has strokes at all.
    void upload(FrameContext const& context);

private:
    Buffer heads_, rows_, dashes_, lengths_;
    std::uint64_t patterns_ = 0;    ///< version that is uploaded
    std::uint64_t showings_ = 0;    ///< the same of the chains
    std::array<double, 32> seen_{}; ///< the view that the lengths were measured in
    std::vector<float> work_;
};

} // namespace HPS::render
