#pragma once
#include <hps/Color.h>
#include <hps/Kit.h>
#include <hps/Plane.h>
#include <hps/Vector.h>
#include <hps/VisibilityKit.h>

namespace HPS
{

// Shadows, reflection and the effects that a window draws over its picture.
struct VisualEffectsData {
    std::optional<bool> postProcessEffectsEnabled;
    std::optional<bool> ambientOcclusionEnabled;
    std::optional<bool> silhouetteEdgesEnabled;
    std::optional<bool> depthOfFieldEnabled;
    std::optional<bool> bloomEnabled;
    std::optional<bool> eyeDomeLightingEnabled;
    std::optional<std::tuple<bool, RGBColor>> eyeDomeLightingBackColor;
    std::optional<bool> antiAliasing;
    std::optional<bool> textAntiAliasing;
    std::optional<std::tuple<bool, unsigned, unsigned, bool, bool>> shadowMaps;
    std::optional<std::tuple<bool, unsigned, unsigned, bool>> simpleShadow;
    std::optional<Plane> simpleShadowPlane;
    std::optional<Vector> simpleShadowLightDirection;
    std::optional<RGBAColor> simpleShadowColor;
    std::optional<std::tuple<bool, float, unsigned, bool, float, float>> simpleReflection;
    std::optional<Plane> simpleReflectionPlane;
    std::optional<VisibilityKit> simpleReflectionVisibility;

    bool operator==(VisualEffectsData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{
            Aspect{1, "PostProcessEffectsEnabled", &VisualEffectsData::postProcessEffectsEnabled},
            Aspect{2, "AmbientOcclusionEnabled", &VisualEffectsData::ambientOcclusionEnabled},
            Aspect{3, "SilhouetteEdgesEnabled", &VisualEffectsData::silhouetteEdgesEnabled},
            Aspect{4, "DepthOfFieldEnabled", &VisualEffectsData::depthOfFieldEnabled},
            Aspect{5, "BloomEnabled", &VisualEffectsData::bloomEnabled},
            Aspect{6, "EyeDomeLightingEnabled", &VisualEffectsData::eyeDomeLightingEnabled},
            Aspect{7, "EyeDomeLightingBackColor", &VisualEffectsData::eyeDomeLightingBackColor},
            Aspect{8, "AntiAliasing", &VisualEffectsData::antiAliasing},
            Aspect{9, "TextAntiAliasing", &VisualEffectsData::textAntiAliasing},
            Aspect{10, "ShadowMaps", &VisualEffectsData::shadowMaps},
            Aspect{11, "SimpleShadow", &VisualEffectsData::simpleShadow},
            Aspect{12, "SimpleShadowPlane", &VisualEffectsData::simpleShadowPlane},
            Aspect{13, "SimpleShadowLightDirection", &VisualEffectsData::simpleShadowLightDirection},
            Aspect{14, "SimpleShadowColor", &VisualEffectsData::simpleShadowColor},
            Aspect{15, "SimpleReflection", &VisualEffectsData::simpleReflection},
            Aspect{16, "SimpleReflectionPlane", &VisualEffectsData::simpleReflectionPlane},
            Aspect{17, "SimpleReflectionVisibility", &VisualEffectsData::simpleReflectionVisibility}};
    }
};
static_assert(CompleteKit<VisualEffectsData>);

template <class Self> class VisualEffectsOperations : public Operations<Self>
{
public:
    using Data = VisualEffectsData;

    HPS_ASPECT(PostProcessEffectsEnabled, bool, postProcessEffectsEnabled)
    HPS_ASPECT(AmbientOcclusionEnabled, bool, ambientOcclusionEnabled)
    HPS_ASPECT(SilhouetteEdgesEnabled, bool, silhouetteEdgesEnabled)
    HPS_ASPECT(DepthOfFieldEnabled, bool, depthOfFieldEnabled)
    HPS_ASPECT(BloomEnabled, bool, bloomEnabled)
    HPS_ASPECT(EyeDomeLightingEnabled, bool, eyeDomeLightingEnabled)
    Self& SetEyeDomeLightingBackColor(bool state, RGBColor const& color = {})
    {
        return detail::set<&Data::eyeDomeLightingBackColor>(this->self(), std::tuple{state, color});
    }
    Self& UnsetEyeDomeLightingBackColor()
    {
        return detail::unset<&Data::eyeDomeLightingBackColor>(this->self());
    }
    bool ShowEyeDomeLightingBackColor(bool& state, RGBColor& color) const
    {
        return detail::show<&Data::eyeDomeLightingBackColor>(this->self(), state, color);
    }
    HPS_ASPECT(AntiAliasing, bool, antiAliasing)
    HPS_ASPECT(TextAntiAliasing, bool, textAntiAliasing)
    Self& SetShadowMaps(bool state, unsigned samples = 4, unsigned resolution = 1024,
                        bool viewDependent = true, bool jitter = true)
    {
        return detail::set<&Data::shadowMaps>(this->self(),
                                              std::tuple{state, samples, resolution, viewDependent, jitter});
    }
    Self& UnsetShadowMaps() { return detail::unset<&Data::shadowMaps>(this->self()); }
    bool ShowShadowMaps(bool& state, unsigned& samples, unsigned& resolution, bool& viewDependent,
                        bool& jitter) const
    {
        return detail::show<&Data::shadowMaps>(this->self(), state, samples, resolution, viewDependent,
                                               jitter);
    }
    Self& SetSimpleShadow(bool state, unsigned resolution = 256, unsigned blurring = 1,
                          bool ignoreTransparency = false)
    {
        return detail::set<&Data::simpleShadow>(this->self(),
                                                std::tuple{state, resolution, blurring, ignoreTransparency});
    }
    Self& UnsetSimpleShadow() { return detail::unset<&Data::simpleShadow>(this->self()); }
    bool ShowSimpleShadow(bool& state, unsigned& resolution, unsigned& blurring,
                          bool& ignoreTransparency) const
    {
        return detail::show<&Data::simpleShadow>(this->self(), state, resolution, blurring,
                                                 ignoreTransparency);
    }
    // The plane that takes the shadow.
    HPS_ASPECT(SimpleShadowPlane, Plane, simpleShadowPlane)
    HPS_ASPECT(SimpleShadowLightDirection, Vector, simpleShadowLightDirection)
    HPS_ASPECT(SimpleShadowColor, RGBAColor, simpleShadowColor)
    Self& SetSimpleReflection(bool state, float opacity = 0.5f, unsigned blurring = 1, bool fading = false,
                              float attenuationNearDistance = 0, float attenuationFarDistance = 0)
    {
        return detail::set<&Data::simpleReflection>(
            this->self(),
            std::tuple{state, opacity, blurring, fading, attenuationNearDistance, attenuationFarDistance});
    }
    Self& UnsetSimpleReflection() { return detail::unset<&Data::simpleReflection>(this->self()); }
    bool ShowSimpleReflection(bool& state, float& opacity, unsigned& blurring, bool& fading,
                              float& attenuationNearDistance, float& attenuationFarDistance) const
    {
        return detail::show<&Data::simpleReflection>(this->self(), state, opacity, blurring, fading,
                                                     attenuationNearDistance, attenuationFarDistance);
    }
    HPS_ASPECT(SimpleReflectionPlane, Plane, simpleReflectionPlane)
    // What is seen in the mirror.
    HPS_ASPECT(SimpleReflectionVisibility, VisibilityKit, simpleReflectionVisibility)
};

class VisualEffectsKit : public Kit<VisualEffectsKit, VisualEffectsOperations>
{
public:
    static VisualEffectsKit GetDefault();
};

class VisualEffectsControl : public Control<VisualEffectsControl, VisualEffectsOperations>
{
public:
    using Control::Control;
};

} // namespace HPS
