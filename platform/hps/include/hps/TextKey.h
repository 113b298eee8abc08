#pragma once
#include <hps/GeometryKey.h>
#include <hps/TextKit.h>

namespace HPS
{

// A text in space.
class TextKey : public GeometryKeyOf<HPS::Type::TextKey, TextKit>
{
public:
    using GeometryKeyOf::GeometryKeyOf;
};

} // namespace HPS
