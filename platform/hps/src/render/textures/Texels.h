#pragma once
#include <cstdint>
#include <hps/ImageKit.h>
#include <optional>
#include <vector>

namespace HPS::render
{

/// The pixels of an image: red, green, blue, alpha, a byte each. Rows as they come, from the top down.
struct Texels {
    unsigned width = 0, height = 0;
    std::vector<std::uint8_t> rgba; ///< 4 · width · height

    /// Some pixel is not opaque.
    bool translucent() const;

    /// The colours are directions of length 1 that lean to the viewer, as maps of normals hold them. A map of
    /// heights is grey, and no grey has length 1.
    bool holdsNormals() const;
};

/// The picture in a kit of any format; nothing if its bytes are not what it says.
std::optional<Texels> texelsOf(ImageKit const& image);

/// What stands in for an image that is missing: squares of two loud colours.
Texels placeholderTexels();

/// Halves the sides, each pixel the mean of those that it takes the place of, until none exceeds `side`.
void shrink(Texels& texels, unsigned side);

/// The nearest pixels of `texels` on a square of `side` pixels.
Texels squared(Texels const& texels, unsigned side);

/// Puts the lowest row first: where texture coordinates have their origin.
void turnUpsideDown(Texels& texels);

} // namespace HPS::render
