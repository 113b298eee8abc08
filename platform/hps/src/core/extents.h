// What is known of the extents of segments, kept up to date as the scene changes.
#pragma once
#include "structure.h"

namespace HPS::scene
{

// Calls f with each segment that shows this one: its owner and the owners of its includes.
template <class F> void forEachAbove(SegmentRecord const& segment, F&& f)
{
    if (auto* const owner = store().at<SegmentRecord>(segment.owner)) f(*owner);
    for (auto const slot : segment.includers)
        if (auto* const owner = store().at<SegmentRecord>(store().at<IncludeRecord>(slot)->owner)) f(*owner);
}

// The box around a box that went through a matrix; empty stays empty.
SimpleCuboid transformed(SimpleCuboid const& box, MatrixKit const& matrix);

// The matrix of a segment changed from `before`. The extents above take the new place in, wherever that can
// be told without a look at the siblings: unless the old place reached the border and the new one does not.
// What cannot be told is computed when it is asked for.
void moveBounds(SegmentRecord const& segment, MatrixKit const& before);

} // namespace HPS::scene
