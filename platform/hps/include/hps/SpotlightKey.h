#pragma once
#include <hps/GeometryKey.h>
#include <hps/SpotlightKit.h>

namespace HPS
{

// Light from a place towards another, within a cone.
class SpotlightKey : public GeometryKeyOf<HPS::Type::SpotlightKey, SpotlightKit>,
                     public SpotlightOperations<SpotlightKey>
{
public:
    using GeometryKeyOf::GeometryKeyOf;
};

} // namespace HPS
