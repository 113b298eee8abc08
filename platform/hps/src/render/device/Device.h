#pragma once
#include <string>

namespace HPS::render
{

/// The one OpenGL 4.5 core context of the process. It needs no window and no window system.
///
/// A hardware device is taken where EGL names one, else software without a surface. The context is never
/// destroyed: drivers take themselves down at exit in an order that nobody outside them can know.
class Device
{
public:
    /// Opens the context at the first call. Every later call gives the same object.
    static Device& instance();

    /// Makes the context current on the calling thread; false if there is none, see `failure`.
    bool makeCurrent();

    /// Lets the context go from the calling thread, so that another one can take it.
    void release();

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
    bool open(void* display, char const* way);

    void* display_ = nullptr;
    void* context_ = nullptr;
    void* surface_ = nullptr;
    std::string failure_;
    std::string description_;
    int maximumSamples_ = 1;
};

} // namespace HPS::render
