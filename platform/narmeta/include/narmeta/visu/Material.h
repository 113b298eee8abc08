#pragma once

#include <narmeta/Colour.h>
#include <narmeta/visu/Texture.h>

#include <vector>

namespace NarMetaVisu
{

/// How a surface reacts to light. Each property may come as a colour, as a coefficient from 0 to 1, or not at
/// all.
class Material
{
public:
    struct Property {
        std::optional<NarMeta::Colour> colour;
        std::optional<float> coefficient;
    };
    using Textures = std::vector<std::shared_ptr<Texture>>;

    /// Plain contents, filled by a reader.
    struct Settings {
        Property diffuse;
        /// 1 (or white) is opaque.
        Property transparency;
        Property specular;
        Property reflection;
        /// From 0 dull to 1.
        std::optional<float> shininess;
        /// Light of its own.
        Property emission;
        /// Share of a metal and of roughness, both from 0 to 1, where the file describes the surface in these
        /// terms; the properties above follow from them then.
        std::optional<float> metallic;
        std::optional<float> roughness;
        /// What has less opacity than this is cut out, and the rest is opaque.
        std::optional<float> alphaCutoff;
        std::optional<bool> isDoubleSided;
        Textures diffuseColorTextures, diffuseCoeffTextures, ambientCoeffTextures;
        Textures specularColorTextures, specularCoeffTextures;
        Textures bumpColorTextures, bumpCoeffTextures, normalTextures;
        Textures emissiveColorTextures, emissiveCoeffTextures;
    };

    explicit Material(std::wstring name, Settings settings = {})
        : name_(std::move(name)), settings_(std::move(settings))
    {
    }

    std::wstring const& GetMaterialName() const { return name_; }
    Settings const& GetSettings() const { return settings_; }

    bool GetDiffuseColor(unsigned short& red, unsigned short& green, unsigned short& blue) const;
    bool GetDiffuseCoefficient(float& value) const;
    bool GetTransparencyColor(unsigned short& red, unsigned short& green, unsigned short& blue) const;
    bool GetTransparencyCoefficient(float& value) const;
    bool GetSpecularColor(unsigned short& red, unsigned short& green, unsigned short& blue) const;
    bool GetSpecularCoefficient(float& value) const;
    bool GetReflectionColor(unsigned short& red, unsigned short& green, unsigned short& blue) const;
    bool GetReflectionCoefficient(float& value) const;
    bool GetShininess(float& value) const;

    bool HasTextures() const;
    Textures const& GetDiffuseColorTextures() const { return settings_.diffuseColorTextures; }
    Textures const& GetDiffuseCoeffTextures() const { return settings_.diffuseCoeffTextures; }
    Textures const& GetAmbientCoeffTextures() const { return settings_.ambientCoeffTextures; }
    Textures const& GetSpecularColorTextures() const { return settings_.specularColorTextures; }
    Textures const& GetSpecularCoeffTextures() const { return settings_.specularCoeffTextures; }
    Textures const& GetBumpColorTextures() const { return settings_.bumpColorTextures; }
    Textures const& GetBumpCoeffTextures() const { return settings_.bumpCoeffTextures; }
    Textures const& GetNormalTextures() const { return settings_.normalTextures; }
    Textures const& GetEmissiveColorTextures() const { return settings_.emissiveColorTextures; }
    Textures const& GetEmissiveCoeffTextures() const { return settings_.emissiveCoeffTextures; }

private:
    std::wstring name_;
    Settings settings_;
};

} // namespace NarMetaVisu
