#include <narmeta/visu/Texture.h>

#include <narmeta/Utf8.h>

#include <algorithm>
#include <filesystem>

namespace NarMetaVisu
{

namespace
{

template <class T> bool Give(std::optional<T> const& value, T& out)
{
    if (value) out = *value;
    return value.has_value();
}

template <std::size_t N> bool Give(std::optional<std::array<float, N>> const& value, float (&out)[N])
{
    if (value) std::copy(value->begin(), value->end(), out);
    return value.has_value();
}

template <class T> bool Give(std::optional<std::array<T, 2>> const& value, T& first, T& second)
{
    if (value) first = (*value)[0], second = (*value)[1];
    return value.has_value();
}

} // namespace

bool TextureImage::GetMipmap(unsigned level, unsigned char const*& data, std::size_t& size) const
{
    if (level >= mipmaps_.size()) return false;
    data = mipmaps_[level].data();
    size = mipmaps_[level].size();
    return true;
}

bool Texture::GetTextureFilePath(std::wstring& path, bool mustExist) const
{
    std::error_code ignored;
    if (!settings_.filePath ||
        (mustExist && !std::filesystem::exists(NarMeta::ToUtf8(*settings_.filePath), ignored)))
        return false;
    path = *settings_.filePath;
    return true;
}

bool Texture::GetTextureImage(std::shared_ptr<TextureImage>& image) const
{
    if (settings_.image) image = settings_.image;
    return settings_.image != nullptr;
}

bool Texture::GetTextureMappingMode(TextureMappingMode& mode) const
{
    return Give(settings_.mapping, mode);
}

bool Texture::GetTextureRotation(float (&radians)[3]) const
{
    return Give(settings_.rotation, radians);
}

bool Texture::GetTextureTranslation(float (&offset)[2]) const
{
    return Give(settings_.translation, offset);
}

bool Texture::GetTextureScale(float (&scale)[2]) const
{
    return Give(settings_.scale, scale);
}

bool Texture::GetTextureMethod(TextureMethod& method) const
{
    return Give(settings_.method, method);
}

bool Texture::GetTextureFilter(TextureFilter& magnification, TextureFilter& minification) const
{
    return Give(settings_.filter, magnification, minification);
}

bool Texture::GetTextureWrapMode(TextureWrapMode& u, TextureWrapMode& v) const
{
    return Give(settings_.wrap, u, v);
}

} // namespace NarMetaVisu
