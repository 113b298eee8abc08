#pragma once
#include "Buffer.h"
#include "Shadows.h"
#include "Surface.h"
#include "Viewing.h"
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace HPS::render
{

/// Lights that can throw shadows at a time, by the order of the scene's lights.
inline constexpr std::size_t shadowLights = 4;

/// Depth maps seen from the lights, kept from frame to frame, and the picture of where their light falls.
class ShadowMaps
{
public:
    /// What the content of a map follows from.
    struct Key {
        std::uint64_t list = 0; ///< version of the draw list
        Camera camera;          ///< that looks from the light
        bool operator==(Key const&) const = default;
    };
    ShadowMaps();
    ~ShadowMaps();

    /// Pixels of a map in each direction. Maps of another size are lost.
    void resize(unsigned resolution);
    unsigned resolution() const { return resolution_; }
    bool holds(std::size_t light, Key const& key) const;
    /// To be drawn into, cleared. What is drawn next counts as what `key` tells.
    void bind(std::size_t light, Key const& key);

    /// Finds out how much of each light reaches the pixels whose depths `depths` holds, seen by `view`. The
    /// light of a null `lights` entry reaches everywhere.
    void makeMask(Surface const& depths, Viewing const& view, Viewing const* const (&lights)[shadowLights],
                  Shadows const& shadows);
    /// To be read by programs with Feature::Shadowed.
    void readMask() const;

private:
    unsigned texture_ = 0, framebuffer_ = 0;
    unsigned resolution_ = 0;
    std::optional<Key> keys_[shadowLights];
    Surface mask_;
    Buffer block_;
};

} // namespace HPS::render
