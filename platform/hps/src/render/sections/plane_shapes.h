#pragma once
#include "cut_planes.h"

namespace HPS::render
{

/// A disc or a square on a plane, of a radius or half a side of `radius`, around the point nearest to
/// `centre`: three corners a triangle.
std::vector<Vec3> planeShape(CutPlane const& plane, Vec3 const& centre, double radius, bool round);

} // namespace HPS::render
