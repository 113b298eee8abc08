// Little-endian bytes, put together and taken apart. What is read was written by others: a count is compared
// with the bytes that are left before anything is made of it, and what does not fit is an IOException.
#pragma once
#include <bit>
#include <cstring>
#include <hps/IOException.h>
#include <hps/Key.h>
#include <limits>
#include <span>
#include <vector>

namespace HPS::scene
{
static_assert(std::endian::native == std::endian::little);

using Bytes = std::vector<std::byte>;
using ByteSpan = std::span<std::byte const>;

// The objects of a file have numbers, from 1; 0 stands for what does not travel.
using FileNumber = std::uint32_t;

// What a file makes of the places in the database of one process.
class FileNumbers
{
public:
    virtual FileNumber numberOf(KeyIndex object) const = 0;

protected:
    ~FileNumbers() = default;
};

class Writer
{
public:
    static constexpr bool reads = false;
    FileNumbers const* numbers = nullptr; // null: keys are left out
    unsigned colorBits = 0;               // a channel, of the colours inside geometry; 0: as they are
    bool packsDirections = false;         // normals in 16 bits a number

    template <class T> void scalar(T value)
    {
        static_assert(std::is_arithmetic_v<T>);
        raw(std::as_bytes(std::span(&value, 1)));
    }
    void raw(ByteSpan bytes) { bytes_.insert(bytes_.end(), bytes.begin(), bytes.end()); }
    void flag(bool value) { scalar(static_cast<std::uint8_t>(value)); }
    // Seven bits a byte, the lowest first; the top bit says that more follow.
    void size(std::uint64_t value)
    {
        for (; value >= 0x80; value >>= 7) bytes_.push_back(static_cast<std::byte>(value | 0x80));
        bytes_.push_back(static_cast<std::byte>(value));
    }
    void text(std::string_view text)
    {
        size(text.size());
        raw(std::as_bytes(std::span(text)));
    }
    // The bytes that f writes, behind their number.
    template <class F> void sized(F&& f)
    {
        auto const start = bytes_.size();
        scalar(std::uint32_t(0));
        f();
        auto const count = bytes_.size() - start - sizeof(std::uint32_t);
        if (count > std::numeric_limits<std::uint32_t>::max())
            throw IOException("more than 4 GB in one piece");
        auto const stored = static_cast<std::uint32_t>(count);
        std::memcpy(&bytes_[start], &stored, sizeof stored);
    }
    std::span<std::byte> grow(std::size_t count)
    {
        bytes_.resize(bytes_.size() + count);
        return std::span(bytes_).last(count);
    }
    Bytes& bytes() { return bytes_; }

private:
    Bytes bytes_;
};

// What the contents of a file may still take in memory beyond their own size: a few bytes can stand for a
// record or an element of a list that is a hundred times as large.
class Allowance
{
public:
    explicit Allowance(std::uint64_t bytes) : left_(bytes) {}
    void take(std::size_t count, std::size_t bytesEach)
    {
        if (count > left_ / bytesEach) throw IOException("holds far more than a file of its size may");
        left_ -= count * bytesEach;
    }

private:
    std::uint64_t left_;
};

// What the numbers in a file stand for, and how much may be made of it.
struct ReadContext {
    std::vector<KeyIndex> segments;
    std::vector<KeyIndex> portfolios;
    Allowance allowance{0};

    static KeyIndex find(std::vector<KeyIndex> const& objects, FileNumber number)
    {
        if (number > objects.size()) throw IOException("is damaged: it names an object that is not there");
        return number == 0 ? KeyIndex() : objects[number - 1];
    }
};

class Reader
{
public:
    static constexpr bool reads = true;
    Reader(ByteSpan bytes, ReadContext& context) : rest_(bytes), context_(&context) {}

    template <class T> T scalar()
    {
        static_assert(std::is_arithmetic_v<T> && !std::is_same_v<T, bool>);
        T value{};
        std::memcpy(&value, take(sizeof value).data(), sizeof value);
        return value;
    }
    bool flag()
    {
        auto const value = scalar<std::uint8_t>();
        if (value > 1) fail("a value that is neither yes nor no");
        return value == 1;
    }
    std::uint64_t size()
    {
        std::uint64_t value = 0;
        for (unsigned shift = 0; shift < 64; shift += 7) {
            auto const part = std::to_integer<std::uint64_t>(take(1)[0]);
            value |= (part & 0x7F) << shift;
            if (part < 0x80) return value;
        }
        fail("a number without an end");
    }
    // A number of elements of at least so many bytes each.
    std::size_t count(std::size_t bytesEach = 1)
    {
        auto const value = size();
        if (value > rest_.size() / bytesEach) fail("a count of more than there is");
        return static_cast<std::size_t>(value);
    }
    std::string_view text()
    {
        auto const bytes = take(count());
        return {reinterpret_cast<char const*>(bytes.data()), bytes.size()};
    }
    ByteSpan take(std::size_t count)
    {
        if (count > rest_.size()) fail("a value that ends too early");
        auto const taken = rest_.first(count);
        rest_ = rest_.subspan(count);
        return taken;
    }
    Reader sized() { return Reader(take(scalar<std::uint32_t>()), *context_); }
    std::size_t left() const { return rest_.size(); }
    ReadContext& context() const { return *context_; }
    KeyIndex segment() { return ReadContext::find(context_->segments, scalar<FileNumber>()); }
    KeyIndex portfolio() { return ReadContext::find(context_->portfolios, scalar<FileNumber>()); }
    [[noreturn]] static void fail(char const* what) { throw IOException(std::string("is damaged: ") + what); }

private:
    ByteSpan rest_;
    ReadContext* context_;
};

} // namespace HPS::scene
