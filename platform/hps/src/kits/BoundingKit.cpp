#include "kit_operations.h"

namespace HPS
{

HPS_DEFINE_KIT(Bounding)

} // namespace HPS
