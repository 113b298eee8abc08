#include "kit_operations.h"

namespace HPS
{

HPS_DEFINE_KIT(Selectability)

SelectabilityKit SelectabilityKit::GetDefault()
{
    SelectabilityKit kit;
    kit.SetEverything(Selectability::Value::On).SetWindows(Selectability::Value::Off);
    return kit;
}

} // namespace HPS
