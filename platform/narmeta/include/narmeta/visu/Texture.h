#pragma once

#include <narmeta/visu/TextureImage.h>

#include <array>
#include <memory>
#include <optional>
#include <string>

namespace NarMetaVisu
{

/// An image and how it lies on a surface. Getters with an out argument give false when the aspect is not set.
class Texture
{
public:
    enum class TextureMappingMode {
        Unknown = 0,
        Stored = 1,
        Parametric = 2,
        Spherical = 3,
        Cylindrical = 4,
        Environment = 5,
        EnvironmentCube = 6
    };
    enum class TextureMethod { Unknown = 0, Decal = 1, Modulate = 2 };
    enum class TextureFilter {
        None = 0,
        Nearest = 1,
        Linear = 2,
        NearestMipmapNearest = 3,
        LinearMipmapNearest = 4,
        NearestMipmapLinear = 5,
        LinearMipmapLinear = 6
    };
    enum class TextureWrapMode {
        Unknown = 0,
        Repeat = 1,
        Clamp = 2,
        ClampToBorder = 3,
        ClampToEdge = 4,
        MirroredRepeat = 5
    };

    /// Only what is set is there.
    struct Settings {
        std::optional<std::wstring> filePath;
        std::shared_ptr<TextureImage> image;
        std::optional<TextureMappingMode> mapping;
        std::optional<std::array<float, 3>> rotation; ///< radians about x, y, z
        std::optional<std::array<float, 2>> translation;
        std::optional<std::array<float, 2>> scale;
        std::optional<TextureMethod> method;
        std::optional<std::array<TextureFilter, 2>> filter; ///< magnification, minification
        std::optional<std::array<TextureWrapMode, 2>> wrap; ///< u, v
    };

    explicit Texture(std::wstring name, Settings settings = {})
        : name_(std::move(name)), settings_(std::move(settings))
    {
    }

    std::wstring const& GetTextureName() const { return name_; }
    Settings const& GetSettings() const { return settings_; }

    /// @p mustExist: false as well if there is no such file.
    bool GetTextureFilePath(std::wstring& path, bool mustExist) const;
    bool GetTextureImage(std::shared_ptr<TextureImage>& image) const;
    bool GetTextureMappingMode(TextureMappingMode& mode) const;
    bool GetTextureRotation(float (&radians)[3]) const;
    bool GetTextureTranslation(float (&offset)[2]) const;
    bool GetTextureScale(float (&scale)[2]) const;
    bool GetTextureMethod(TextureMethod& method) const;
    bool GetTextureFilter(TextureFilter& magnification, TextureFilter& minification) const;
    bool GetTextureWrapMode(TextureWrapMode& u, TextureWrapMode& v) const;

private:
    std::wstring name_;
    Settings settings_;
};

} // namespace NarMetaVisu
