#pragma once
#include <hps/BoundingKit.h>
#include <hps/Key.h>
#include <hps/MatrixKit.h>

namespace HPS
{

using KeyArray = std::vector<Key>;

// A way through the scene: the leaf stands first, then what holds it, up to the root. An include stands
// between the included segment and the segment that includes it.
class KeyPath
{
public:
    KeyPath() = default;
    explicit KeyPath(KeyArray keys) : keys_(std::move(keys)) {}
    KeyPath(std::size_t count, Key const keys[]) : keys_(keys, keys + count) {}

    KeyPath& Append(Key const& key) { return PushBack(key); } // at the root's end
    KeyPath& Append(KeyPath const& path);
    KeyPath& PushFront(Key const& key); // at the leaf's end
    KeyPath& PushFront(KeyPath const& path);
    KeyPath& PushBack(Key const& key);
    KeyPath& PopFront(); // nothing happens to an empty path
    KeyPath& PopBack();
    KeyPath& Reverse();
    KeyPath& Reset();

    std::size_t Size() const { return keys_.size(); }
    bool Empty() const { return keys_.empty(); }
    Key At(std::size_t index) const { return index < keys_.size() ? keys_[index] : Key(); }
    Key Front() const { return At(0); }
    Key Back() const { return keys_.empty() ? Key() : keys_.back(); }
    KeyArray const& Keys() const { return keys_; }
    KeyArray::const_iterator begin() const { return keys_.begin(); }
    KeyArray::const_iterator end() const { return keys_.end(); }

    // The extent of the leaf in the coordinates above the path's root, with every matrix on the way. False if
    // there is none, or if a key of the path is stale.
    bool ShowNetBounding(BoundingKit& kit) const;
    // The matrix from the leaf's coordinates to those above the path's root. False if a key is stale.
    bool ShowNetModellingMatrix(MatrixKit& matrix) const;

    friend bool operator==(KeyPath const&, KeyPath const&) = default;

private:
    KeyArray keys_;
};

using KeyPathArray = std::vector<KeyPath>;

} // namespace HPS
