#pragma once
#include <hps/CircleKit.h>
#include <hps/GeometryKey.h>

namespace HPS
{

// A circle, filled where faces are visible.
class CircleKey : public GeometryKeyOf<HPS::Type::CircleKey, CircleKit>, public CircleOperations<CircleKey>
{
public:
    using GeometryKeyOf::GeometryKeyOf;
};

} // namespace HPS
