#include "Texture.h"
#include <algorithm>
#include <bit>
#include <cassert>
#include <epoxy/gl.h>

namespace HPS::render
{
namespace
{

int levelsOf(unsigned width, unsigned height, bool levels)
{
    return levels ? int(std::bit_width(std::max(width, height))) : 1;
}

} // namespace

Texture::Texture(Texels const& texels, bool levels)
    : width_(texels.width),
      height_(texels.height),
      translucent_(texels.translucent()),
      holdsNormals_(texels.holdsNormals())
{
    assert(texels.rgba.size() == std::size_t(4) * width_ * height_ && width_ > 0 && height_ > 0);
    glCreateTextures(GL_TEXTURE_2D, 1, &name_);
    glTextureStorage2D(name_, levelsOf(width_, height_, levels), GL_RGBA8, GLsizei(width_), GLsizei(height_));
    glTextureSubImage2D(name_, 0, 0, 0, GLsizei(width_), GLsizei(height_), GL_RGBA, GL_UNSIGNED_BYTE,
                        texels.rgba.data());
    if (levels) glGenerateTextureMipmap(name_);
}

Texture::Texture(std::array<Texels, 6> const& sides, bool levels)
    : width_(sides[0].width), height_(sides[0].height)
{
    glCreateTextures(GL_TEXTURE_CUBE_MAP, 1, &name_);
    glTextureStorage2D(name_, levelsOf(width_, height_, levels), GL_RGBA8, GLsizei(width_), GLsizei(height_));
    for (std::size_t side = 0; side < sides.size(); ++side) {
        assert(sides[side].width == width_ && sides[side].height == width_);
        glTextureSubImage3D(name_, 0, 0, 0, GLint(side), GLsizei(width_), GLsizei(height_), 1, GL_RGBA,
                            GL_UNSIGNED_BYTE, sides[side].rgba.data());
    }
    if (levels) glGenerateTextureMipmap(name_);
}

Texture::~Texture()
{
    glDeleteTextures(1, &name_);
}

} // namespace HPS::render
