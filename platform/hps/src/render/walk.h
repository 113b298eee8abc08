// The way through a scene that all who draw or measure it take.
#pragma once
#include "net_attributes.h"
#include <ranges>
#include <vector>

namespace HPS::render
{

/// Calls visit(segment, net) for `top` and everything below it, through children and includes, owners first
/// and siblings in order, with what holds there. `above` holds above `top`. Where visit gives false, nothing
/// below is visited. The depth of a scene costs memory, not stack.
template <class Visit> void walk(scene::NetFold& fold, scene::NetAttributes const& above,
                                 scene::SegmentRecord const& top, Visit&& visit)
{
    struct Step {
        scene::SegmentRecord const* segment;
        scene::NetAttributes parent;
    };
    std::vector<Step> open{{&top, above}};
    while (!open.empty()) {
        Step const step = std::move(open.back());
        open.pop_back();
        scene::SegmentRecord const& segment = *step.segment;
        scene::NetAttributes const net = fold.step(step.parent, segment);
        if (!visit(segment, net)) continue;
        auto push = [&](scene::SlotIndex slot, scene::NetAttributes const& parent) {
            if (auto const* const part = scene::store().at<scene::SegmentRecord>(slot))
                open.push_back({part, parent});
        };
        for (auto const slot : segment.includes | std::views::reverse) {
            auto const& include = *scene::store().at<scene::IncludeRecord>(slot);
            push(include.target, fold.through(net, include));
        }
        for (auto const slot : segment.children | std::views::reverse) push(slot, net);
    }
}

} // namespace HPS::render
