#pragma once
#include <hps/Kit.h>
#include <hps/Window.h>

namespace HPS
{

// How much a window draws at an update, and for how long.
struct UpdateOptionsData {
    std::optional<Window::UpdateType> updateType;
    std::optional<double> timeLimit;

    bool operator==(UpdateOptionsData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{Aspect{1, "UpdateType", &UpdateOptionsData::updateType},
                          Aspect{2, "TimeLimit", &UpdateOptionsData::timeLimit}};
    }
};
static_assert(CompleteKit<UpdateOptionsData>);

template <class Self> class UpdateOptionsOperations : public Operations<Self>
{
public:
    using Data = UpdateOptionsData;

    HPS_ASPECT(UpdateType, Window::UpdateType, updateType)
    // Seconds after which a picture is shown unfinished; 0 for no limit.
    HPS_ASPECT(TimeLimit, double, timeLimit)
};

class UpdateOptionsKit : public Kit<UpdateOptionsKit, UpdateOptionsOperations>
{
public:
    static UpdateOptionsKit GetDefault();
};

class UpdateOptionsControl : public Control<UpdateOptionsControl, UpdateOptionsOperations>
{
public:
    using Control::Control;
};

} // namespace HPS
