#pragma once
#include <cstdint>
#include <hps/Layout.h>
#include <hps/Sprocket.h>
#include <hps/View.h>
#include <hps/Window.h>
#include <vector>

namespace HPS
{

class WindowKey;

// Handle of a window of the platform, as its toolkit gives it; 0 for none.
using WindowHandle = std::uintptr_t;

// A picture: four bytes a pixel (red, green, blue, alpha), rows from the top down without gaps.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> pixels;
};

// What the last update of a canvas did and how long it took.
struct UpdateReport {
    double startMilliseconds = 0;   // opening the graphics device; 0 but for the first update of the process
    double compileMilliseconds = 0; // from the segments to a draw list
    double uploadMilliseconds = 0;  // of that, making meshes for the graphics device
    double drawMilliseconds = 0;
    double readMilliseconds = 0; // of the last `ReadPixels`
    std::uint64_t triangles = 0; // drawn, as are the following
    std::uint64_t lineSegments = 0;
    std::uint64_t markers = 0;
    std::uint32_t records = 0;       // showings of a mesh
    std::uint32_t culledRecords = 0; // showings that lie outside the window
    std::uint32_t drawCalls = 0;
    std::uint32_t compiledViews = 0; // draw lists made anew; 0 if only cameras changed
    std::uint32_t uploadedMeshes = 0;
};

// Told when an update is done.
class UpdateNotifier
{
public:
    explicit UpdateNotifier(bool succeeded = false) : succeeded_(succeeded) {}
    // True if the picture was made.
    bool Wait() const { return succeeded_; }

private:
    bool succeeded_;
};

// A picture that a layout of views is drawn into, shown in a window of the platform or in none.
class Canvas : public SprocketOf<HPS::Type::Canvas>
{
public:
    using SprocketOf::SprocketOf;

    WindowKey GetWindowKey() const;

    // Makes a layout with this one view and attaches it.
    Canvas& AttachViewAsLayout(View const& view);
    Canvas& AttachLayout(Layout const& layout);
    Canvas& DetachLayout();
    Layout GetAttachedLayout() const;
    // Of the attached layout.
    View GetFrontView() const;

    // Pictures a second that the library may draw by itself; 0, the default, draws on `Update` alone.
    Canvas& SetFrameRate(float framesPerSecond);
    float GetFrameRate() const;

    // In pixels, from 1 to 16384 each; anything else changes nothing. A canvas that is shown in a window
    // takes the window's size at each update.
    bool SetSize(int width, int height);
    bool ShowSize(int& width, int& height) const;

    // Brings the picture up to date. Where the last full picture took longer than the time limit, in seconds
    // and negative for none, or while a mouse button is held and pictures would not follow the hand, effects
    // and what is tiny are left out; the next update without a limit, or the release, brings the full
    // picture. False if no picture could be made, or not all of it, see `ShowFailure`.
    //
    // In a window this returns at once, with true: the window's event loop has the picture made by a thread
    // of the library when nothing else is due, and shows it; updates until then join. A call that concerns the
    // scene waits while that thread is at work. To wait for the picture itself, ask for it, or use the other
    // one, which waits in any case.
    bool Update(Window::UpdateType type = Window::UpdateType::Default, double timeLimit = -1) const;
    UpdateNotifier UpdateWithNotifier(Window::UpdateType type = Window::UpdateType::Default) const;

    // The picture as of the last update, the same bytes whether or not a window shows it. False before the
    // first.
    bool ReadPixels(Picture& picture) const;

    bool ShowUpdateReport(UpdateReport& report) const;
    // One line that tells why the last update made no picture; false if it made one.
    bool ShowFailure(UTF8& cause) const;
};

} // namespace HPS
