#include "Placing.h"
#include "net_attributes.h"
#include <algorithm>
#include <hps/CullingKit.h>
#include <hps/DrawingAttributeKit.h>

namespace HPS::render
{
namespace
{

std::int16_t limited(int value)
{
    return std::int16_t(std::clamp(value, -30000, 30000));
}

std::uint16_t share(float value)
{
    return value > 0 ? std::uint16_t(std::min(value, 1.0f) * 65535.0f + 0.5f) : std::uint16_t(0);
}

} // namespace

Placing placingOf(scene::NetState const& state)
{
    Placing placing;
    auto const& drawing = state.get<DrawingAttributeData>();
    placing.order = limited(state.priority.value_or(0) + drawing.deferral.value_or(0));
    placing.overlay = drawing.overlay.value_or(Drawing::Overlay::None);
    if (drawing.depthRange) {
        auto const [nearest, farthest] = *drawing.depthRange;
        placing.nearest = share(nearest);
        placing.farthest = share(farthest);
    }
    if (drawing.generalDisplacement)
        if (auto const [on, steps] = *drawing.generalDisplacement; on) placing.displacement = limited(steps);
    auto const& culling = state.get<CullingData>();
    if (culling.extent)
        if (auto const [on, pixels] = *culling.extent; on)
            placing.smallest = std::uint16_t(std::min(pixels, 65535u));
    return placing;
}

} // namespace HPS::render
