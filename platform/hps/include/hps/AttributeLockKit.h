#pragma once
#include <hps/AttributeLock.h>
#include <hps/Kit.h>

namespace HPS
{

using AttributeLockTypeArray = std::vector<AttributeLock::Type>;

struct LockEntry {
    AttributeLock::Type type;
    bool state;
    bool operator==(LockEntry const&) const = default;
};
using LockEntries = std::vector<LockEntry>; // one entry per type, in order of the types

// A lock keeps an attribute: what a segment has set, or inherits, when it locks it, nothing below can change.
// A subsegment override on a segment lets everything below it pass the locks from above.
struct AttributeLockData {
    std::optional<LockEntries> locks;
    std::optional<LockEntries> overrides;

    bool operator==(AttributeLockData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{Aspect{1, "Lock", &AttributeLockData::locks},
                          Aspect{2, "SubsegmentLockOverride", &AttributeLockData::overrides}};
    }
    static void put(std::optional<LockEntries>& entries, AttributeLock::Type type, bool state);
    // Everything takes all entries away.
    static void remove(std::optional<LockEntries>& entries, AttributeLock::Type type);
    static bool find(std::optional<LockEntries> const& entries, AttributeLock::Type type, bool& state);
};
static_assert(CompleteKit<AttributeLockData>);

template <class Self> class AttributeLockOperations : public Operations<Self>
{
public:
    using Data = AttributeLockData;

    Self& SetLock(AttributeLock::Type type, bool state = true) { return put<&Data::locks>({type}, {state}); }
    // As many types as states, or nothing is done.
    Self& SetLock(AttributeLockTypeArray const& types, std::vector<bool> const& states)
    {
        return put<&Data::locks>(types, states);
    }
    Self& SetLock(AttributeLockTypeArray const& types, bool state = true)
    {
        return put<&Data::locks>(types, std::vector<bool>(types.size(), state));
    }
    Self& UnsetLock(AttributeLock::Type type) { return remove<&Data::locks>({type}); }
    Self& UnsetLock(AttributeLockTypeArray const& types) { return remove<&Data::locks>(types); }
    bool ShowLock(AttributeLock::Type type, bool& state) const { return find<&Data::locks>(type, state); }
    bool ShowLock(AttributeLockTypeArray& types, std::vector<bool>& states) const
    {
        return list<&Data::locks>(types, states);
    }

    Self& SetSubsegmentLockOverride(AttributeLock::Type type, bool state = true)
    {
        return put<&Data::overrides>({type}, {state});
    }
    Self& SetSubsegmentLockOverride(AttributeLockTypeArray const& types, std::vector<bool> const& states)
    {
        return put<&Data::overrides>(types, states);
    }
    Self& UnsetSubsegmentLockOverride(AttributeLock::Type type) { return remove<&Data::overrides>({type}); }
    Self& UnsetSubsegmentLockOverride(AttributeLockTypeArray const& types)
    {
        return remove<&Data::overrides>(types);
    }
    bool ShowSubsegmentLockOverride(AttributeLock::Type type, bool& state) const
    {
        return find<&Data::overrides>(type, state);
    }
    bool ShowSubsegmentLockOverride(AttributeLockTypeArray& types, std::vector<bool>& states) const
    {
        return list<&Data::overrides>(types, states);
    }

private:
    template <auto Slot> Self& put(AttributeLockTypeArray const& types, std::vector<bool> const& states)
    {
        if (types.size() != states.size()) {
            detail::refuse("Locks refused: as many types as states are asked for");
            return this->self();
        }
        this->self().edit([&](Data& data) {
            for (std::size_t i = 0; i < types.size(); ++i) Data::put(data.*Slot, types[i], states[i]);
        });
        return this->self();
    }
    template <auto Slot> Self& remove(AttributeLockTypeArray const& types)
    {
        this->self().edit([&](Data& data) {
            for (auto type : types) Data::remove(data.*Slot, type);
        });
        return this->self();
    }
    template <auto Slot> bool find(AttributeLock::Type type, bool& state) const
    {
        return Data::find(this->self().data().*Slot, type, state);
    }
    template <auto Slot> bool list(AttributeLockTypeArray& types, std::vector<bool>& states) const
    {
        auto const& entries = this->self().data().*Slot;
        if (!entries) return false;
        types.clear();
        states.clear();
        for (auto const& entry : *entries) {
            types.push_back(entry.type);
            states.push_back(entry.state);
        }
        return true;
    }
};

class AttributeLockKit : public Kit<AttributeLockKit, AttributeLockOperations>
{
};

class AttributeLockControl : public Control<AttributeLockControl, AttributeLockOperations>
{
public:
    using Control::Control;
};

} // namespace HPS
