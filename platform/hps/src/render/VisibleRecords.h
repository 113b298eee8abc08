#pragma once
#include "FrameContext.h"

namespace HPS::render
{

/// What of a draw list a frame shows. Memory is kept from frame to frame.
class VisibleRecords
{
public:
    struct Entry {
        double depth; ///< of the box's middle, larger towards the viewer
        std::uint32_t record;
    };

    void choose(FrameContext const& context);

    /// By pipeline, and from front to back in each, so that what is hidden costs a depth test and no shading.
    std::vector<Entry> const& opaque() const { return opaque_; }
    /// From back to front.
    std::vector<Entry> const& transparent() const { return transparent_; }

private:
    std::vector<Entry> opaque_, transparent_;
};

} // namespace HPS::render
