#include "Device.h"
#include <array>
#include <cstdio>
#include <cstring>
#include <epoxy/egl.h>
#include <epoxy/gl.h>
#include <vector>

namespace HPS::render
{
namespace
{

bool lists(char const* extensions, char const* name)
{
    return extensions != nullptr && std::strstr(extensions, name) != nullptr;
}

std::string text(EGLint code)
{
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "0x%04x", unsigned(code));
    return text.data();
}
std::string eglCode()
{
    return text(eglGetError());
}

std::vector<EGLDeviceEXT> devices(bool hardware)
{
    std::array<EGLDeviceEXT, 16> all{};
    EGLint count = 0;
    std::vector<EGLDeviceEXT> wanted;
    if (eglQueryDevicesEXT(EGLint(all.size()), all.data(), &count) == EGL_FALSE) return wanted;
    for (EGLint i = 0; i < count; ++i) {
        bool const software =
            lists(eglQueryDeviceStringEXT(all[i], EGL_EXTENSIONS), "EGL_MESA_device_software");
        if (software != hardware) wanted.push_back(all[i]);
    }
    return wanted;
}

} // namespace

Device& Device::instance()
{
    static Device* const device = new Device;
    return *device;
}

Device::Device()
{
    open();
}

void Device::open()
{
    failure_.clear();
    char const* client = eglQueryString(EGL_NO_DISPLAY, EGL_EXTENSIONS);
    bool const enumerates =
        lists(client, "EGL_EXT_platform_device") && lists(client, "EGL_EXT_device_enumeration");
    auto openDevices = [&](bool hardware) {
        if (!enumerates) return false;
        for (EGLDeviceEXT device : devices(hardware))
            if (open(eglGetPlatformDisplayEXT(EGL_PLATFORM_DEVICE_EXT, device, nullptr),
                     hardware ? "hardware device" : "software device"))
                return true;
        return false;
    };
    bool const opened =
        openDevices(true) ||
        (lists(client, "EGL_MESA_platform_surfaceless") &&
         open(eglGetPlatformDisplayEXT(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr),
              "surfaceless platform")) ||
        openDevices(false) || open(eglGetDisplay(EGL_DEFAULT_DISPLAY), "default display");
    if (opened)
        failure_.clear();
    else
        failure_ = "OpenGL 4.5 core is needed and not offered here (" + failure_ +
                   "). A newer graphics driver may bring it; Mesa's software rendering always does: install "
                   "its EGL drivers (libegl-mesa0, libgl1-mesa-dri) and set LIBGL_ALWAYS_SOFTWARE=1.";
}

bool Device::open(void* display, char const* way)
{
    auto refuse = [&](std::string const& why) {
        failure_ += (failure_.empty() ? "" : "; ") + std::string(way) + ": " + why;
        if (context_ != nullptr) eglDestroyContext(display, context_);
        if (surface_ != nullptr) eglDestroySurface(display, surface_);
        context_ = surface_ = nullptr;
        return false;
    };
    if (display == EGL_NO_DISPLAY) return refuse("no display, EGL error " + eglCode());
    EGLint major = 0, minor = 0;
    if (eglInitialize(display, &major, &minor) == EGL_FALSE)
        return refuse("no start, EGL error " + eglCode());
    if (eglBindAPI(EGL_OPENGL_API) == EGL_FALSE) return refuse("EGL offers no desktop OpenGL");

    char const* extensions = eglQueryString(display, EGL_EXTENSIONS);
    bool const surfaceless = lists(extensions, "EGL_KHR_surfaceless_context");
    EGLConfig config = EGL_NO_CONFIG_KHR;
    if (!surfaceless || !lists(extensions, "EGL_KHR_no_config_context")) {
        std::array const wanted{EGL_SURFACE_TYPE, EGL_PBUFFER_BIT, EGL_RENDERABLE_TYPE, EGL_OPENGL_BIT,
                                EGL_NONE};
        EGLint count = 0;
        if (eglChooseConfig(display, wanted.data(), &config, 1, &count) == EGL_FALSE || count == 0)
            return refuse("no configuration for OpenGL");
    }
    context_ = createContext(display, config);
    if (context_ == nullptr) return refuse("the driver gives no 4.5 core context, EGL error " + eglCode());
    if (!surfaceless) {
        std::array const size{EGL_WIDTH, 1, EGL_HEIGHT, 1, EGL_NONE};
        surface_ = eglCreatePbufferSurface(display, config, size.data());
    }
    if (eglMakeCurrent(display, surface_, surface_, context_) == EGL_FALSE)
        return refuse("the context cannot be made current, EGL error " + eglCode());
    display_ = display;
    auto named = [](GLenum name) { return std::string(reinterpret_cast<char const*>(glGetString(name))); };
    description_ = "OpenGL " + named(GL_VERSION) + ", " + named(GL_RENDERER) + " (" + way + ")";
    glGetIntegerv(GL_MAX_SAMPLES, &maximumSamples_);
    return true;
}

void* Device::createContext(void* display, void* config) const
{
    std::array version{EGL_CONTEXT_MAJOR_VERSION,
                       4,
                       EGL_CONTEXT_MINOR_VERSION,
                       5,
                       EGL_CONTEXT_OPENGL_PROFILE_MASK,
                       EGL_CONTEXT_OPENGL_CORE_PROFILE_BIT,
                       EGL_CONTEXT_OPENGL_RESET_NOTIFICATION_STRATEGY,
                       EGL_LOSE_CONTEXT_ON_RESET,
                       EGL_NONE};
    if (void* const context = eglCreateContext(display, config, EGL_NO_CONTEXT, version.data()))
        return context;
    version[6] = EGL_NONE; // a driver that cannot tell of resets
    return eglCreateContext(display, config, EGL_NO_CONTEXT, version.data());
}

bool Device::lost()
{
    if (!lost_ && context_ != nullptr && eglGetCurrentContext() == context_)
        lost_ = glGetGraphicsResetStatus() != GL_NO_ERROR;
    return lost_;
}

bool Device::reopen()
{
    if (context_ != nullptr) {
        eglMakeCurrent(display_, surface_, surface_, context_);
        // What is called may ask for something to be made anew, and have it forgotten again.
        while (!forgets_.empty()) {
            auto const forget = forgets_.back();
            forgets_.pop_back();
            forget();
        }
        eglMakeCurrent(display_, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
        if (surface_ != nullptr) eglDestroySurface(display_, surface_);
        eglDestroyContext(display_, context_);
        context_ = surface_ = nullptr;
    }
    lost_ = false;
    open();
    return context_ != nullptr;
}

void Device::release()
{
    if (context_ != nullptr && eglGetCurrentContext() == context_)
        eglMakeCurrent(display_, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
}

void Device::releaseCurrent()
{
    if (EGLDisplay const display = eglGetCurrentDisplay(); display != EGL_NO_DISPLAY)
        eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
}

bool Device::makeCurrent()
{
    if (context_ == nullptr) return false;
    if (eglGetCurrentContext() == context_) return true;
    if (eglMakeCurrent(display_, surface_, surface_, context_) == EGL_TRUE) return true;
    EGLint const code = eglGetError();
    lost_ = code == EGL_CONTEXT_LOST;
    failure_ = lost_ ? "The graphics driver was reset."
                     : "The OpenGL context is in use on another thread, EGL error " + text(code) + ".";
    return false;
}

} // namespace HPS::render
