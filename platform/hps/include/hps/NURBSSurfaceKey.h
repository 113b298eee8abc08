#pragma once
#include <hps/GeometryKey.h>
#include <hps/NURBSSurfaceKit.h>

namespace HPS
{

// A rational surface.
class NURBSSurfaceKey : public GeometryKeyOf<HPS::Type::NURBSSurfaceKey, NURBSSurfaceKit>,
                        public NURBSSurfaceOperations<NURBSSurfaceKey>
{
public:
    using GeometryKeyOf::GeometryKeyOf;
};

} // namespace HPS
