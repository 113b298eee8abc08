#pragma once
#include <hps/Point.h>
#include <hps/ShellRelation.h>
#include <span>

namespace HPS
{

// How the closed outline `a` lies to `b`, both seen along the normal of the larger one. The last point is
// joined to the first; a first point that stands again at the end does no harm. What is nearer than a
// millionth of the extent counts as touching. An outline without area holds nothing.
Shell::Relation outlineRelation(std::span<Point const> a, std::span<Point const> b);

// The same for the boxes around them.
Shell::Relation extentRelation(std::span<Point const> a, std::span<Point const> b);

} // namespace HPS
