#include "user_data.h"
#include <array>
#include <cstring>

namespace HPS::scene
{

UserData::Entry UserData::entryAt(std::size_t offset) const
{
    Entry entry{};
    std::uint32_t count = 0;
    std::memcpy(&entry.index, &buffer_[offset], sizeof entry.index);
    std::memcpy(&count, &buffer_[offset + sizeof entry.index], sizeof count);
    entry.bytes = std::span(buffer_).subspan(offset + headerSize, count);
    return entry;
}

std::size_t UserData::find(std::int64_t index) const
{
    std::size_t at = 0;
    while (at < buffer_.size()) {
        auto const entry = entryAt(at);
        if (entry.index >= index) break;
        at += headerSize + entry.bytes.size();
    }
    return at;
}

void UserData::unset(std::int64_t index)
{
    auto const at = find(index);
    if (at == buffer_.size() || entryAt(at).index != index) return;
    auto const first = buffer_.begin() + static_cast<std::ptrdiff_t>(at);
    buffer_.erase(first, first + static_cast<std::ptrdiff_t>(headerSize + entryAt(at).bytes.size()));
    --count_;
}

void UserData::insert(std::size_t offset, std::int64_t index, std::span<byte const> bytes)
{
    auto const count = static_cast<std::uint32_t>(bytes.size());
    std::array<byte, headerSize> header{};
    std::memcpy(header.data(), &index, sizeof index);
    std::memcpy(header.data() + sizeof index, &count, sizeof count);
    auto const at = buffer_.begin() + static_cast<std::ptrdiff_t>(offset);
    auto const behind = buffer_.insert(at, header.begin(), header.end()) + headerSize;
    buffer_.insert(behind, bytes.begin(), bytes.end());
    ++count_;
}

void UserData::set(std::int64_t index, std::span<byte const> bytes)
{
    unset(index);
    insert(find(index), index, bytes);
}

void UserData::append(std::int64_t index, std::span<byte const> bytes)
{
    insert(buffer_.size(), index, bytes);
}

} // namespace HPS::scene
