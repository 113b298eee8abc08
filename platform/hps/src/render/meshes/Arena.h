#pragma once
#include <cstdint>
#include <map>
#include <optional>
#include <span>

namespace HPS::render
{

/// One growing buffer of the graphics device from which ranges of equal elements are lent.
/// Ranges keep their offsets when the buffer grows. Needs the device's context to be current.
class Arena
{
public:
    /// `elementSize` in bytes; it is the unit of all offsets and counts.
    explicit Arena(std::uint32_t elementSize) : elementSize_(elementSize) {}
    Arena(Arena const&) = delete;
    Arena& operator=(Arena const&) = delete;

    /// Copies `data`, whole elements, into a range of its own and gives the range's offset; nothing if the
    /// device has no memory for that.
    std::optional<std::uint32_t> add(std::span<std::byte const> data);

    /// Takes no more than so many bytes from the device.
    void limit(std::uint64_t bytes) { limit_ = bytes; }

    /// Takes back what `add` gave. `count` is that range's length in elements.
    void remove(std::uint32_t offset, std::uint32_t count);

    /// The buffer's name, 0 before the first `add`. A new one after a growth.
    unsigned buffer() const { return buffer_; }

    /// Elements lent at present.
    std::uint32_t used() const { return used_; }

private:
    std::optional<std::uint32_t> take(std::uint32_t count);
    bool grow(std::uint32_t count);
    unsigned makeBuffer(std::uint64_t bytes) const;
    void give(std::uint32_t offset, std::uint32_t count);

    std::uint32_t elementSize_;
    std::uint32_t capacity_ = 0;
    std::uint32_t used_ = 0;
    unsigned buffer_ = 0;
    std::uint64_t limit_ = ~std::uint64_t(0);
    std::map<std::uint32_t, std::uint32_t> free_; ///< offset to length, neighbours joined
};

} // namespace HPS::render
