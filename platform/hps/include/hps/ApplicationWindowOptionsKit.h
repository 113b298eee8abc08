#pragma once
#include <hps/Kit.h>
#include <hps/Window.h>

namespace HPS
{

// How a canvas is made. What is not set takes its default.
struct ApplicationWindowOptionsData {
    std::optional<Window::Driver> driver;                           // Default3D
    std::optional<std::tuple<bool, unsigned int>> antiAliasCapable; // on, with 4 samples a pixel

    bool operator==(ApplicationWindowOptionsData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{Aspect{1, "Driver", &ApplicationWindowOptionsData::driver},
                          Aspect{2, "AntiAliasCapable", &ApplicationWindowOptionsData::antiAliasCapable}};
    }
};
static_assert(CompleteKit<ApplicationWindowOptionsData>);

template <class Self> class ApplicationWindowOptionsOperations : public Operations<Self>
{
public:
    using Data = ApplicationWindowOptionsData;

    HPS_ASPECT(Driver, Window::Driver, driver)
    // Samples a pixel, brought into what the device can do.
    Self& SetAntiAliasCapable(bool state, unsigned int samples = 4)
    {
        return detail::set<&Data::antiAliasCapable>(this->self(), std::tuple{state, samples});
    }
    Self& UnsetAntiAliasCapable() { return detail::unset<&Data::antiAliasCapable>(this->self()); }
    bool ShowAntiAliasCapable(bool& state, unsigned int& samples) const
    {
        return detail::show<&Data::antiAliasCapable>(this->self(), state, samples);
    }
};

class ApplicationWindowOptionsKit
    : public Kit<ApplicationWindowOptionsKit, ApplicationWindowOptionsOperations>
{
};

} // namespace HPS
