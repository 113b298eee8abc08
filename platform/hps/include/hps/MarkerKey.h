#pragma once
#include <hps/GeometryKey.h>
#include <hps/MarkerKit.h>

namespace HPS
{

// A point shown as a glyph.
class MarkerKey : public GeometryKeyOf<HPS::Type::MarkerKey, MarkerKit>, public MarkerOperations<MarkerKey>
{
public:
    using GeometryKeyOf::GeometryKeyOf;
};

} // namespace HPS
