#pragma once
#include <hps/Key.h>

namespace HPS
{

// Any geometry.
class GeometryKey : public KeyOf<Type::GeometryKey>
{
public:
    using KeyOf::KeyOf;
};

} // namespace HPS
