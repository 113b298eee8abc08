#pragma once
#include <hps/Kit.h>

namespace HPS
{

// What is known about a window and the screen it is shown on. Lengths in centimetres, resolutions in pixels a
// centimetre. A window that no screen shows is measured as on one of its own size with square pixels.
struct WindowInfoData {
    std::optional<std::tuple<unsigned int, unsigned int>> physicalPixels;
    std::optional<std::tuple<float, float>> physicalSize;
    std::optional<std::tuple<unsigned int, unsigned int>> windowPixels;
    std::optional<std::tuple<float, float>> windowSize;
    std::optional<std::tuple<float, float>> resolution;
    std::optional<float> windowAspectRatio;
    std::optional<float> pixelAspectRatio;

    bool operator==(WindowInfoData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{Aspect{1, "PhysicalPixels", &WindowInfoData::physicalPixels},
                          Aspect{2, "PhysicalSize", &WindowInfoData::physicalSize},
                          Aspect{3, "WindowPixels", &WindowInfoData::windowPixels},
                          Aspect{4, "WindowSize", &WindowInfoData::windowSize},
                          Aspect{5, "Resolution", &WindowInfoData::resolution},
                          Aspect{6, "WindowAspectRatio", &WindowInfoData::windowAspectRatio},
                          Aspect{7, "PixelAspectRatio", &WindowInfoData::pixelAspectRatio}};
    }
};
static_assert(CompleteKit<WindowInfoData>);

template <class Self> class WindowInfoOperations : public Operations<Self>
{
public:
    using Data = WindowInfoData;

    // Of the whole screen.
    bool ShowPhysicalPixels(unsigned int& width, unsigned int& height) const
    {
        return detail::show<&Data::physicalPixels>(this->self(), width, height);
    }
    bool ShowPhysicalSize(float& width, float& height) const
    {
        return detail::show<&Data::physicalSize>(this->self(), width, height);
    }
    // Of the part that is drawn into.
    bool ShowWindowPixels(unsigned int& width, unsigned int& height) const
    {
        return detail::show<&Data::windowPixels>(this->self(), width, height);
    }
    bool ShowWindowSize(float& width, float& height) const
    {
        return detail::show<&Data::windowSize>(this->self(), width, height);
    }
    bool ShowResolution(float& horizontal, float& vertical) const
    {
        return detail::show<&Data::resolution>(this->self(), horizontal, vertical);
    }
    // Width over height, in pixels.
    bool ShowWindowAspectRatio(float& ratio) const
    {
        return detail::show<&Data::windowAspectRatio>(this->self(), ratio);
    }
    // Width over height of one pixel.
    bool ShowPixelAspectRatio(float& ratio) const
    {
        return detail::show<&Data::pixelAspectRatio>(this->self(), ratio);
    }
};

// A copy for the caller to read.
class WindowInfoKit : public Kit<WindowInfoKit, WindowInfoOperations>
{
};

// The same, as it stands at each call. False for a window that is gone.
class WindowInfoControl : public WindowInfoOperations<WindowInfoControl>
{
public:
    using Data = WindowInfoData;
    explicit WindowInfoControl(Key const& window) : window_(window) {}
    Data data() const;

private:
    Key window_;
};

} // namespace HPS
