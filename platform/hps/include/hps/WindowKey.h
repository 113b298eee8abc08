#pragma once
#include <hps/SegmentKey.h>

namespace HPS
{

// What is known about a canvas's window.
class WindowInfoControl
{
public:
    explicit WindowInfoControl(KeyIndex window) : window_(window) {}

    // Of the part that is drawn into. False for a window that is gone.
    bool ShowWindowPixels(unsigned int& width, unsigned int& height) const;
    // Width over height.
    bool ShowWindowAspectRatio(float& ratio) const;

private:
    KeyIndex window_;
};

// The segment at the head of a canvas: what is set here holds for all that the canvas shows.
class WindowKey : public KeyOf<HPS::Type::WindowKey, SegmentKey>
{
public:
    using KeyOf::KeyOf;

    WindowInfoControl GetWindowInfoControl() const { return WindowInfoControl(Index()); }
};

} // namespace HPS
