#include "kit_operations.h"
#include <hps/WindowKey.h>

namespace HPS
{

HPS_DEFINE_WINDOW_KIT(UpdateOptions)

UpdateOptionsKit UpdateOptionsKit::GetDefault()
{
    UpdateOptionsKit kit;
    kit.SetUpdateType(Window::UpdateType::Default).SetTimeLimit(0);
    return kit;
}

} // namespace HPS
