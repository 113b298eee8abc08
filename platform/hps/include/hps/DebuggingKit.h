#pragma once
#include <hps/Kit.h>

namespace HPS
{

// What a window shows of its own workings.
struct DebuggingData {
    std::optional<bool> resourceMonitor;

    bool operator==(DebuggingData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{Aspect{1, "ResourceMonitor", &DebuggingData::resourceMonitor}};
    }
};
static_assert(CompleteKit<DebuggingData>);

template <class Self> class DebuggingOperations : public Operations<Self>
{
public:
    using Data = DebuggingData;

    // Figures of use of memory and time, over the picture.
    HPS_ASPECT(ResourceMonitor, bool, resourceMonitor)
};

class DebuggingKit : public Kit<DebuggingKit, DebuggingOperations>
{
public:
    static DebuggingKit GetDefault();
};

class DebuggingControl : public Control<DebuggingControl, DebuggingOperations>
{
public:
    using Control::Control;
};

} // namespace HPS
