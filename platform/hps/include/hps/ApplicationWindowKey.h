#pragma once
#include <hps/ApplicationWindowOptionsKit.h>
#include <hps/WindowKey.h>

namespace HPS
{

// The window of a canvas.
class ApplicationWindowKey : public KeyOf<HPS::Type::ApplicationWindowKey, WindowKey>
{
public:
    using KeyOf::KeyOf;

    // As the canvas was made, with what it was left open filled in. False for a window that is gone.
    bool ShowWindowOptions(ApplicationWindowOptionsKit& kit) const;
};

} // namespace HPS
