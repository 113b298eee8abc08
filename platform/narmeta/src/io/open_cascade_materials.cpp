#include "open_cascade_materials.h"

#include "open_cascade_style.h"
#include "text_encoding.h"
#include "texture_images.h"

#include <cmath>

#include <QByteArray>

#include <TDataStd_Name.hxx>

namespace NarMetaInfra
{
namespace
{
using NarMetaVisu::Material;
using NarMetaVisu::Texture;

constexpr float DielectricReflection = 0.04f; // share of light that any surface mirrors straight on

std::string nameOf(Handle(XCAFDoc_VisMaterial) const& material)
{
    if (auto const& name = material->RawName(); !name.IsNull()) return name->ToCString();
    Handle(TDataStd_Name) attribute;
    if (material->Label().IsNull() || !material->Label().FindAttribute(TDataStd_Name::GetID(), attribute))
        return {};
    return TCollection_AsciiString(attribute->Get()).ToCString();
}

// A metal mirrors in its own colour and has no other; what is none mirrors a little, whatever its colour.
void polish(Material::Settings& settings, float metallic, float roughness)
{
    auto const colour = settings.diffuse.colour.value_or(NarMeta::Colour{255, 255, 255});
    auto const mirrored = [&](unsigned short channel) {
        auto const share = DielectricReflection + (channel / 255.0f - DielectricReflection) * metallic;
        return static_cast<unsigned short>(std::lround(255.0f * share));
    };
    settings.specular.colour = {mirrored(colour.red), mirrored(colour.green), mirrored(colour.blue)};
    settings.shininess = 1.0f - roughness;
    settings.metallic = metallic;
    settings.roughness = roughness;
}

bool isBlack(NarMeta::Colour const& colour)
{
    return colour == NarMeta::Colour{0, 0, 0};
}
} // namespace

std::shared_ptr<Material> MaterialMaker::of(Handle(XCAFDoc_VisMaterial) const& material)
{
    if (material.IsNull()) return nullptr;
    auto& made = Materials[material.get()];
    if (made) return made;
    auto const* const details = detailsOf(material);
    auto const known = details ? *details : MaterialDetails();
    auto settings =
        material->HasPbrMaterial() ? metallic(*material, known) : common(material->CommonMaterial(), known);
    settings.isDoubleSided = material->FaceCulling() == Graphic3d_TypeOfBackfacingModel_DoubleSided;
    if (material->AlphaMode() == Graphic3d_AlphaMode_Mask) settings.alphaCutoff = material->AlphaCutOff();
    if (material->AlphaMode() == Graphic3d_AlphaMode_Opaque) settings.transparency.coefficient = 1.0f;
    auto const name = wideFromBytes(nameOf(material));
    made = std::make_shared<Material>(unique(name.empty() ? L"material" : name), std::move(settings));
    return made;
}

TextureUse const* MaterialMaker::coordinateUse(Handle(XCAFDoc_VisMaterial) const& material) const
{
    auto const* const details = material.IsNull() ? nullptr : detailsOf(material);
    if (!details || !details->baseColour || !details->baseColour->movesCoordinates()) return nullptr;
    return &*details->baseColour;
}

void MaterialMaker::addTo(NarMetaVisu::MaterialContainer& container) const
{
    for (auto const& [key, texture] : Textures) container.Add(texture);
    for (auto const& [kernel, material] : Materials) container.Add(material);
}

MaterialDetails const* MaterialMaker::detailsOf(Handle(XCAFDoc_VisMaterial) const& material) const
{
    auto const found = Details.find(nameOf(material));
    return found == Details.end() ? nullptr : &found->second;
}

Material::Settings MaterialMaker::metallic(XCAFDoc_VisMaterial const& material,
                                           MaterialDetails const& details)
{
    auto const& source = material.PbrMaterial();
    Material::Settings settings;
    settings.diffuse.colour = colourOf(source.BaseColor.GetRGB());
    settings.transparency.coefficient = source.BaseColor.Alpha();
    polish(settings, source.Metallic, source.Roughness);
    auto const& glow = source.EmissiveFactor;
    auto const glowing = colourOf(Quantity_Color(glow));
    if (!isBlack(glowing)) settings.emission.colour = glowing;
    add(settings.diffuseColorTextures, source.BaseColorTexture, details.baseColour);
    add(settings.normalTextures, source.NormalTexture, details.normal);
    add(settings.emissiveColorTextures, source.EmissiveTexture, details.emissive);
    add(settings.ambientCoeffTextures, source.OcclusionTexture, details.occlusion, Channel::Red);
    // Coefficients take the layers of colours; the darkening of hollows is to lie over the colour, not in its
    // place.
    if (!settings.ambientCoeffTextures.empty()) settings.diffuseCoeffTextures = settings.diffuseColorTextures;
    add(settings.specularCoeffTextures, source.MetallicRoughnessTexture, details.roughness,
        Channel::Smoothness);
    return settings;
}

Material::Settings MaterialMaker::common(XCAFDoc_VisMaterialCommon const& source,
                                         MaterialDetails const& details)
{
    Material::Settings settings;
    if (!source.IsDefined) return settings;
    settings.diffuse.colour = colourOf(source.DiffuseColor);
    settings.specular.colour = colourOf(source.SpecularColor);
    settings.transparency.coefficient = 1.0f - source.Transparency;
    settings.shininess = source.Shininess;
    if (auto const glow = colourOf(source.EmissiveColor); !isBlack(glow)) settings.emission.colour = glow;
    if (details.metallicShare || details.roughnessShare)
        polish(settings, details.metallicShare.value_or(0.0f), details.roughnessShare.value_or(1.0f));
    add(settings.diffuseColorTextures, source.DiffuseTexture, details.baseColour, Channel::All,
        details.opacity);
    add(settings.normalTextures, nullptr, details.normal);
    add(settings.emissiveColorTextures, nullptr, details.emissive);
    add(settings.specularColorTextures, nullptr, details.specular);
    add(settings.bumpCoeffTextures, nullptr, details.bump, Channel::Red);
    add(settings.specularCoeffTextures, nullptr, details.roughness, Channel::Smoothness);
    return settings;
}

void MaterialMaker::add(Material::Textures& list, Handle(Image_Texture) const& known,
                        std::optional<TextureUse> const& use, Channel channel,
                        std::optional<TextureUse> const& opacity)
{
    auto const lies = use.value_or(TextureUse());
    auto const source =
        lies.image.empty() ? known : Handle(Image_Texture)(new Image_Texture(lies.image.c_str()));
    if (source.IsNull()) return;
    auto whole = imageOf(source);
    if (!whole) return;
    if (opacity) whole = transparentOf(whole, *opacity);
    static constexpr char const* Suffixes[] = {"", "#red", "#smoothness"};
    auto const* const suffix = Suffixes[static_cast<std::size_t>(channel)];
    auto key = source->TextureId().ToCString() + std::string(suffix);
    if (opacity) key += "+" + opacity->image.string();
    for (auto const mode : lies.wrap) key += "." + std::to_string(static_cast<int>(mode));
    auto& texture = Textures[key];
    if (!texture) {
        Texture::Settings settings;
        settings.image = channel == Channel::All   ? whole
                         : channel == Channel::Red ? channelOf(*whole, 0)
                                                   : channelOf(*whole, 1, true);
        settings.mapping = Texture::TextureMappingMode::Stored;
        settings.method = Texture::TextureMethod::Modulate;
        settings.wrap = lies.wrap;
        settings.filter = lies.filter;
        auto const file = std::filesystem::path(source->FilePath().ToCString()).filename().string();
        auto const name = unique(wideFromBytes((file.empty() ? "image" : file) + suffix));
        texture = std::make_shared<Texture>(name, std::move(settings));
    }
    list.push_back(texture);
}

MaterialMaker::ImagePointer MaterialMaker::imageOf(Handle(Image_Texture) const& source)
{
    std::string const id = source->TextureId().ToCString();
    auto const [entry, isNew] = Images.try_emplace(id);
    if (!isNew) return entry->second;
    if (source->DataBuffer().IsNull() && source->FileLength() < 0)
        Files.emplace_back(source->FilePath().ToCString());
    entry->second = decodeImage(bytesOf(source));
    if (!entry->second)
        Warnings.push_back("the image \"" + id + "\" of a texture is missing or can't be read");
    return entry->second;
}

MaterialMaker::ImagePointer MaterialMaker::transparentOf(ImagePointer const& image, TextureUse const& opacity)
{
    auto const mask = imageOf(new Image_Texture(opacity.image.c_str()));
    auto const made = mask ? withOpacity(*image, *mask) : nullptr;
    if (mask && !made)
        Warnings.push_back("the image \"" + opacity.image.string() +
                           "\" of an opacity has not the size of the one that it belongs to");
    return made ? made : image;
}

QByteArray MaterialMaker::bytesOf(Handle(Image_Texture) const& source) const
{
    if (auto const& buffer = source->DataBuffer(); !buffer.IsNull())
        return {reinterpret_cast<char const*>(buffer->Data()), static_cast<qsizetype>(buffer->Size())};
    return imageBytes(source->FilePath().ToCString(), std::max<qint64>(source->FileOffset(), 0),
                      std::max<qint64>(source->FileLength(), 0));
}

std::wstring MaterialMaker::unique(std::wstring name)
{
    auto const count = ++Names[name];
    return count == 1 ? name : name + L"~" + std::to_wstring(count);
}
} // namespace NarMetaInfra
