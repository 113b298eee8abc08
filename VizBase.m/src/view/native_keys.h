#pragma once

#include "hps_api.h"

class QKeyEvent;

namespace ZelVizBase
{

/// The scene library numbers keys by virtual-key codes, which are native on one platform only: elsewhere
/// Qt's key is translated, which serves X11, Wayland and windows that no server shows alike. 0 for a key
/// without a code.
HPS::KeyboardCode keyCode(QKeyEvent const& event);

} // namespace ZelVizBase
