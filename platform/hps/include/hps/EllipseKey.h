#pragma once
#include <hps/EllipseKit.h>
#include <hps/GeometryKey.h>

namespace HPS
{

// An ellipse.
class EllipseKey : public GeometryKeyOf<HPS::Type::EllipseKey, EllipseKit>,
                   public EllipseOperations<EllipseKey>
{
public:
    using GeometryKeyOf::GeometryKeyOf;
};

} // namespace HPS
