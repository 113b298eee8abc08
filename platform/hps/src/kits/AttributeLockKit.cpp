#include "kit_operations.h"

namespace HPS
{

HPS_DEFINE_KIT(AttributeLock)

} // namespace HPS
