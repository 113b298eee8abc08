#pragma once
#include <hps/GeometryKey.h>
#include <hps/NURBSCurveKit.h>

namespace HPS
{

// A rational curve.
class NURBSCurveKey : public GeometryKeyOf<HPS::Type::NURBSCurveKey, NURBSCurveKit>,
                      public NURBSCurveOperations<NURBSCurveKey>
{
public:
    using GeometryKeyOf::GeometryKeyOf;
};

} // namespace HPS
