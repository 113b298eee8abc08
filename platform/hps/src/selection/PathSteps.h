#pragma once
#include "slot_list.h"
#include <hps/KeyPath.h>

namespace HPS::selection
{

/// Ways through the scene that share their steps where they begin alike.
class PathSteps
{
public:
    static constexpr std::uint32_t none = ~0u;

    std::uint32_t add(scene::SlotIndex below, std::uint32_t above)
    {
        steps_.push_back({below, above});
        return std::uint32_t(steps_.size() - 1);
    }
    /// From the step up to the root.
    KeyPath pathOf(std::uint32_t step) const;

private:
    struct Step {
        scene::SlotIndex slot;
        std::uint32_t above;
    };
    std::vector<Step> steps_;
};

} // namespace HPS::selection
