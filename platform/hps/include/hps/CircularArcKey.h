#pragma once
#include <hps/CircularArcKit.h>
#include <hps/GeometryKey.h>

namespace HPS
{

// An arc of a circle.
class CircularArcKey : public GeometryKeyOf<HPS::Type::CircularArcKey, CircularArcKit>,
                       public ArcPointsOperations<CircularArcKey>
{
public:
    using GeometryKeyOf::GeometryKeyOf;
};

} // namespace HPS
