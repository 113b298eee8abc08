#pragma once
#include <hps/Kit.h>
#include <hps/Window.h>

namespace HPS
{

// How a canvas is made. What is not set takes its default.
struct ApplicationWindowOptionsData {
    std::optional<Window::Driver> driver;                           // Default3D
    std::optional<std::tuple<bool, unsigned int>> antiAliasCapable; // on, with 4 samples a pixel
    std::optional<std::int64_t> platformData; // the native window, as a number; none draws off screen
    std::optional<bool> framebufferRetention; // off: the picture is drawn anew when it comes to light

    bool operator==(ApplicationWindowOptionsData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{
            Aspect{1, "Driver", &ApplicationWindowOptionsData::driver},
            Aspect{2, "AntiAliasCapable", &ApplicationWindowOptionsData::antiAliasCapable},
            Aspect{3, "PlatformData", &ApplicationWindowOptionsData::platformData},
            Aspect{4, "FramebufferRetention", &ApplicationWindowOptionsData::framebufferRetention}};
    }
};
static_assert(CompleteKit<ApplicationWindowOptionsData>);

template <class Self> class ApplicationWindowOptionsOperations : public Operations<Self>
{
public:
    using Data = ApplicationWindowOptionsData;

    HPS_ASPECT(Driver, Window::Driver, driver)
    // Samples a pixel, brought into what the device can do.
    HPS_ASPECT_PARTS(AntiAliasCapable, antiAliasCapable, (bool state, unsigned int samples = 4),
                     (bool& state, unsigned int& samples), state, samples)
    HPS_ASPECT(PlatformData, std::int64_t, platformData)
    HPS_ASPECT(FramebufferRetention, bool, framebufferRetention)
};

class ApplicationWindowOptionsKit
    : public Kit<ApplicationWindowOptionsKit, ApplicationWindowOptionsOperations>
{
public:
    static ApplicationWindowOptionsKit GetDefault()
    {
        ApplicationWindowOptionsKit kit;
        kit.SetDriver(Window::Driver::Default3D).SetAntiAliasCapable(true).SetPlatformData(0);
        return kit.SetFramebufferRetention(false);
    }
};

} // namespace HPS
