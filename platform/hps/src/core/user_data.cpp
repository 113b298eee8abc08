#include "user_data.h"
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

void UserData::set(std::int64_t index, std::span<byte const> bytes)
{
    unset(index);
    auto const at = find(index);
    auto const count = static_cast<std::uint32_t>(bytes.size());
    std::vector<byte> entry(headerSize + bytes.size());
    std::memcpy(entry.data(), &index, sizeof index);
    std::memcpy(entry.data() + sizeof index, &count, sizeof count);
    if (count) std::memcpy(entry.data() + headerSize, bytes.data(), count);
    buffer_.insert(buffer_.begin() + static_cast<std::ptrdiff_t>(at), entry.begin(), entry.end());
    ++count_;
}

} // namespace HPS::scene
