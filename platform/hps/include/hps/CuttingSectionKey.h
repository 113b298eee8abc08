#pragma once
#include <hps/CuttingSectionKit.h>
#include <hps/GeometryKey.h>

namespace HPS
{

// Planes that cut.
class CuttingSectionKey : public GeometryKeyOf<HPS::Type::CuttingSectionKey, CuttingSectionKit>,
                          public CuttingSectionOperations<CuttingSectionKey>
{
public:
    using GeometryKeyOf::GeometryKeyOf;
};

} // namespace HPS
