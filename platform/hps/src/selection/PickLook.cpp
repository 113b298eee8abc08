#include "PickLook.h"
#include <hps/CuttingSectionAttributeKit.h>
#include <hps/SelectabilityKit.h>
#include <numbers>

namespace HPS::selection
{

using namespace scene;

namespace
{

using Kinds = VisibilityKinds;

/// What each word of selectability is about.
struct SelectableKinds {
    std::optional<Selectability::Value> SelectabilityData::*slot;
    std::uint32_t shown;  ///< kinds of visibility
    std::uint32_t forced; ///< those of them that stand for all where nothing is visible
};
constexpr std::array selectableKinds{
    SelectableKinds{&SelectabilityData::faces, Kinds::bit(Kinds::Faces), Kinds::bit(Kinds::Faces)},
    SelectableKinds{&SelectabilityData::edges, VisibilityData::edges, Kinds::bit(Kinds::GenericEdges)},
    SelectableKinds{&SelectabilityData::lines, Kinds::bit(Kinds::Lines), Kinds::bit(Kinds::Lines)},
    SelectableKinds{&SelectabilityData::markers, Kinds::bit(Kinds::Markers), Kinds::bit(Kinds::Markers)},
    SelectableKinds{&SelectabilityData::vertices, Kinds::bit(Kinds::Vertices), Kinds::bit(Kinds::Vertices)},
    SelectableKinds{&SelectabilityData::text, Kinds::bit(Kinds::Text), Kinds::bit(Kinds::Text)}};

VisibilityData selectable(VisibilityData visibility, SelectabilityData const& set)
{
    static SelectabilityData const fallback = SelectabilityKit::GetDefault().data();
    for (auto const& kinds : selectableKinds)
        switch (set.*kinds.slot ? *(set.*kinds.slot) : *(fallback.*kinds.slot)) {
        case Selectability::Value::Off:
            visibility.put(kinds.shown, false);
            break;
        case Selectability::Value::On:
            break;
        case Selectability::Value::ForcedOn:
            visibility.put(kinds.forced, true);
            break;
        }
    return visibility;
}

PickLook lookOf(NetState const& state, render::StrokeTable& strokes)
{
    auto const& visibility = state.get<VisibilityData>();
    VisibilityData const pickable = selectable(visibility, state.get<SelectabilityData>());
    Palette const palette = state.palette();
    auto const& culling = state.get<CullingData>();
    auto look = [&](VisibilityData const& shown) {
        return render::lookOf({shown, state.get<MaterialMappingData>(), state.get<LineAttributeData>(),
                               state.get<EdgeAttributeData>(), state.get<MarkerAttributeData>(),
                               state.get<DrawingAttributeData>(), culling,
                               state.get<CuttingSectionAttributeData>(), state.get<TransparencyData>(),
                               state.get<VisualEffectsData>(), state.get<TextAttributeData>(),
                               state.get<CurveAttributeData>(), state.get<NURBSSurfaceAttributeData>(),
                               state.get<CylinderAttributeData>(), state.get<SphereAttributeData>(),
                               state.get<ContourLineData>(), palette, state.portfolios, strokes});
    };
    PickLook result;
    result.pickable = look(pickable);
    result.placing = render::placingOf(state);
    render::Look const seen = look(visibility);
    result.facesHide = seen.facesShown && seen.face.colour[3] == 255;
    result.sectionsCut = visibility.shows(Kinds::CuttingSections, true);
    result.sectionsCutBelow =
        state.get<CuttingSectionAttributeData>().cuttingLevel != CuttingSection::CuttingLevel::Local;
    if (culling.vector)
        if (auto const [on, direction] = *culling.vector; on) {
            double const degrees = culling.vectorTolerance.value_or(0.0f);
            result.vectorCulling = {normalised(wide(direction), {0, 0, 1}),
                                    std::cos(std::clamp(degrees, 0.0, 180.0) * std::numbers::pi / 180)};
        }
    return result;
}

} // namespace

PickLook const& PickLooks::of(NetStatePointer const& state)
{
    constexpr std::size_t most = 1 << 14;
    if (held_.size() > most) held_.clear();
    auto const [found, isNew] = held_.try_emplace(state.get());
    if (isNew) found->second = {state, lookOf(*state, strokes_)};
    return found->second.look;
}

} // namespace HPS::selection
