#pragma once
#include <hps/EllipticalArcKit.h>
#include <hps/GeometryKey.h>

namespace HPS
{

// A part of an ellipse.
class EllipticalArcKey : public GeometryKeyOf<HPS::Type::EllipticalArcKey, EllipticalArcKit>,
                         public EllipticalArcOperations<EllipticalArcKey>
{
public:
    using GeometryKeyOf::GeometryKeyOf;
};

} // namespace HPS
