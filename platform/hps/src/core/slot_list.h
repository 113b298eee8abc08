#pragma once
#include <cstdint>
#include <cstring>
#include <span>
#include <utility>

namespace HPS::scene
{

using SlotIndex = std::uint32_t; // 0 stands for nothing

// A list of slots in 16 bytes; up to two of them need no memory of their own. Order is kept.
class SlotList
{
public:
    SlotList() = default;
    SlotList(SlotList const&) = delete;
    SlotList& operator=(SlotList const&) = delete;
    SlotList(SlotList&& other) noexcept { swap(other); }
    SlotList& operator=(SlotList&& other) noexcept
    {
        swap(other);
        return *this;
    }
    ~SlotList()
    {
        if (capacity_ > inlineCapacity) delete[] heap_;
    }

    SlotIndex const* begin() const { return data(); }
    SlotIndex const* end() const { return data() + size_; }
    std::size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }
    SlotIndex operator[](std::size_t i) const { return data()[i]; }
    SlotIndex back() const { return data()[size_ - 1]; }
    operator std::span<SlotIndex const>() const { return {data(), size_}; }

    void push_back(SlotIndex slot);
    void pop_back() { --size_; }
    // Searches from the end, where what is removed usually stands. False if it is not there.
    bool remove(SlotIndex slot);

private:
    static constexpr std::uint32_t inlineCapacity = 2;
    SlotIndex const* data() const { return capacity_ > inlineCapacity ? heap_ : inline_; }
    SlotIndex* data() { return capacity_ > inlineCapacity ? heap_ : inline_; }
    void swap(SlotList& other) noexcept
    {
        std::swap(size_, other.size_);
        std::swap(capacity_, other.capacity_);
        std::uint64_t mine = 0;
        std::memcpy(&mine, inline_, sizeof mine);
        std::memcpy(inline_, other.inline_, sizeof mine);
        std::memcpy(other.inline_, &mine, sizeof mine);
    }

    std::uint32_t size_ = 0;
    std::uint32_t capacity_ = inlineCapacity;
    union {
        SlotIndex inline_[inlineCapacity]{};
        SlotIndex* heap_;
    };
    static_assert(sizeof(SlotIndex*) == sizeof(std::uint64_t));
};

} // namespace HPS::scene
