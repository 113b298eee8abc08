#pragma once
#include "kit_block.h"
#include "structure.h"
#include <hps/SegmentKey.h>

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

// Calls f with an empty value of the data that belongs to a kind.
template <class F> decltype(auto) withKit(KitKind kind, F&& f)
{
    switch (kind) {
    case KitKind::MaterialMapping:
        return f(MaterialMappingData());
    case KitKind::Visibility:
        return f(VisibilityData());
    case KitKind::LineAttribute:
        return f(LineAttributeData());
    case KitKind::EdgeAttribute:
        return f(EdgeAttributeData());
    case KitKind::MarkerAttribute:
        return f(MarkerAttributeData());
    case KitKind::DrawingAttribute:
        return f(DrawingAttributeData());
    case KitKind::Culling:
        return f(CullingData());
    case KitKind::Transparency:
        return f(TransparencyData());
    case KitKind::VisualEffects:
        return f(VisualEffectsData());
    case KitKind::TextAttribute:
        return f(TextAttributeData());
    case KitKind::Selectability:
        return f(SelectabilityData());
    case KitKind::LightingAttribute:
        return f(LightingAttributeData());
    case KitKind::Camera:
        return f(CameraData());
    case KitKind::Bounding:
        return f(BoundingData());
    case KitKind::AttributeLock:
        return f(AttributeLockData());
    case KitKind::Count:
        break;
    }
    __builtin_unreachable();
}
static_assert(static_cast<int>(KitKind::Count) == 15, "withKit must know every kind");

} // namespace HPS::scene
