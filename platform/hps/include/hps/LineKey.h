#pragma once
#include <hps/GeometryKey.h>
#include <hps/LineKit.h>

namespace HPS
{

// A polyline.
class LineKey : public GeometryKeyOf<HPS::Type::LineKey, LineKit>, public PointChainOperations<LineKey>
{
public:
    using GeometryKeyOf::GeometryKeyOf;
    std::size_t GetPointCount() const; // without a copy
};

} // namespace HPS
