#pragma once

// Only for sources of this folder that see Open CASCADE.

#include "open_cascade_tessellation.h"

namespace NarMetaInfra
{
/// Second try for faces that the kernel's mesher gave up on, mostly because their outlines cross themselves:
/// their outlines are filled in the surface's parameters. A face that withstands this too stays without
/// triangles.
void fillFailedFaces(TopoDS_Shape const& shape, TessellationTolerance const& tolerance);
} // namespace NarMetaInfra
