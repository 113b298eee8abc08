#include "kit_operations.h"

namespace HPS
{

HPS_DEFINE_KIT(ContourLine)

ContourLineKit ContourLineKit::GetDefault()
{
    ContourLineKit kit;
    kit.SetVisibility(false).SetPositions(1, 0).SetLighting(true);
    return kit;
}

} // namespace HPS
