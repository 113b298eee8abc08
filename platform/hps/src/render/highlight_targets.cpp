#include "highlight_targets.h"
#include <algorithm>

namespace HPS::render
{

using namespace scene;

namespace
{

/// True if `keys`, from the root's end down, occur in their order above an occurrence, or stand for the step
/// that leads to it. Other keys may lie between.
class Above
{
public:
    Above(OccurrenceTree const& tree, std::span<KeyIndex const> path) : tree_(tree), path_(path) {}

    bool operator()(OccurrenceId id, std::span<KeyIndex const> keys)
    {
        rest_ = keys;
        match(tree_.includeOf(id));
        for (id = tree_.parentOf(id); id != noOccurrence && !rest_.empty(); id = tree_.parentOf(id)) {
            match(tree_.segmentOf(id));
            match(tree_.includeOf(id));
        }
        for (auto key = path_.rbegin() + 1; key < path_.rend() && !rest_.empty(); ++key) match(key->slot);
        return rest_.empty();
    }

private:
    void match(SlotIndex slot)
    {
        if (slot != 0 && !rest_.empty() && rest_.back().slot == slot) rest_ = rest_.first(rest_.size() - 1);
    }

    OccurrenceTree const& tree_;
    std::span<KeyIndex const> path_;
    std::span<KeyIndex const> rest_;
};

/// Neither it nor what owns it is included anywhere or belongs to a window.
bool isNeverShown(KeyIndex key)
{
    SegmentRecord const* segment = store().resolve<SegmentRecord>(key);
    if (segment == nullptr) return false;
    for (SlotIndex slot = key.slot; segment != nullptr; segment = store().at<SegmentRecord>(slot)) {
        if (!segment->includers.empty() || store().at<WindowRecord>(slot) != nullptr) return false;
        slot = segment->owner;
    }
    return true;
}

} // namespace

HighlightTargets highlightTargets(OccurrenceTree const& tree, std::span<KeyIndex const> path,
                                  Highlights const& highlights)
{
    HighlightTargets targets;
    if (tree.empty()) return targets;
    Above above(tree, path);
    for (std::uint32_t number = 0; number < highlights.size(); ++number) {
        std::span<KeyIndex const> const keys(highlights[number].path);
        if (keys.empty() || std::any_of(keys.begin(), keys.end(),
                                        [](KeyIndex key) { return store().resolve(key) == nullptr; }))
            continue;
        SlotIndex const leaf = keys.back().slot;
        std::vector<KeyIndex> known(keys.begin(), keys.end() - 1);
        std::erase_if(known, isNeverShown);
        std::span<KeyIndex const> const upper(known);
        auto holds = [&](OccurrenceId id) { return above(id, upper); };
        if (auto const* const geometry = store().at<GeometryRecord>(leaf)) {
            // The owner may stand at the end of what remains, or be left out.
            auto const rest = !upper.empty() && upper.back().slot == geometry->owner
                                  ? upper.first(upper.size() - 1)
                                  : upper;
            tree.forEach(geometry->owner, [&](OccurrenceId id) {
                if (above(id, rest)) targets[id].geometry[leaf].push_back(number);
            });
        } else if (auto const* const include = store().at<IncludeRecord>(leaf)) {
            tree.forEach(include->target, [&](OccurrenceId id) {
                if (tree.includeOf(id) == leaf && holds(id)) targets[id].whole.push_back(number);
            });
        } else {
            tree.forEach(leaf, [&](OccurrenceId id) {
                if (holds(id)) targets[id].whole.push_back(number);
            });
        }
        // What stands above the view has all of it below.
        auto const place = std::find_if(path.begin(), path.end(), [&](KeyIndex k) { return k.slot == leaf; });
        if (place != path.end() && tree.segmentOf(0) != leaf) targets[0].whole.push_back(number);
    }
    return targets;
}

} // namespace HPS::render
