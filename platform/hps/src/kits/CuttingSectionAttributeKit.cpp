#include "kit_operations.h"

namespace HPS
{

HPS_DEFINE_KIT(CuttingSectionAttribute)

CuttingSectionAttributeKit CuttingSectionAttributeKit::GetDefault()
{
    CuttingSectionAttributeKit kit;
    using namespace CuttingSection;
    kit.SetCuttingLevel(CuttingLevel::Global).SetCappingLevel(CappingLevel::Segment);
    kit.SetCappingUsage(CappingUsage::Visibility).SetMaterialPreference(MaterialPreference::Explicit);
    kit.SetEdgeWeight(1).SetTolerance(0);
    return kit;
}

} // namespace HPS
