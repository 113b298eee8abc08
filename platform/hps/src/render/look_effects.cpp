#include "Effects.h"
#include "Look.h"
#include "MeshStore.h"
#include <algorithm>
#include <cmath>

namespace HPS::render
{
namespace
{

struct Defaults {
    TransparencyData transparency = TransparencyKit::GetDefault().data();
    VisualEffectsData effects = VisualEffectsKit::GetDefault().data();
};
Defaults const& defaults()
{
    static Defaults const values;
    return values;
}

template <class Data, class Value>
Value const& valueOf(Data const& set, Data const& fallback, std::optional<Value> Data::*slot)
{
    return set.*slot ? *(set.*slot) : *(fallback.*slot);
}

/// Nothing for a plane without a direction.
std::optional<MirrorPlane> mirrorPlane(Plane const& plane)
{
    Vec3 const normal{plane.a, plane.b, plane.c};
    double const size = length(normal);
    if (!(size > 0) || !std::isfinite(size) || !std::isfinite(plane.d)) return {};
    return MirrorPlane{normal * (1 / size), plane.d / size};
}

std::uint32_t mirroredKinds(VisibilityData const& shown)
{
    using Kinds = VisibilityKinds;
    std::uint32_t kinds = 0;
    auto add = [&](Primitive primitive, bool on) { kinds |= on ? 1u << unsigned(primitive) : 0u; };
    bool const edges = shown.shows(Kinds::GenericEdges, true);
    bool const lines = shown.shows(Kinds::Lines, true) || edges;
    add(Primitive::Faces, shown.shows(Kinds::Faces, true));
    for (Primitive const stroke : {Primitive::Lines, Primitive::ThinLines, Primitive::Strokes})
        add(stroke, lines);
    add(Primitive::ViewEdges, edges);
    add(Primitive::Markers, shown.shows(Kinds::Markers, true) || shown.shows(Kinds::Vertices, true));
    add(Primitive::Glyphs, shown.shows(Kinds::Text, true) || shown.shows(Kinds::Markers, true));
    return kinds;
}

std::optional<PlaneShadow> planeShadow(VisualEffectsData const& set)
{
    using Data = VisualEffectsData;
    Data const& fallback = defaults().effects;
    auto const [on, resolution, blurring, ignore] = valueOf(set, fallback, &Data::simpleShadow);
    auto const plane = mirrorPlane(valueOf(set, fallback, &Data::simpleShadowPlane));
    if (!on || !plane) return {};
    PlaneShadow shadow{
        .plane = *plane, .resolution = resolution, .blurring = blurring, .ignoreTransparency = ignore};
    Vector const& light = valueOf(set, fallback, &Data::simpleShadowLightDirection);
    shadow.toLight = normalised({light.x, light.y, light.z}, plane->normal);
    RGBAColor const& colour = valueOf(set, fallback, &Data::simpleShadowColor);
    float const parts[4] = {colour.red, colour.green, colour.blue, colour.alpha};
    std::copy_n(parts, 4, shadow.colour);
    return shadow;
}

std::optional<PlaneReflection> planeReflection(VisualEffectsData const& set)
{
    using Data = VisualEffectsData;
    Data const& fallback = defaults().effects;
    auto const [on, opacity, blurring, fading, near, far] = valueOf(set, fallback, &Data::simpleReflection);
    auto const plane = mirrorPlane(valueOf(set, fallback, &Data::simpleReflectionPlane));
    if (!on || !plane || !(opacity > 0)) return {};
    PlaneReflection reflection;
    reflection.plane = *plane;
    reflection.opacity = opacity;
    reflection.blurring = blurring;
    reflection.fading = fading;
    reflection.fadeNear = near;
    reflection.fadeFar = far;
    reflection.kinds = mirroredKinds(valueOf(set, fallback, &Data::simpleReflectionVisibility).data());
    return reflection;
}

/// Effects of the picture that this part of the scene takes no part in. What is not set takes part.
std::uint8_t withoutEffects(VisualEffectsData const& set)
{
    if (!set.postProcessEffectsEnabled.value_or(true)) return AllEffectBits;
    std::uint8_t bits = 0;
    auto leave = [&](std::optional<bool> const& enabled, EffectBit bit) {
        if (!enabled.value_or(true)) bits = std::uint8_t(bits | bit);
    };
    leave(set.ambientOcclusionEnabled, OcclusionBit);
    leave(set.bloomEnabled, BloomBit);
    leave(set.depthOfFieldEnabled, DepthOfFieldBit);
    leave(set.silhouetteEdgesEnabled, SilhouetteBit);
    leave(set.eyeDomeLightingEnabled, EyeDomeBit);
    return bits;
}

} // namespace

void lookEffects(Look& look, LookSources const& sources)
{
    using Kinds = VisibilityKinds;
    auto const method = valueOf(sources.transparency, defaults().transparency, &TransparencyData::method);
    look.manner.opaque = method == HPS::Transparency::Method::None;
    look.manner.screenDoor = method == HPS::Transparency::Method::ScreenDoor;
    look.manner.depthWriting =
        valueOf(sources.transparency, defaults().transparency, &TransparencyData::depthWriting);
    look.manner.smooth = valueOf(sources.effects, defaults().effects, &VisualEffectsData::antiAliasing);
    look.manner.smoothText =
        valueOf(sources.effects, defaults().effects, &VisualEffectsData::textAntiAliasing);
    look.manner.role.castsShadow = sources.visibility.shows(Kinds::ShadowCasting, true);
    look.manner.role.withoutEffects = withoutEffects(sources.effects);
    if (!sources.visibility.shows(Kinds::ShadowReceiving, true)) look.face.flags |= Unshadowed;
    look.planeShadow = planeShadow(sources.effects);
    look.reflection = planeReflection(sources.effects);
}

} // namespace HPS::render
