#include "references.h"
#include "structure.h"
#include <set>

namespace HPS::scene
{
namespace
{

struct References {
    std::unordered_map<SlotIndex, SlotIndex> targetOf;
    std::set<std::pair<SlotIndex, SlotIndex>> referencesTo; // target, reference
};

References& all()
{
    static auto& references = *new References; // as the store, never destroyed
    return references;
}

} // namespace

void setTarget(SlotIndex reference, SlotIndex target)
{
    auto& [targetOf, referencesTo] = all();
    if (auto const old = targetOf.find(reference); old != targetOf.end()) {
        referencesTo.erase({old->second, reference});
        targetOf.erase(old);
    }
    if (target == 0) return;
    targetOf.emplace(reference, target);
    referencesTo.emplace(target, reference);
}

void noteTarget(SlotIndex target)
{
    auto const& pairs = all().referencesTo;
    for (auto at = pairs.lower_bound({target, 0}); at != pairs.end() && at->first == target; ++at) {
        auto const* const reference = store().at<GeometryRecord>(at->second);
        if (auto* const owner = reference ? store().at<SegmentRecord>(reference->owner) : nullptr)
            invalidateBounds(*owner);
        store().changes.mark(at->second, Change::Geometry);
    }
}

} // namespace HPS::scene
