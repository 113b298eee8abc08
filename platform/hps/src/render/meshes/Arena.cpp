#include "Arena.h"
#include <algorithm>
#include <cassert>
#include <epoxy/gl.h>

namespace HPS::render
{

std::optional<std::uint32_t> Arena::add(std::span<std::byte const> data)
{
    assert(data.size() % elementSize_ == 0 && "Arena::add: data holds whole elements");
    auto const count = std::uint32_t(data.size() / elementSize_);
    if (count == 0) return 0;
    std::optional<std::uint32_t> const offset = take(count);
    if (!offset) return {};
    glNamedBufferSubData(buffer_, GLintptr(*offset) * elementSize_, GLsizeiptr(data.size()), data.data());
    used_ += count;
    return offset;
}

void Arena::remove(std::uint32_t offset, std::uint32_t count)
{
    if (count == 0) return;
    assert(used_ >= count && "Arena::remove: more than was lent");
    used_ -= count;
    give(offset, count);
}

std::optional<std::uint32_t> Arena::take(std::uint32_t count)
{
    auto fits = [&](auto const& range) { return range.second >= count; };
    auto found = std::find_if(free_.begin(), free_.end(), fits);
    if (found == free_.end()) {
        if (!grow(count)) return {};
        found = std::find_if(free_.begin(), free_.end(), fits);
    }
    auto const [offset, length] = *found;
    free_.erase(found);
    if (length > count) free_.emplace(offset + count, length - count);
    return offset;
}

bool Arena::grow(std::uint32_t count)
{
    constexpr std::uint64_t smallest = 1 << 14, most = ~std::uint32_t(0);
    std::uint64_t const needed = std::uint64_t(capacity_) + count;
    if (needed > most) return false;
    std::uint64_t const capacity = std::min(std::max({smallest, capacity_ * std::uint64_t(2), needed}), most);
    unsigned larger = makeBuffer(capacity * elementSize_);
    // Where there is no room to grow at ease, what is asked for may still fit.
    std::uint64_t const given = larger != 0 ? capacity : needed;
    if (larger == 0) larger = makeBuffer(given * elementSize_);
    if (larger == 0) return false;
    if (buffer_ != 0) {
        glCopyNamedBufferSubData(buffer_, larger, 0, 0, GLsizeiptr(capacity_) * elementSize_);
        glDeleteBuffers(1, &buffer_);
    }
    buffer_ = larger;
    give(capacity_, std::uint32_t(given) - capacity_);
    capacity_ = std::uint32_t(given);
    return true;
}

// 0 if the device has no such room.
unsigned Arena::makeBuffer(std::uint64_t bytes) const
{
    if (bytes > limit_) return 0;
    unsigned made = 0;
    while (glGetError() != GL_NO_ERROR) {
    }
    glCreateBuffers(1, &made);
    glNamedBufferStorage(made, GLsizeiptr(bytes), nullptr, GL_DYNAMIC_STORAGE_BIT);
    if (glGetError() == GL_NO_ERROR) return made;
    glDeleteBuffers(1, &made);
    return 0;
}

void Arena::give(std::uint32_t offset, std::uint32_t count)
{
    auto const next = free_.lower_bound(offset);
    if (next != free_.end() && next->first == offset + count) {
        count += next->second;
        free_.erase(next);
    }
    auto const after = free_.lower_bound(offset);
    if (after != free_.begin()) {
        auto const previous = std::prev(after);
        if (previous->first + previous->second == offset) {
            previous->second += count;
            return;
        }
    }
    free_.emplace(offset, count);
}

} // namespace HPS::render
