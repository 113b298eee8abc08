#pragma once
#include <hps/LineKit.h>

namespace HPS
{

// A flat face with its outline; at least one point. The first point may stand again at the end.
class PolygonKit : public GeometryKitOf<PolygonKit, PointChain>, public PointChainOperations<PolygonKit>
{
};

} // namespace HPS
