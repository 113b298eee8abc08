#pragma once
#include <hps/CircularArcKit.h>

namespace HPS
{

// The piece of a disc between an arc and the centre.
class CircularWedgeKit : public GeometryKitOf<CircularWedgeKit, ArcPointsData>,
                         public ArcPointsOperations<CircularWedgeKit>
{
};

} // namespace HPS
