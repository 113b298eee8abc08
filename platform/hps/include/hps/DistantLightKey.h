#pragma once
#include <hps/DistantLightKit.h>
#include <hps/GeometryKey.h>

namespace HPS
{

// Light from infinitely far away.
class DistantLightKey : public GeometryKeyOf<HPS::Type::DistantLightKey, DistantLightKit>,
                        public DistantLightOperations<DistantLightKey>
{
public:
    using GeometryKeyOf::GeometryKeyOf;
};

} // namespace HPS
