#pragma once
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <utility>

namespace HPS::scene
{

using SlotIndex = std::uint32_t; // 0 stands for nothing

// A list of slots in 8 bytes; one of them needs no memory of its own. Order is kept. What is taken out leaves
// a gap, which no reader sees, until half of the list are gaps: so taking out costs the same wherever it
// happens.
class SlotList
{
public:
    // Where a slot stands, for taking it out. It changes only when the list closes its gaps.
    using Place = std::uint32_t;

    class Iterator
    {
    public:
        using iterator_category = std::bidirectional_iterator_tag;
        using value_type = SlotIndex;
        using difference_type = std::ptrdiff_t;
        using pointer = SlotIndex const*;
        using reference = SlotIndex const&;

        Iterator() = default;
        Iterator(SlotIndex const* at, SlotIndex const* end) : at_(at), end_(end) { skipGaps(); }
        reference operator*() const { return *at_; }
        Iterator& operator++()
        {
            ++at_;
            skipGaps();
            return *this;
        }
        Iterator& operator--()
        {
            do --at_;
            while (*at_ == 0);
            return *this;
        }
        Iterator operator++(int) { return std::exchange(*this, std::next(*this)); }
        Iterator operator--(int) { return std::exchange(*this, std::prev(*this)); }
        friend bool operator==(Iterator const& a, Iterator const& b) { return a.at_ == b.at_; }

    private:
        void skipGaps()
        {
            while (at_ != end_ && *at_ == 0) ++at_;
        }
        SlotIndex const* at_ = nullptr;
        SlotIndex const* end_ = nullptr;
    };

    SlotList() = default;
    SlotList(SlotList const&) = delete;
    SlotList& operator=(SlotList const&) = delete;
    SlotList(SlotList&& other) noexcept { std::swap(words_, other.words_); }
    SlotList& operator=(SlotList&& other) noexcept
    {
        std::swap(words_, other.words_);
        return *this;
    }
    ~SlotList();

    Iterator begin() const { return {first(), last()}; }
    Iterator end() const { return {last(), last()}; }
    std::size_t size() const
    {
        auto const* const b = block();
        return b ? b->end - b->gaps : words_[0];
    }
    bool empty() const { return size() == 0; }
    SlotIndex back() const { return *(last() - 1); } // the last one is never a gap

    // The caller keeps the place if the slot is to be taken out one day.
    [[nodiscard]] Place push_back(SlotIndex slot);
    // Nothing happens if the slot does not stand there. placeOf(slot) gives the place that the caller keeps
    // for a slot of the list, as a reference.
    template <class PlaceOf> void remove(SlotIndex slot, Place place, PlaceOf&& placeOf)
    {
        if (!leaveGap(slot, place)) return;
        SlotList closed;
        for (auto const kept : *this) placeOf(kept) = closed.push_back(kept);
        *this = std::move(closed);
    }

private:
    struct Block {
        std::uint32_t end;
        std::uint32_t gaps; // among those before `end`
        std::uint32_t capacity;
        SlotIndex slots[1]; // and on
    };

    // Either {0, 0}: nothing; {1, slot}: one slot; or the address of a block, whose lowest bit, and so that
    // of the first word, is 0.
    alignas(Block*) std::uint32_t words_[2]{};
    static_assert(sizeof(Block*) == sizeof words_);

    Block* block() const
    {
        Block* address = nullptr;
        if ((words_[0] & 1) == 0) std::memcpy(&address, words_, sizeof address);
        return address;
    }
    SlotIndex const* first() const
    {
        auto const* const b = block();
        return b ? b->slots : words_ + 1;
    }
    SlotIndex const* last() const
    {
        auto const* const b = block();
        return b ? b->slots + b->end : words_ + 1 + words_[0];
    }
    bool leaveGap(SlotIndex slot, Place place); // true if it is time to close the gaps
};

} // namespace HPS::scene
