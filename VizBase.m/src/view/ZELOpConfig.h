#pragma once

#include "hps_api.h"

#include <set>

namespace ZelVizBase
{

/// Keys of a configuration of operators; the numbers are fixed.
enum ZELOperator : unsigned {
    OperatorOrbit = 1,
    OperatorPan = 2,
    OperatorZoom = 4,
    OperatorHighlight = 16,
    OperatorMouseWheel = 32,
};

enum MouseButton : unsigned {
    ButtonNone = 0,
    ButtonLeft = 1,
    ButtonRight = 2,
    ButtonMiddle = 4,
    ButtonX1 = 8,
    ButtonX2 = 16,
    ButtonWheel = 32, ///< turned, not pressed: none of the scene library's buttons
};

/// One key, or either of two.
enum KeyModifier : unsigned {
    KeyNone = 0,
    KeyCapsLock = 1,
    KeyNumLock = 2,
    KeyScrollLock = 4,
    KeyRightShift = 8,
    KeyLeftShift = 16,
    KeyShift = KeyRightShift | KeyLeftShift,
    KeyRightControl = 32,
    KeyLeftControl = 64,
    KeyControl = KeyRightControl | KeyLeftControl,
    KeyRightAlt = 128,
    KeyLeftAlt = 256,
    KeyAlt = KeyRightAlt | KeyLeftAlt,
    KeyRightMeta = 512,
    KeyLeftMeta = 1024,
    KeyMeta = KeyRightMeta | KeyLeftMeta,
};

/// The scene library's numbers.
enum Priority : unsigned { PriorityLow = 0, PriorityDefault = 1, PriorityHigh = 2 };

/// What starts an operator, and where it stands in the stack.
class ZELOpConfig
{
public:
    ZELOpConfig() = default;
    ZELOpConfig(MouseButton button, KeyModifier modifier, Priority priority);

    // 0 is not added.
    void AddButton(MouseButton button);
    void AddModifier(KeyModifier modifier);
    void SetPriority(Priority priority) { Rank = priority; }

    // All that were added, as the scene library has them; what it does not know adds nothing.
    HPS::MouseButtons GetButtons() const;
    HPS::ModifierKeys GetModifiers() const;
    Priority GetPriority() const { return Rank; }

private:
    std::set<KeyModifier> Modifiers;
    std::set<MouseButton> Buttons;
    Priority Rank = PriorityDefault;
};

} // namespace ZelVizBase
