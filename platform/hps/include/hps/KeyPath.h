#pragma once
#include <hps/BoundingKit.h>
#include <hps/Coordinate.h>
#include <hps/Definition.h>
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

    // What the path's leaf inherits, or sets itself. False if that is nothing, or if a key is stale.
    bool ShowNetConditions(std::vector<UTF8>& conditions) const;
    bool ShowNetTextureMatrix(MatrixKit& matrix) const;
    bool ShowNetPriority(int& priority) const;

    // Takes a point from one space to another, as the window at the path's root and the camera on it show the
    // leaf. False, leaving `converted` as it is, if a key is stale, if the conversion needs a window and the
    // path has none, for a point at or behind the eye, or if a matrix on the path cannot be turned round. The
    // camera of a path without one is the default camera.
    bool ConvertCoordinate(Coordinate::Space from, Point const& point, Coordinate::Space to,
                           Point& converted) const;
    bool ConvertCoordinate(Coordinate::Space from, std::vector<Point> const& points, Coordinate::Space to,
                           std::vector<Point>& converted) const;
    // What the extent of the leaf takes of the window, in window space, or sticks out of it. False if there
    // is nothing to be seen, or as above.
    bool ComputeExtent(Rectangle& extent) const;

    // What the portfolios of the path's segments define under a name. A name is looked up in the leaf's own
    // portfolios first, the last one pushed before the others, and then upwards. False if none defines it.
#define HPS_DEFINITION(Name)                                                                                 \
    bool ShowEffective##Name##Definition(UTF8 const& name, Name##Definition& definition) const;
    HPS_DEFINITION(Image)
    HPS_DEFINITION(Texture)
    HPS_DEFINITION(CubeMap)
    HPS_DEFINITION(LinePattern)
    HPS_DEFINITION(Glyph)
    HPS_DEFINITION(Shape)
    HPS_DEFINITION(LegacyShader)
    HPS_DEFINITION(MaterialPalette)
    HPS_DEFINITION(NamedStyle)
#undef HPS_DEFINITION

    friend bool operator==(KeyPath const&, KeyPath const&) = default;

private:
    KeyArray keys_;
};

using KeyPathArray = std::vector<KeyPath>;

} // namespace HPS
