#pragma once
#include <cstdint>
#include <initializer_list>

namespace HPS
{

// A set of mouse buttons.
class MouseButtons
{
public:
    constexpr MouseButtons() = default;
    static constexpr MouseButtons ButtonLeft() { return MouseButtons(1); }
    static constexpr MouseButtons ButtonRight() { return MouseButtons(2); }
    static constexpr MouseButtons ButtonMiddle() { return MouseButtons(4); }
    static constexpr MouseButtons ButtonX1() { return MouseButtons(8); }
    static constexpr MouseButtons ButtonX2() { return MouseButtons(16); }

    constexpr bool Left() const { return Contains(ButtonLeft()); }
    constexpr bool Right() const { return Contains(ButtonRight()); }
    constexpr bool Middle() const { return Contains(ButtonMiddle()); }
    constexpr bool Empty() const { return bits_ == 0; }
    constexpr bool Contains(MouseButtons other) const { return (bits_ & other.bits_) == other.bits_; }

    constexpr MouseButtons Without(MouseButtons other) const
    {
        return MouseButtons(static_cast<std::uint8_t>(bits_ & ~other.bits_));
    }

    constexpr MouseButtons& operator|=(MouseButtons other)
    {
        bits_ |= other.bits_;
        return *this;
    }
    friend constexpr MouseButtons operator|(MouseButtons a, MouseButtons b) { return a |= b; }
    friend constexpr bool operator==(MouseButtons, MouseButtons) = default;

private:
    explicit constexpr MouseButtons(std::uint8_t bits) : bits_(bits) {}
    std::uint8_t bits_ = 0;
};

// A set of modifier keys. KeyShift() and its like stand for either of the two keys of that name.
class ModifierKeys
{
public:
    constexpr ModifierKeys() = default;
    static constexpr ModifierKeys KeyCapsLock() { return ModifierKeys(1); }
    static constexpr ModifierKeys KeyNumLock() { return ModifierKeys(2); }
    static constexpr ModifierKeys KeyScrollLock() { return ModifierKeys(4); }
    static constexpr ModifierKeys KeyRightShift() { return ModifierKeys(8); }
    static constexpr ModifierKeys KeyLeftShift() { return ModifierKeys(16); }
    static constexpr ModifierKeys KeyShift() { return ModifierKeys(24); }
    static constexpr ModifierKeys KeyRightControl() { return ModifierKeys(32); }
    static constexpr ModifierKeys KeyLeftControl() { return ModifierKeys(64); }
    static constexpr ModifierKeys KeyControl() { return ModifierKeys(96); }
    static constexpr ModifierKeys KeyRightAlt() { return ModifierKeys(128); }
    static constexpr ModifierKeys KeyLeftAlt() { return ModifierKeys(256); }
    static constexpr ModifierKeys KeyAlt() { return ModifierKeys(384); }
    static constexpr ModifierKeys KeyRightMeta() { return ModifierKeys(512); }
    static constexpr ModifierKeys KeyLeftMeta() { return ModifierKeys(1024); }
    static constexpr ModifierKeys KeyMeta() { return ModifierKeys(1536); }

    // Whether either key of the kind is held; and setting it.
    constexpr bool Shift() const { return holds(KeyShift()); }
    constexpr bool Control() const { return holds(KeyControl()); }
    constexpr bool Alt() const { return holds(KeyAlt()); }
    constexpr bool Meta() const { return holds(KeyMeta()); }
    constexpr ModifierKeys& Shift(bool held) { return put(KeyShift(), held); }
    constexpr ModifierKeys& Control(bool held) { return put(KeyControl(), held); }
    constexpr ModifierKeys& Alt(bool held) { return put(KeyAlt(), held); }
    constexpr ModifierKeys& Meta(bool held) { return put(KeyMeta(), held); }

    constexpr bool Empty() const { return bits_ == 0; }
    // True if for each kind of key the same holds in both: none held, or one of those that both allow.
    constexpr bool Matches(ModifierKeys wanted) const
    {
        for (auto const kind :
             {KeyCapsLock(), KeyNumLock(), KeyScrollLock(), KeyShift(), KeyControl(), KeyAlt(), KeyMeta()}) {
            bool const held = holds(kind), asked = wanted.holds(kind);
            if (held != asked || (held && (bits_ & wanted.bits_ & kind.bits_) == 0)) return false;
        }
        return true;
    }

    constexpr ModifierKeys& operator|=(ModifierKeys other)
    {
        bits_ |= other.bits_;
        return *this;
    }
    friend constexpr ModifierKeys operator|(ModifierKeys a, ModifierKeys b) { return a |= b; }
    friend constexpr bool operator==(ModifierKeys, ModifierKeys) = default;

private:
    explicit constexpr ModifierKeys(std::uint16_t bits) : bits_(bits) {}
    constexpr bool holds(ModifierKeys kind) const { return (bits_ & kind.bits_) != 0; }
    constexpr ModifierKeys& put(ModifierKeys kind, bool held)
    {
        bits_ = static_cast<std::uint16_t>(held ? bits_ | kind.bits_ : bits_ & ~kind.bits_);
        return *this;
    }
    std::uint16_t bits_ = 0;
};

} // namespace HPS
