#pragma once
#include "slot_list.h"
#include <functional>
#include <string_view>
#include <vector>

namespace HPS::scene
{

// Finds slots by name in about ten bytes each. The names stay with the records: every operation is given a
// way to read them, nameOf(slot), which must give the name that the slot was entered with. A byte of each
// name's hash is kept, so that hardly any name but the wanted one is read.
class NameIndex
{
public:
    bool empty() const { return used_ == 0; }
    void clear() { *this = {}; }

    template <class NameOf> SlotIndex find(std::string_view name, NameOf&& nameOf) const
    {
        if (used_ == 0) return 0;
        auto const hash = hashOf(name);
        for (auto at = placeOf(hash); marks_[at] != free; at = next(at))
            if (marks_[at] == markOf(hash) && nameOf(slots_[at]) == name) return slots_[at];
        return 0;
    }
    template <class NameOf> void insert(SlotIndex slot, NameOf&& nameOf)
    {
        if ((filled_ + 1) * 4 > slots_.size() * 3) rebuild(nameOf);
        enter(slot, hashOf(nameOf(slot)));
    }
    template <class NameOf> void erase(SlotIndex slot, NameOf&& nameOf)
    {
        if (used_ == 0) return;
        for (auto at = placeOf(hashOf(nameOf(slot))); marks_[at] != free; at = next(at)) {
            if (slots_[at] != slot || marks_[at] == erased) continue;
            marks_[at] = erased;
            --used_;
            return;
        }
    }

private:
    using Mark = std::uint8_t;
    static constexpr Mark free = 0, erased = 1; // higher ones are of hashes
    static std::size_t hashOf(std::string_view name) { return std::hash<std::string_view>()(name); }
    // From the high bits: the low ones tell the place.
    static Mark markOf(std::size_t hash)
    {
        auto const byte = static_cast<Mark>(hash >> (8 * sizeof hash - 8));
        return byte > erased ? byte : static_cast<Mark>(byte + 2);
    }
    std::size_t placeOf(std::size_t hash) const { return hash & (slots_.size() - 1); }
    std::size_t next(std::size_t at) const { return (at + 1) & (slots_.size() - 1); }
    void enter(SlotIndex slot, std::size_t hash)
    {
        auto at = placeOf(hash);
        while (marks_[at] > erased) at = next(at);
        filled_ += marks_[at] == free;
        slots_[at] = slot;
        marks_[at] = markOf(hash);
        ++used_;
    }
    template <class NameOf> void rebuild(NameOf& nameOf)
    {
        auto const old = std::move(*this);
        std::size_t size = 16;
        while (size < (old.used_ + 1) * 2) size *= 2;
        slots_.assign(size, 0);
        marks_.assign(size, free);
        used_ = filled_ = 0;
        for (std::size_t at = 0; at < old.slots_.size(); ++at)
            if (old.marks_[at] > erased) enter(old.slots_[at], hashOf(nameOf(old.slots_[at])));
    }

    std::vector<SlotIndex> slots_; // a power of two of places; never full
    std::vector<Mark> marks_;      // of the same places
    std::size_t used_ = 0;
    std::size_t filled_ = 0; // with the erased ones
};

} // namespace HPS::scene
