#pragma once
#include <hps/GeometryKey.h>
#include <hps/PolygonKit.h>

namespace HPS
{

// A flat face with its outline.
class PolygonKey : public GeometryKeyOf<HPS::Type::PolygonKey, PolygonKit>,
                   public PointChainOperations<PolygonKey>
{
public:
    using GeometryKeyOf::GeometryKeyOf;
    std::size_t GetPointCount() const; // without a copy
};

} // namespace HPS
