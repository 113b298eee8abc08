#include "kit_operations.h"
#include <hps/WindowKey.h>

namespace HPS
{

HPS_DEFINE_WINDOW_KIT(Debugging)

DebuggingKit DebuggingKit::GetDefault()
{
    DebuggingKit kit;
    kit.SetResourceMonitor(false);
    return kit;
}

} // namespace HPS
