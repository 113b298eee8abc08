#pragma once
#include <hps/Key.h>
#include <memory>
#include <vector>

namespace HPS
{

/// Records behind handles. A slot's place is used again, its generation is not, so that an old handle never
/// reaches a new record. Records keep their address while they live.
template <class Record> class SlotTable
{
public:
    KeyIndex add(std::unique_ptr<Record> record)
    {
        std::size_t slot = 0;
        while (slot < slots_.size() && slots_[slot].record != nullptr) ++slot;
        if (slot == slots_.size()) slots_.emplace_back();
        slots_[slot].record = std::move(record);
        return {std::uint32_t(slot + 1), ++slots_[slot].generation};
    }

    /// Null for a handle that is empty or stale.
    Record* find(KeyIndex index) const
    {
        if (index.slot == 0 || index.slot > slots_.size()) return nullptr;
        Slot const& slot = slots_[index.slot - 1];
        return slot.generation == index.generation ? slot.record.get() : nullptr;
    }

    void remove(KeyIndex index)
    {
        if (find(index) != nullptr) slots_[index.slot - 1].record.reset();
    }

    /// Of all that live, by slot.
    std::vector<KeyIndex> indices() const
    {
        std::vector<KeyIndex> living;
        for (std::size_t i = 0; i < slots_.size(); ++i)
            if (slots_[i].record != nullptr) living.push_back({std::uint32_t(i + 1), slots_[i].generation});
        return living;
    }

private:
    struct Slot {
        std::unique_ptr<Record> record;
        std::uint32_t generation = 0;
    };
    std::vector<Slot> slots_;
};

} // namespace HPS
