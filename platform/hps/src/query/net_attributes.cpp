#include "net_attributes.h"
#include "conditions.h"
#include "kit_values.h"
#include "merge.h"
#include "shared_kits.h"
#include <algorithm>

namespace HPS::scene
{
namespace
{

// What is remembered beyond this is forgotten as a whole: it takes less time to compute it anew than to sort
// out what is still used.
constexpr std::size_t stepLimit = 1 << 20;

bool setsSomething(SegmentRecord const& segment)
{
    return !segment.kits.empty() || segment.extras;
}

bool includesAll(std::vector<ConditionId> const& held, std::vector<ConditionId> const& wanted)
{
    return std::includes(held.begin(), held.end(), wanted.begin(), wanted.end());
}

// What the filter of a style or an include holds back.
LockSet filtered(SlotIndex link)
{
    LockSet kept;
    if (auto const* const filter = store().filterOf(link))
        for (auto const type : *filter) kept |= lockSet(type);
    return kept;
}

void applyLocks(NetState& state, KitBlock const* lockKit)
{
    auto const& locks = valuesOf<AttributeLockData>(lockKit);
    state.locks |= lockSet(locks.locks);
    state.locks &= ~lockSet(locks.overrides);
}

} // namespace

std::size_t NetFold::StateHash::operator()(NetStatePointer const& state) const
{
    std::size_t hash = std::hash<LockSet>()(state->locks);
    auto const mix = [&](std::size_t value) {
        hash = (hash ^ value) * 0x9E3779B97F4A7C15u, hash ^= hash >> 29;
    };
    for (auto const& kit : state->kits) mix(reinterpret_cast<std::size_t>(kit.get()));
    for (auto const condition : state->conditions) mix(condition);
    for (auto const portfolio : state->portfolios) mix(portfolio.slot);
    mix(std::hash<std::string>()(state->materialPalette));
    mix(hashValue(state->textureMatrix));
    if (state->priority) mix(std::size_t(*state->priority) + 1);
    return hash;
}

NetFold::NetFold() : root_(std::make_shared<NetState const>()), definitionStamp_(store().definitionStamp)
{
    states_.insert(root_);
}

NetStatePointer NetFold::state(NetStatePointer const& parent, SegmentRecord const& segment)
{
    if (!setsSomething(segment)) return parent;
    forgetWhatIsOld();
    if (!segment.extras) {
        // What kits alone decide is the same for all segments that set them.
        auto net = parent;
        for (auto const& kit : segment.kits) net = with(net, kit);
        return net;
    }
    auto& result = segmentSteps_[{parent.get(), segment.slot}];
    if (!result.state || result.stamp != segment.attributeStamp)
        result = {segment.attributeStamp, parent, intern(compute(*parent, segment))};
    return result.state;
}

void NetFold::forgetWhatIsOld()
{
    if (definitionStamp_ == store().definitionStamp && segmentSteps_.size() <= stepLimit &&
        kitSteps_.size() <= stepLimit)
        return;
    definitionStamp_ = store().definitionStamp;
    trim();
}

void NetFold::trim()
{
    segmentSteps_.clear();
    kitSteps_.clear();
    // States that somebody still holds keep their addresses, so that equal ones stay the same.
    std::erase_if(states_, [](auto const& state) { return state.use_count() == 1; });
    states_.insert(root_);
}

NetStatePointer NetFold::without(NetStatePointer const& state, KitKind kind)
{
    NetState rest = *state;
    rest.kits[static_cast<std::size_t>(kind)] = nullptr;
    return intern(std::move(rest));
}

NetStatePointer NetFold::with(NetStatePointer const& state, KitPointer const& kit)
{
    bool const isLock = kit->kind == KitKind::AttributeLock;
    if (kit->kind >= KitKind::InheritedCount && !isLock) return state;
    auto& result = kitSteps_[{state.get(), kit.get()}];
    if (!result.state) {
        NetState net = *state;
        if (isLock)
            applyLocks(net, kit.get());
        else
            applyKits(net, {&kit, 1}, net.locks);
        result = {kit, state, intern(std::move(net))};
    }
    return result.state;
}

NetStatePointer NetFold::overlay(NetStatePointer const& state, SegmentRecord const& source)
{
    NetState over = *state;
    applyKits(over, source.kits, over.locks);
    return intern(std::move(over));
}

NetStatePointer NetFold::overlay(NetStatePointer const& state, std::span<KitPointer const> kits)
{
    NetState over = *state;
    applyKits(over, kits, over.locks);
    return intern(std::move(over));
}

NetAttributes NetFold::through(NetAttributes const& owner, IncludeRecord const& include)
{
    auto const kept = filtered(include.slot);
    if (kept.none()) return owner;
    NetState inside = *owner.state;
    inside.locks |= kept;
    return {intern(std::move(inside)), owner.matrix};
}

NetState NetFold::compute(NetState const& parent, SegmentRecord const& segment)
{
    NetState net = parent;
    if (segment.extras) {
        auto const& extras = *segment.extras;
        if (!extras.conditions.empty() && !includesAll(net.conditions, extras.conditions)) {
            std::vector<ConditionId> all;
            std::set_union(net.conditions.begin(), net.conditions.end(), extras.conditions.begin(),
                           extras.conditions.end(), std::back_inserter(all));
            net.conditions = std::move(all);
        }
        net.portfolios.insert(net.portfolios.end(), extras.portfolios.begin(), extras.portfolios.end());

        for (auto const slot : extras.styles) {
            auto const& style = *store().at<StyleRecord>(slot);
            if (style.condition && !holds(style.condition, net.conditions)) continue;
            auto const* const source = style.name.empty() ? store().resolve<SegmentRecord>(style.source)
                                                          : findStyle(net.portfolios, style.name);
            if (!source) continue;
            apply(net, *source, net.locks | filtered(slot));
        }
    }
    apply(net, segment, net.locks);
    return net;
}

void NetFold::apply(NetState& net, SegmentRecord const& source, LockSet const& locked)
{
    applyKits(net, source.kits, locked);
    if (source.extras && !locked.test(LockBit::others)) {
        auto const& extras = *source.extras;
        if (!extras.materialPalette.empty()) net.materialPalette = extras.materialPalette;
        if (extras.textureMatrix) net.textureMatrix = *extras.textureMatrix;
        if (extras.priority) net.priority = extras.priority;
    }
    applyLocks(net, source.kit(KitKind::AttributeLock));
}

void NetFold::applyKits(NetState& state, std::span<KitPointer const> kits, LockSet const& locked)
{
    for (auto const& block : kits) {
        if (block->kind >= KitKind::InheritedCount) break; // sorted by kind
        auto& kit = state.kits[static_cast<std::size_t>(block->kind)];
        withKit(block->kind, [&]<class Data>(std::type_identity<Data>) {
            if constexpr (kitKind<Data> < KitKind::InheritedCount) kit = merged<Data>(kit, block, locked);
        });
    }
}

template <class Data>
KitPointer NetFold::merged(KitPointer const& base, KitPointer const& over, LockSet const& locked)
{
    auto const& own = valuesOf<Data>(over.get());
    if (!base && locked.none() && over->isShared) return over;
    Data values = valuesOf<Data>(base.get());
    merge(values, own, locked);
    if (base && values == valuesOf<Data>(base.get())) return base;
    return over->isShared && values == own ? over : sharedKit<Data>(std::move(values));
}

NetStatePointer NetFold::intern(NetState&& state)
{
    return *states_.insert(std::make_shared<NetState const>(std::move(state))).first;
}

} // namespace HPS::scene
