#include "ZELOpConfig.h"

#include <algorithm>
#include <array>

namespace ZelVizBase
{

namespace
{

template <class From, class To> struct Meaning {
    From from;
    To to;
};

using HPS::ModifierKeys;
using HPS::MouseButtons;

constexpr std::array buttons{
    Meaning{ButtonLeft, MouseButtons::ButtonLeft()},     Meaning{ButtonRight, MouseButtons::ButtonRight()},
    Meaning{ButtonMiddle, MouseButtons::ButtonMiddle()}, Meaning{ButtonX1, MouseButtons::ButtonX1()},
    Meaning{ButtonX2, MouseButtons::ButtonX2()},
};

constexpr std::array modifiers{
    Meaning{KeyCapsLock, ModifierKeys::KeyCapsLock()},
    Meaning{KeyNumLock, ModifierKeys::KeyNumLock()},
    Meaning{KeyScrollLock, ModifierKeys::KeyScrollLock()},
    Meaning{KeyRightShift, ModifierKeys::KeyRightShift()},
    Meaning{KeyLeftShift, ModifierKeys::KeyLeftShift()},
    Meaning{KeyShift, ModifierKeys::KeyShift()},
    Meaning{KeyRightControl, ModifierKeys::KeyRightControl()},
    Meaning{KeyLeftControl, ModifierKeys::KeyLeftControl()},
    Meaning{KeyControl, ModifierKeys::KeyControl()},
    Meaning{KeyRightAlt, ModifierKeys::KeyRightAlt()},
    Meaning{KeyLeftAlt, ModifierKeys::KeyLeftAlt()},
    Meaning{KeyAlt, ModifierKeys::KeyAlt()},
    Meaning{KeyRightMeta, ModifierKeys::KeyRightMeta()},
    Meaning{KeyLeftMeta, ModifierKeys::KeyLeftMeta()},
    Meaning{KeyMeta, ModifierKeys::KeyMeta()},
};

template <class From, class To, std::size_t Count>
To sum(std::set<From> const& members, std::array<Meaning<From, To>, Count> const& table)
{
    To result;
    for (From const member : members) {
        auto const row = std::ranges::find(table, member, &Meaning<From, To>::from);
        if (row != table.end()) result |= row->to;
    }
    return result;
}

} // namespace

ZELOpConfig::ZELOpConfig(MouseButton button, KeyModifier modifier, Priority priority) : Rank(priority)
{
    AddModifier(modifier);
    AddButton(button);
}

void ZELOpConfig::AddButton(MouseButton button)
{
    if (button != ButtonNone) Buttons.insert(button);
}

void ZELOpConfig::AddModifier(KeyModifier modifier)
{
    if (modifier != KeyNone) Modifiers.insert(modifier);
}

HPS::MouseButtons ZELOpConfig::GetButtons() const
{
    return sum(Buttons, buttons);
}

HPS::ModifierKeys ZELOpConfig::GetModifiers() const
{
    return sum(Modifiers, modifiers);
}

} // namespace ZelVizBase
