#pragma once
#include <cstddef>
#include <cstdint>
#include <hps/Object.h>
#include <hps/UTF8.h>
#include <vector>

namespace HPS
{

using byte = std::uint8_t;
using ByteArray = std::vector<byte>;
using ByteArrayArray = std::vector<ByteArray>;
using IntPtrTArray = std::vector<std::int64_t>;

class SegmentKey;

namespace detail
{
// Tells the handlers of the database's errors that something asked of the library was refused, and why.
void refuse(char const* cause);
} // namespace detail

// Where a handle's object stands in the database. Slots are reused, generations within a slot are not.
struct KeyIndex {
    std::uint32_t slot = 0; // 0 is never used
    std::uint32_t generation = 0;
    friend constexpr bool operator==(KeyIndex const&, KeyIndex const&) = default;
    friend constexpr auto operator<=>(KeyIndex const&, KeyIndex const&) = default;
};

// Handle of an object in the database. Copying it copies the handle. Once the object is deleted every handle
// of it is stale: its type is None and all operations on it do nothing and return false, zero or an empty
// handle.
class Key : public Object
{
public:
    Key() = default;
    explicit Key(KeyIndex index) : index_(index) {}

    HPS::Type Type() const override;
    KeyIndex Index() const { return index_; }

    // Deletes the object, with all that a segment holds, and all includes of it elsewhere.
    void Delete();
    // Makes this handle empty; the object stays.
    void Reset() { index_ = {}; }

    bool HasOwner() const;
    // The segment that holds this object; empty for a root.
    SegmentKey Owner() const;
    SegmentKey Up() const;
    // A segment's name; empty for anything else.
    UTF8 Name() const;

    // Bytes that the caller attaches to a segment or a geometry, by index. They are kept in order of the
    // index. As many indices as byte strings, or nothing is done.
    Key& SetUserData(std::int64_t index, std::size_t byteCount, byte const data[]);
    Key& SetUserData(std::int64_t index, ByteArray const& data);
    Key& SetUserData(IntPtrTArray const& indices, ByteArrayArray const& data);
    Key& UnsetUserData(std::int64_t index);
    Key& UnsetUserData(IntPtrTArray const& indices);
    Key& UnsetAllUserData();
    std::size_t ShowUserDataCount() const;
    bool ShowUserDataIndices(IntPtrTArray& indices) const;
    bool ShowUserData(std::int64_t index, ByteArray& data) const;
    bool ShowUserData(IntPtrTArray& indices, ByteArrayArray& data) const;

    // Same object. All empty handles are equal.
    friend bool operator==(Key const& a, Key const& b) { return a.index_ == b.index_; }
    friend bool operator<(Key const& a, Key const& b) { return a.index_ < b.index_; }

private:
    KeyIndex index_;
};

// Base of the handles of one type: made from any key, and empty if that key is of another type.
template <HPS::Type Expected, class Base = Key> class KeyOf : public Base
{
public:
    static constexpr HPS::Type StaticType = Expected;
    KeyOf() = default;
    explicit KeyOf(KeyIndex index) : Base(index) {}
    explicit KeyOf(Key const& key) : Base(key.HasType(Expected) ? key.Index() : KeyIndex{}) {}
};

} // namespace HPS
