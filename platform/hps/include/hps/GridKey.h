#pragma once
#include <hps/GeometryKey.h>
#include <hps/GridKit.h>

namespace HPS
{

// A grid.
class GridKey : public GeometryKeyOf<HPS::Type::GridKey, GridKit>, public GridOperations<GridKey>
{
public:
    using GeometryKeyOf::GeometryKeyOf;
};

} // namespace HPS
