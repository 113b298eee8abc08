#pragma once
#include <hps/Kit.h>
#include <hps/enumerations.h>

namespace HPS
{

// How the effects that visual effects switch on are drawn over the picture of a window.
struct PostProcessEffectsData {
    std::optional<std::tuple<bool, float, PostProcessEffects::AmbientOcclusion::Quality, float, float>>
        ambientOcclusion;
    std::optional<std::tuple<bool, float, unsigned int, PostProcessEffects::Bloom::Shape>> bloom;
    std::optional<std::tuple<bool, float, float, float>> depthOfField;
    std::optional<std::tuple<bool, float, bool>> silhouetteEdges;
    std::optional<std::tuple<bool, float, float, float>> eyeDomeLighting;
    std::optional<float> worldScale;

    bool operator==(PostProcessEffectsData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{Aspect{1, "AmbientOcclusion", &PostProcessEffectsData::ambientOcclusion},
                          Aspect{2, "Bloom", &PostProcessEffectsData::bloom},
                          Aspect{3, "DepthOfField", &PostProcessEffectsData::depthOfField},
                          Aspect{4, "SilhouetteEdges", &PostProcessEffectsData::silhouetteEdges},
                          Aspect{5, "EyeDomeLighting", &PostProcessEffectsData::eyeDomeLighting},
                          Aspect{6, "WorldScale", &PostProcessEffectsData::worldScale}};
    }
};
static_assert(CompleteKit<PostProcessEffectsData>);

template <class Self> class PostProcessEffectsOperations : public Operations<Self>
{
public:
    using Data = PostProcessEffectsData;

    HPS_ASPECT_PARTS(AmbientOcclusion, ambientOcclusion,
                     (bool state, float strength = 1,
                      PostProcessEffects::AmbientOcclusion::Quality quality =
                          PostProcessEffects::AmbientOcclusion::Quality::Nicest,
                      float radius = 1, float sharpness = 1),
                     (bool& state, float& strength, PostProcessEffects::AmbientOcclusion::Quality& quality,
                      float& radius, float& sharpness),
                     state, strength, quality, radius, sharpness)
    // Blur is the number of passes.
    HPS_ASPECT_PARTS(Bloom, bloom,
                     (bool state, float strength = 1, unsigned int blur = 5,
                      PostProcessEffects::Bloom::Shape shape = PostProcessEffects::Bloom::Shape::Radial),
                     (bool& state, float& strength, unsigned int& blur,
                      PostProcessEffects::Bloom::Shape& shape),
                     state, strength, blur, shape)
    // Sharp between the two distances from the eye, in world units.
    HPS_ASPECT_PARTS(DepthOfField, depthOfField,
                     (bool state, float strength = 1, float nearDistance = 0, float farDistance = 0),
                     (bool& state, float& strength, float& nearDistance, float& farDistance), state, strength,
                     nearDistance, farDistance)
    HPS_ASPECT_PARTS(SilhouetteEdges, silhouetteEdges,
                     (bool state, float tolerance = 1, bool heavyExterior = false),
                     (bool& state, float& tolerance, bool& heavyExterior), state, tolerance, heavyExterior)
    HPS_ASPECT_PARTS(EyeDomeLighting, eyeDomeLighting,
                     (bool state, float exponent = 1, float tolerance = 1, float strength = 1),
                     (bool& state, float& exponent, float& tolerance, float& strength), state, exponent,
                     tolerance, strength)
    // World units in one unit of the distances above.
    HPS_ASPECT(WorldScale, float, worldScale)
};

class PostProcessEffectsKit : public Kit<PostProcessEffectsKit, PostProcessEffectsOperations>
{
public:
    static PostProcessEffectsKit GetDefault();
};

class PostProcessEffectsControl : public Control<PostProcessEffectsControl, PostProcessEffectsOperations>
{
public:
    using Control::Control;
};

} // namespace HPS
