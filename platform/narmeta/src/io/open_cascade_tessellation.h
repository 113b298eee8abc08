#pragma once

// Only for sources of this folder that see Open CASCADE.

#include <Message_ProgressRange.hxx>
#include <TopoDS_Shape.hxx>

namespace NarMetaInfra
{
/// Largest distance of triangles and polylines from the true shape, in the shape's unit, and largest angle
/// between neighbours, in radians.
struct TessellationTolerance {
    double distance = 0.1;
    double angle = 0.3142; // 20 segments to a circle
};

/// How fine shapes of any size are triangulated.
struct TessellationFineness {
    double share = 0.002; ///< largest distance, as a share of the shape's extent
    double angle = 0.3142;
};

/// A share of the shape's extent; so a watch and a ship get about as many triangles.
TessellationTolerance toleranceFor(TopoDS_Shape const& shape, TessellationFineness const& fineness);

/// Triangulates all faces and free edges, with normals from the surfaces. `parallel` uses the threads that
/// setKernelThreads gave.
void tessellate(TopoDS_Shape const& shape, TessellationTolerance const& tolerance, bool parallel,
                Message_ProgressRange const& range);

/// How many threads the kernel's parallel algorithms use in this process.
void setKernelThreads(unsigned count);
} // namespace NarMetaInfra
