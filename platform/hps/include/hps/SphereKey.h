#pragma once
#include <hps/GeometryKey.h>
#include <hps/SphereKit.h>

namespace HPS
{

// A ball.
class SphereKey : public GeometryKeyOf<HPS::Type::SphereKey, SphereKit>, public SphereOperations<SphereKey>
{
public:
    using GeometryKeyOf::GeometryKeyOf;
};

} // namespace HPS
