#pragma once
#include <functional>
#include <hps/Canvas.h>
#include <memory>

namespace HPS
{

/// Shows a canvas's pictures in a window of the platform. A picture is the same whether or not one is there.
class Presenter
{
public:
    virtual ~Presenter() = default;

    /// Of the window's drawing area now, in pixels of the screen; the picture is made in this size. False if
    /// the window is gone.
    virtual bool showSize(int& width, int& height) const = 0;

    /// The screen that the window is on. False, leaving `screen` as it is, if that is not known.
    struct Screen {
        unsigned int width, height; ///< pixels
        float widthCentimetres, heightCentimetres;
    };
    virtual bool showScreen(Screen& /*screen*/) const { return false; }

    /// Brings the picture to the screen. Nothing is kept of it after the call.
    virtual void present(Picture const& picture) = 0;

    /// The window is on the screen. One that is not asks for a picture once it is.
    virtual bool isSeen() const { return true; }

    /// Somebody is there for the two calls below, so that a picture can be made beside the caller. If not, it
    /// is made and shown before an update returns.
    virtual bool callsBack() const { return false; }
    /// Has `next` called once, soon, on the thread that shows pictures; may be called from any thread.
    virtual void callBack(std::function<void()> /*next*/) {}
    /// Has `next` called once, on this thread, when all that is due is done.
    virtual void whenIdle(std::function<void()> /*next*/) {}

    /// Has `next` called once, when it is time for the picture after this one, and never if the window goes
    /// before. False if nobody is there to call it.
    virtual bool requestFrame(std::function<void()> /*next*/) { return false; }

protected:
    Presenter() = default;
    Presenter(Presenter const&) = delete;
    Presenter& operator=(Presenter const&) = delete;
};

/// Makes a presenter for a window. A toolkit's glue registers one before the first canvas is made on it.
using PresenterMaker = std::unique_ptr<Presenter> (*)(WindowHandle);
/// Gives the one before.
PresenterMaker setPresenterMaker(PresenterMaker maker);

/// Null if nobody knows how to show pictures in that window.
std::unique_ptr<Presenter> makePresenter(WindowHandle window);

} // namespace HPS
