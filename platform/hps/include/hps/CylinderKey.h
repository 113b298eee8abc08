#pragma once
#include <hps/CylinderKit.h>
#include <hps/GeometryKey.h>

namespace HPS
{

// A tube along a chain of points.
class CylinderKey : public GeometryKeyOf<HPS::Type::CylinderKey, CylinderKit>,
                    public CylinderOperations<CylinderKey>
{
public:
    using GeometryKeyOf::GeometryKeyOf;
};

} // namespace HPS
