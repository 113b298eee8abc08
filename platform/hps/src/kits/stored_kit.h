#pragma once
#include "kit_block.h"
#include "structure.h"
#include <hps/WindowKey.h>
#include <type_traits>

namespace HPS::scene
{

// The place of a kit's data among a segment's kits.
template <class Data> inline constexpr KitKind kitKind = KitKind::Count;
#define HPS_KIND(Name) template <> inline constexpr KitKind kitKind<Name##Data> = KitKind::Name;
HPS_ALL_KITS(HPS_KIND)
#undef HPS_KIND

template <class Data> struct KitBlockOf : KitBlock {
    explicit KitBlockOf(Data values, bool shared = false)
        : KitBlock{kitKind<Data>, shared}, data(std::move(values))
    {
        static_assert(kitKind<Data> != KitKind::Count, "the kit has no place in KitKind");
    }
    Data data;
};

// The values in a block; null stands for none set.
template <class Data> Data const& valuesOf(KitBlock const* block)
{
    static Data const none{};
    return block ? static_cast<KitBlockOf<Data> const*>(block)->data : none;
}

// Calls f(std::type_identity<Data>()) with the data that belongs to a kind.
template <class F> decltype(auto) withKit(KitKind kind, F&& f)
{
    switch (kind) {
#define HPS_CASE(Name)                                                                                       \
    case KitKind::Name:                                                                                      \
        return f(std::type_identity<Name##Data>());
        HPS_ALL_KITS(HPS_CASE)
#undef HPS_CASE
    case KitKind::Count:
        break;
    }
    __builtin_unreachable();
}

// The name of a kit, as it stands in files.
inline char const* nameOf(KitKind kind)
{
    switch (kind) {
#define HPS_CASE(Name)                                                                                       \
    case KitKind::Name:                                                                                      \
        return #Name;
        HPS_ALL_KITS(HPS_CASE)
#undef HPS_CASE
    case KitKind::Count:
        break;
    }
    return "";
}

} // namespace HPS::scene
