#pragma once
#include <string>
#include <vector>

namespace HPS::render
{

/// The one OpenGL 4.5 core context of the process. It needs no window and no window system.
///
/// A hardware device is taken where EGL names one, else software without a surface. The context is not
/// destroyed at exit: drivers take themselves down in an order that nobody outside them can know. It may be
/// lost, though, when a driver is reset: then all of it has to be made anew.
class Device
{
public:
    /// Opens the context at the first call. Every later call gives the same object.
    static Device& instance();

    /// Makes the context current on the calling thread; false if there is none, see `failure`.
    bool makeCurrent();

    /// Lets the context go from the calling thread, so that another one can take it.
    void release();
    /// Of whatever device is current on this thread; opens none.
    static void releaseCurrent();

    /// True once the driver has taken the context away, with all that was in it.
    bool lost();

    /// As if the driver had done so.
    void lose() { lost_ = true; }

    /// Gives the context up, and opens another. False if there is none, see `failure`.
    bool reopen();

    /// `forget` is called before the context is given up; who comes last is called first.
    void whenContextGoes(void (*forget)()) { forgets_.push_back(forget); }

    /// Empty while all is well; else one line that says what was tried and what was found.
    std::string const& failure() const { return failure_; }

    /// Version and renderer as the driver names them.
    std::string const& description() const { return description_; }

    /// Most samples a pixel can have, at least 1.
    int maximumSamples() const { return maximumSamples_; }

    Device(Device const&) = delete;
    Device& operator=(Device const&) = delete;

private:
    Device();
    void open();
    bool open(void* display, char const* way);
    void* createContext(void* display, void* config) const;

    void* display_ = nullptr;
    void* context_ = nullptr;
    void* surface_ = nullptr;
    std::string failure_;
    std::string description_;
    int maximumSamples_ = 1;
    bool lost_ = false;
    std::vector<void (*)()> forgets_;
};

} // namespace HPS::render
