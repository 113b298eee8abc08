#pragma once
#include <cstdint>
#include <hps/kit_list.h>
#include <memory>

namespace HPS::scene
{

// The attribute kits a segment may hold. Inherited ones come first: they are what a net state is made of.
#define HPS_KIND(Name) Name,
enum class KitKind : std::uint8_t {
    HPS_INHERITED_KITS(HPS_KIND)        //
    InheritedCount,                     //
    LastInherited = InheritedCount - 1, // so that the next one takes the number of InheritedCount
    HPS_OWN_KITS(HPS_KIND) HPS_WINDOW_KITS(HPS_KIND) Count
};
#undef HPS_KIND
constexpr std::size_t inheritedKitCount = static_cast<std::size_t>(KitKind::InheritedCount);

// The values of one kit. Shared and never changed: an edit puts a new block in place of the old one.
struct KitBlock {
    KitKind kind;
    bool isShared = false; // the only block of its values that is shared: see sharedKit
};
using KitPointer = std::shared_ptr<KitBlock const>;

} // namespace HPS::scene
