#include "kit_operations.h"

namespace HPS
{

HPS_DEFINE_KIT(Performance)

PerformanceKit PerformanceKit::GetDefault()
{
    PerformanceKit kit;
    using namespace Performance;
    kit.SetDisplayLists(DisplayLists::Segment).SetTextHardwareAcceleration(true);
    kit.SetStaticModel(StaticModel::Attribute).SetStaticConditions(StaticConditions::Independent);
    return kit;
}

} // namespace HPS
