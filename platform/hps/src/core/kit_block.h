#pragma once
#include <cstdint>
#include <memory>

namespace HPS::scene
{

// The attribute kits a segment may hold. Inherited ones come first: they are what a net state is made of.
enum class KitKind : std::uint8_t {
    MaterialMapping,
    Visibility,
    LineAttribute,
    EdgeAttribute,
    MarkerAttribute,
    DrawingAttribute,
    Culling,
    Transparency,
    VisualEffects,
    TextAttribute,
    Selectability,
    LightingAttribute,
    Camera,
    InheritedCount,
    Bounding = InheritedCount,
    AttributeLock,
    Count
};
constexpr std::size_t inheritedKitCount = static_cast<std::size_t>(KitKind::InheritedCount);

// The values of one kit. Shared and never changed: an edit puts a new block in place of the old one.
struct KitBlock {
    KitKind kind;
};
using KitPointer = std::shared_ptr<KitBlock const>;

} // namespace HPS::scene
