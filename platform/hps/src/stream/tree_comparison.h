#pragma once
#include <hps/SegmentKey.h>
#include <string>

namespace HPS::scene
{

// Where two trees of segments differ first, in a line; empty if they are alike in all that a stream file
// holds: attributes, geometry and names in the same order, and links to what stands at the same place in
// both. The names of the two segments themselves, and of what is reached by links alone, do not count.
std::string firstDifference(SegmentKey const& a, SegmentKey const& b);

} // namespace HPS::scene
