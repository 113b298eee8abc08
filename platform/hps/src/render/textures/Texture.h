#pragma once
#include "Texels.h"
#include <array>
#include <memory>

namespace HPS::render
{

/// An image in the device's memory. Needs the device's context to be current, at its end too.
class Texture
{
public:
    /// A flat image, rows from the bottom up, with all smaller levels if `levels`.
    Texture(Texels const& texels, bool levels);
    /// The six sides in the order of OpenGL, squares of one size, rows from the top down.
    Texture(std::array<Texels, 6> const& sides, bool levels);
    ~Texture();
    Texture(Texture const&) = delete;
    Texture& operator=(Texture const&) = delete;

    unsigned name() const { return name_; }
    unsigned width() const { return width_; }
    unsigned height() const { return height_; }
    bool translucent() const { return translucent_; } ///< some pixel is not opaque
    bool holdsNormals() const { return holdsNormals_; }

private:
    unsigned name_ = 0;
    unsigned width_ = 0, height_ = 0;
    bool translucent_ = false, holdsNormals_ = false;
};
using TexturePointer = std::shared_ptr<Texture const>;

} // namespace HPS::render
