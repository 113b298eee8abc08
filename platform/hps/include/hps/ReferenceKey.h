#pragma once
#include <hps/GeometryKey.h>
#include <hps/ReferenceKit.h>

namespace HPS
{

// Shows a geometry of another place as if it stood here as well.
class ReferenceKey : public GeometryKeyOf<HPS::Type::ReferenceKey, ReferenceKit>,
                     public ReferenceOperations<ReferenceKey>
{
public:
    using GeometryKeyOf::GeometryKeyOf;
};

} // namespace HPS
