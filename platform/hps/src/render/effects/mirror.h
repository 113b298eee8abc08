// Mirrors in a plane.
#pragma once
#include "Shadows.h"
#include "Viewing.h"

namespace HPS::render
{

inline Vec3 mirrored(Vec3 const& p, MirrorPlane const& plane)
{
    return p - plane.normal * (2 * plane.height(p));
}

/// A plane in the view coordinates of `view`: normal and offset.
struct ViewPlane {
    double x, y, z, offset;
};
inline ViewPlane inView(MirrorPlane const& plane, Viewing const& view)
{
    return {dot(plane.normal, view.right), dot(plane.normal, view.up), dot(plane.normal, view.back),
            plane.height(view.target)};
}

/// `projection` with its near plane moved into `keep`, so that what lies where `keep` is negative is cut off.
/// The eye has to lie there. After E. Lengyel, "Oblique View Frustum Depth Projection and Clipping" (2005).
inline Mat4 withNearPlane(Mat4 const& projection, ViewPlane const& keep)
{
    // The corner of what is seen that lies farthest on the side that is kept.
    double const sx = keep.x < 0 ? -1 : 1, sy = keep.y < 0 ? -1 : 1;
    Mat4 const& p = projection;
    // Solves q·P = (sx, sy, 1, 1) for a projection without terms across its axes.
    double const zz = p[10], wz = p[11], zw = p[14], ww = p[15];
    double const determinant = zz * ww - wz * zw;
    double const qz = (ww - zw) / determinant, qw = (zz - wz) / determinant;
    double const qx = (sx - p[12] * qw - p[8] * qz) / p[0], qy = (sy - p[13] * qw - p[9] * qz) / p[5];
    double const along = keep.x * qx + keep.y * qy + keep.z * qz + keep.offset * qw;
    double const scale = along != 0 ? 2 / along : 0;
    Mat4 cut = projection;
    cut[2] = keep.x * scale - p[3];
    cut[6] = keep.y * scale - p[7];
    cut[10] = keep.z * scale - p[11];
    cut[14] = keep.offset * scale - p[15];
    return cut;
}

} // namespace HPS::render
