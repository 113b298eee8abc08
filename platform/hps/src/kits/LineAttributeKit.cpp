#include "kit_operations.h"

namespace HPS
{

HPS_DEFINE_KIT(LineAttribute)

LineAttributeKit LineAttributeKit::GetDefault()
{
    LineAttributeKit kit;
    kit.SetPattern(UTF8()).SetWeight(1);
    return kit;
}

} // namespace HPS
