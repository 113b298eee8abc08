#pragma once
#include <cstdint>

namespace HPS::render
{

/// What is done to the whole picture after it is drawn. A state of false costs nothing.
struct Effects {
    struct Occlusion {
        bool on = false;
        bool nicest = true;
        float strength = 1;
        float radius = 1;    ///< of `naturalRadius` of the scene
        float sharpness = 1; ///< how soon smoothing stops where the depth changes
        bool operator==(Occlusion const&) const = default;
    } occlusion;

    struct Bloom {
        enum class Shape : std::uint8_t { Star, Radial };
        bool on = false;
        float strength = 1;
        unsigned blur = 5; ///< passes
        Shape shape = Shape::Radial;
        bool operator==(Bloom const&) const = default;
    } bloom;

    struct DepthOfField {
        bool on = false;
        float strength = 1;
        double nearDistance = 0, farDistance = 0; ///< from the eye, in the world; sharp between the two
        bool operator==(DepthOfField const&) const = default;
    } depthOfField;

    struct Silhouettes {
        bool on = false;
        float tolerance = 1; ///< of steps in depth, relative to the size of a pixel
        bool heavyExterior = false;
        bool operator==(Silhouettes const&) const = default;
    } silhouettes;

    struct EyeDome {
        bool on = false;
        float exponent = 1, tolerance = 1, strength = 1;
        float shade[3] = {0, 0, 0}; ///< colour that what lies deep takes on
        bool operator==(EyeDome const&) const = default;
    } eyeDome;

    bool smoothing = false; ///< of steps in the finished picture, where its pixels have one sample only

    /// Those that are on.
    std::uint8_t bits() const;
    bool operator==(Effects const&) const = default;
};

/// Bits of `Record::withoutEffects`; known to the effects' shaders.
enum EffectBit : std::uint8_t {
    OcclusionBit = 1,
    BloomBit = 2,
    DepthOfFieldBit = 4,
    SilhouetteBit = 8,
    EyeDomeBit = 16,
    AllEffectBits = 31
};

inline std::uint8_t Effects::bits() const
{
    return std::uint8_t((occlusion.on ? OcclusionBit : 0) | (bloom.on ? BloomBit : 0) |
                        (depthOfField.on ? DepthOfFieldBit : 0) | (silhouettes.on ? SilhouetteBit : 0) |
                        (eyeDome.on ? EyeDomeBit : 0));
}

} // namespace HPS::render
