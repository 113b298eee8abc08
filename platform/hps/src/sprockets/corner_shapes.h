// What stands in the corners of a view, as segments.
#pragma once
#include "corner.h"

namespace HPS
{

/// Arrows below `contents`, in materials 0 to 2.
void buildTriad(SegmentKey contents);

/// Regions and labels below `contents`, with x to the right, y up and z to the front.
void buildCube(SegmentKey contents, CornerRecords const& corners);

/// Colours that stand in for those of the user, by the index that each part takes its material from.
MaterialKitArray triadColours();
MaterialKitArray cubeColours();

} // namespace HPS
