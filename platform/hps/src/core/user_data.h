#pragma once
#include <hps/Key.h>
#include <span>

namespace HPS::scene
{

// Byte strings by index, in one buffer, in order of the index.
class UserData
{
public:
    struct Entry {
        std::int64_t index;
        std::span<byte const> bytes;
    };

    void set(std::int64_t index, std::span<byte const> bytes);
    // The same for an index above all that there are; takes no search.
    void append(std::int64_t index, std::span<byte const> bytes);
    void unset(std::int64_t index);
    std::size_t size() const { return count_; }

    // Calls f(entry) in order of the index.
    template <class F> void forEach(F&& f) const
    {
        for (std::size_t at = 0; at < buffer_.size();) {
            Entry const entry = entryAt(at);
            f(entry);
            at += headerSize + entry.bytes.size();
        }
    }

private:
    void insert(std::size_t offset, std::int64_t index, std::span<byte const> bytes);
    static constexpr std::size_t headerSize = sizeof(std::int64_t) + sizeof(std::uint32_t);
    Entry entryAt(std::size_t offset) const;
    // Offset of the first entry whose index is not below `index`.
    std::size_t find(std::int64_t index) const;

    std::vector<byte> buffer_; // entries of index, byte count, bytes
    std::uint32_t count_ = 0;
};

} // namespace HPS::scene
