#pragma once
#include "slot_list.h"
#include <functional>
#include <string_view>
#include <vector>

namespace HPS::scene
{

// Finds slots by name in about eight bytes each. The names stay with the records: every operation is given a
// way to read them, nameOf(slot), which must give the name that the slot was entered with.
class NameIndex
{
public:
    bool empty() const { return used_ == 0; }
    void clear() { *this = {}; }

    template <class NameOf> SlotIndex find(std::string_view name, NameOf&& nameOf) const
    {
        if (used_ == 0) return 0;
        for (auto at = placeOf(name);; at = next(at))
            if (table_[at] == 0 || (table_[at] != erased && nameOf(table_[at]) == name)) return table_[at];
    }
    template <class NameOf> void insert(SlotIndex slot, NameOf&& nameOf)
    {
        if ((filled_ + 1) * 4 > table_.size() * 3) rebuild(nameOf);
        enter(slot, nameOf(slot));
    }
    template <class NameOf> void erase(SlotIndex slot, NameOf&& nameOf)
    {
        if (used_ == 0) return;
        for (auto at = placeOf(nameOf(slot)); table_[at] != 0; at = next(at)) {
            if (table_[at] != slot) continue;
            table_[at] = erased;
            --used_;
            return;
        }
    }

private:
    static constexpr SlotIndex erased = ~SlotIndex(0);
    std::size_t placeOf(std::string_view name) const
    {
        return std::hash<std::string_view>()(name) & (table_.size() - 1);
    }
    std::size_t next(std::size_t at) const { return (at + 1) & (table_.size() - 1); }
    void enter(SlotIndex slot, std::string_view name)
    {
        auto at = placeOf(name);
        while (table_[at] != 0 && table_[at] != erased) at = next(at);
        filled_ += table_[at] == 0;
        table_[at] = slot;
        ++used_;
    }
    template <class NameOf> void rebuild(NameOf& nameOf)
    {
        auto const old = std::move(table_);
        std::size_t size = 16;
        while (size < (used_ + 1) * 2) size *= 2;
        table_.assign(size, 0);
        used_ = filled_ = 0;
        for (auto const slot : old)
            if (slot != 0 && slot != erased) enter(slot, nameOf(slot));
    }

    std::vector<SlotIndex> table_; // a power of two of places; never full
    std::size_t used_ = 0;
    std::size_t filled_ = 0; // with the erased ones
};

} // namespace HPS::scene
