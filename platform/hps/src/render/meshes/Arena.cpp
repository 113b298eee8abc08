#include "Arena.h"
#include <algorithm>
#include <cassert>
#include <epoxy/gl.h>

namespace HPS::render
{

std::uint32_t Arena::add(std::span<std::byte const> data)
{
    assert(data.size() % elementSize_ == 0 && "Arena::add: data holds whole elements");
    auto const count = std::uint32_t(data.size() / elementSize_);
    if (count == 0) return 0;
    std::uint32_t const offset = take(count);
    glNamedBufferSubData(buffer_, GLintptr(offset) * elementSize_, GLsizeiptr(data.size()), data.data());
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

std::uint32_t Arena::take(std::uint32_t count)
{
    auto fits = [&](auto const& range) { return range.second >= count; };
    auto found = std::find_if(free_.begin(), free_.end(), fits);
    if (found == free_.end()) {
        grow(count);
        found = std::find_if(free_.begin(), free_.end(), fits);
    }
    auto const [offset, length] = *found;
    free_.erase(found);
    if (length > count) free_.emplace(offset + count, length - count);
    return offset;
}

void Arena::grow(std::uint32_t count)
{
    std::uint32_t constexpr smallest = 1 << 14;
    std::uint32_t const capacity = std::max({smallest, capacity_ * 2, capacity_ + count});
    unsigned larger = 0;
    glCreateBuffers(1, &larger);
    glNamedBufferStorage(larger, GLsizeiptr(capacity) * elementSize_, nullptr, GL_DYNAMIC_STORAGE_BIT);
    if (buffer_ != 0) {
        glCopyNamedBufferSubData(buffer_, larger, 0, 0, GLsizeiptr(capacity_) * elementSize_);
        glDeleteBuffers(1, &buffer_);
    }
    buffer_ = larger;
    give(capacity_, capacity - capacity_);
    capacity_ = capacity;
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
