#pragma once
#include <hps/CircularWedgeKit.h>
#include <hps/GeometryKey.h>

namespace HPS
{

// A piece of a disc.
class CircularWedgeKey : public GeometryKeyOf<HPS::Type::CircularWedgeKey, CircularWedgeKit>,
                         public ArcPointsOperations<CircularWedgeKey>
{
public:
    using GeometryKeyOf::GeometryKeyOf;
};

} // namespace HPS
