#pragma once
#include "kit_block.h"
#include "structure.h"
#include <hps/SegmentKey.h>
#include <type_traits>

namespace HPS::scene
{

// The place of a kit's data among a segment's kits.
template <class Data> inline constexpr KitKind kitKind = KitKind::Count;
template <> inline constexpr KitKind kitKind<AttributeLockData> = KitKind::AttributeLock;
template <> inline constexpr KitKind kitKind<BoundingData> = KitKind::Bounding;
template <> inline constexpr KitKind kitKind<CameraData> = KitKind::Camera;
template <> inline constexpr KitKind kitKind<CullingData> = KitKind::Culling;
template <> inline constexpr KitKind kitKind<DrawingAttributeData> = KitKind::DrawingAttribute;
template <> inline constexpr KitKind kitKind<EdgeAttributeData> = KitKind::EdgeAttribute;
template <> inline constexpr KitKind kitKind<LightingAttributeData> = KitKind::LightingAttribute;
template <> inline constexpr KitKind kitKind<LineAttributeData> = KitKind::LineAttribute;
template <> inline constexpr KitKind kitKind<MarkerAttributeData> = KitKind::MarkerAttribute;
template <> inline constexpr KitKind kitKind<MaterialMappingData> = KitKind::MaterialMapping;
template <> inline constexpr KitKind kitKind<SelectabilityData> = KitKind::Selectability;
template <> inline constexpr KitKind kitKind<TextAttributeData> = KitKind::TextAttribute;
template <> inline constexpr KitKind kitKind<TransparencyData> = KitKind::Transparency;
template <> inline constexpr KitKind kitKind<VisibilityData> = KitKind::Visibility;
template <> inline constexpr KitKind kitKind<VisualEffectsData> = KitKind::VisualEffects;

template <class Data> struct KitBlockOf : KitBlock {
    explicit KitBlockOf(Data values) : KitBlock{kitKind<Data>}, data(std::move(values))
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
    case KitKind::MaterialMapping:
        return f(std::type_identity<MaterialMappingData>());
    case KitKind::Visibility:
        return f(std::type_identity<VisibilityData>());
    case KitKind::LineAttribute:
        return f(std::type_identity<LineAttributeData>());
    case KitKind::EdgeAttribute:
        return f(std::type_identity<EdgeAttributeData>());
    case KitKind::MarkerAttribute:
        return f(std::type_identity<MarkerAttributeData>());
    case KitKind::DrawingAttribute:
        return f(std::type_identity<DrawingAttributeData>());
    case KitKind::Culling:
        return f(std::type_identity<CullingData>());
    case KitKind::Transparency:
        return f(std::type_identity<TransparencyData>());
    case KitKind::VisualEffects:
        return f(std::type_identity<VisualEffectsData>());
    case KitKind::TextAttribute:
        return f(std::type_identity<TextAttributeData>());
    case KitKind::Selectability:
        return f(std::type_identity<SelectabilityData>());
    case KitKind::LightingAttribute:
        return f(std::type_identity<LightingAttributeData>());
    case KitKind::Camera:
        return f(std::type_identity<CameraData>());
    case KitKind::Bounding:
        return f(std::type_identity<BoundingData>());
    case KitKind::AttributeLock:
        return f(std::type_identity<AttributeLockData>());
    case KitKind::Count:
        break;
    }
    __builtin_unreachable();
}
static_assert(static_cast<int>(KitKind::Count) == 15, "withKit must know every kind");

} // namespace HPS::scene
