// The model's materials in its portfolio: images, textures, and one palette of all materials.

#include "ZELRenderer.h"

#include "document_model.h"
#include "text.h"

#include <optional>

namespace ZelVizBase
{

using NarMetaVisu::ImagePixelDataType;
using NarMetaVisu::ImagePixelFormat;
using NarMetaVisu::Material;
using NarMetaVisu::MaterialContainer;
using NarMetaVisu::Texture;
using NarMetaVisu::TextureImage;

namespace
{

constexpr char const* Palette = "zelpalette";
constexpr float DegreesPerRadian = 57.29578F;

using ColorGetter = bool (Material::*)(unsigned short&, unsigned short&, unsigned short&) const;
using CoefficientGetter = bool (Material::*)(float&) const;

/// A property as a colour, or as the grey of its coefficient. False, with `color` as it was, without either.
bool readColor(Material const& material, ColorGetter byColor, CoefficientGetter byCoefficient,
               HPS::RGBColor& color)
{
    unsigned short red = 0, green = 0, blue = 0;
    float grey = 0;
    if ((material.*byColor)(red, green, blue))
        color = HPS::RGBColor(red / 255.0F, green / 255.0F, blue / 255.0F);
    else if ((material.*byCoefficient)(grey))
        color = HPS::RGBColor(grey, grey, grey);
    else
        return false;
    return true;
}

/// Diffuse colour and alpha, which all materials have alike; gives the alpha, 1 if the material has none.
float setDiffuse(Material const& material, HPS::MaterialKit& kit)
{
    HPS::RGBColor diffuse;
    if (readColor(material, &Material::GetDiffuseColor, &Material::GetDiffuseCoefficient, diffuse))
        kit.SetDiffuse(diffuse);
    HPS::RGBColor opacity;
    if (!readColor(material, &Material::GetTransparencyColor, &Material::GetTransparencyCoefficient, opacity))
        return 1;
    float const alpha = (opacity.red + opacity.green + opacity.blue) / 3;
    kit.SetDiffuseAlpha(alpha);
    return alpha;
}

void setGloss(Material const& material, HPS::MaterialKit& kit)
{
    float shininess = 0;
    if (material.GetShininess(shininess)) kit.SetGloss(shininess * 29 + 1);
}

/// What one of the two asks for, by the order of the rows.
std::optional<HPS::Material::Texture::Tiling> tilingOf(Texture::TextureWrapMode u, Texture::TextureWrapMode v)
{
    using Wrap = Texture::TextureWrapMode;
    using HPS::Material::Texture::Tiling;
    static constexpr std::pair<Wrap, Tiling> Rows[] = {{Wrap::Repeat, Tiling::Repeat},
                                                       {Wrap::Clamp, Tiling::Clamp},
                                                       {Wrap::ClampToBorder, Tiling::Trim},
                                                       {Wrap::ClampToEdge, Tiling::Trim},
                                                       {Wrap::MirroredRepeat, Tiling::Reflect}};
    for (auto const& [wrap, tiling] : Rows)
        if (u == wrap || v == wrap) return tiling;
    return std::nullopt;
}

bool isSmoothing(Texture::TextureFilter filter)
{
    using Filter = Texture::TextureFilter;
    return filter == Filter::Linear || filter == Filter::LinearMipmapNearest ||
           filter == Filter::LinearMipmapLinear;
}

HPS::MatrixKit placementOf(Texture const& texture)
{
    HPS::MatrixKit matrix;
    float turn[3], offset[2], scale[2];
    if (texture.GetTextureRotation(turn))
        matrix.Rotate(turn[0] * DegreesPerRadian, turn[1] * DegreesPerRadian, turn[2] * DegreesPerRadian);
    if (texture.GetTextureTranslation(offset)) matrix.Translate(offset[0], offset[1], 0);
    if (texture.GetTextureScale(scale)) matrix.Scale(scale[0], scale[1], 1);
    return matrix;
}

} // namespace

void ZELRenderer::initializeMaterials()
{
    if (MaterialsDefined || PortfolioKey.Type() == HPS::Type::None) return;
    MaterialContainer const& container = MaterialContainer::Instance();
    for (auto const& [name, texture] : container.GetTextures()) defineTexture(texture);
    HPS::MaterialKitArray kits;
    for (auto const& [name, material] : container.GetMaterials()) {
        MaterialIndex[narrow(name)] = static_cast<int>(kits.size());
        defineMaterial(material, kits.emplace_back());
    }
    if (kits.empty()) return;
    PortfolioKey.DefineMaterialPalette(Palette, kits);
    HPS::PortfolioControl portfolios = documentModel(*Document).GetSegmentKey().GetPortfolioControl();
    portfolios.Push(PortfolioKey);
    portfolios.SetMaterialPalette(Palette);
    PaletteNames.emplace_back(Palette);
    MaterialsDefined = true;
}

void ZELRenderer::clearMaterials()
{
    if (!MaterialsDefined || PortfolioKey.Type() == HPS::Type::None) return;
    for (std::string const& name : ImageNames) PortfolioKey.UndefineImage(name.c_str());
    ImageNames.clear();
    for (std::string const& name : TextureNames) PortfolioKey.UndefineTexture(name.c_str());
    TextureNames.clear();
    for (std::string const& name : PaletteNames) PortfolioKey.UndefineMaterialPalette(name.c_str());
    MaterialContainer::Instance().Clear();
    PaletteNames.clear();
    MaterialIndex.clear();
    MaterialsDefined = false;
}

HPS::Image::Format ZELRenderer::mapFormat(ImagePixelFormat format)
{
    using Format = HPS::Image::Format;
    switch (format) {
    case ImagePixelFormat::RGBA:
    case ImagePixelFormat::BGRA:
    case ImagePixelFormat::CompressedRGBA:
        return Format::RGBA;
    case ImagePixelFormat::ColourIndex:
    case ImagePixelFormat::CompressedIndex:
        return Format::Mapped8;
    case ImagePixelFormat::Red:
    case ImagePixelFormat::Green:
    case ImagePixelFormat::Blue:
    case ImagePixelFormat::Alpha:
    case ImagePixelFormat::Luminance:
        return Format::Grayscale;
    case ImagePixelFormat::Unknown:
    case ImagePixelFormat::RGB:
    case ImagePixelFormat::BGR:
    case ImagePixelFormat::CompressedRGB:
        break;
    }
    return Format::RGB;
}

unsigned long long ZELRenderer::mapPixelSize(ImagePixelDataType type)
{
    switch (type) {
    case ImagePixelDataType::Byte:
    case ImagePixelDataType::UnsignedByte:
    case ImagePixelDataType::Bitmap:
        return 1;
    case ImagePixelDataType::Short:
    case ImagePixelDataType::UnsignedShort:
        return 2;
    case ImagePixelDataType::Float:
    case ImagePixelDataType::Int:
    case ImagePixelDataType::UnsignedInt:
    case ImagePixelDataType::Fixed:
        return 4;
    case ImagePixelDataType::Unknown:
        break;
    }
    return 0;
}

HPS::Material::Texture::Parameterization ZELRenderer::mapParameterization(Texture::TextureMappingMode mode)
{
    using Mode = Texture::TextureMappingMode;
    using HPS::Material::Texture::Parameterization;
    switch (mode) {
    case Mode::Parametric:
        return Parameterization::NaturalUV;
    case Mode::Spherical:
        return Parameterization::Sphere;
    case Mode::Cylindrical:
        return Parameterization::Cylinder;
    case Mode::Environment:
    case Mode::EnvironmentCube:
        return Parameterization::PhysicalReflection;
    case Mode::Unknown:
    case Mode::Stored:
        break;
    }
    return Parameterization::UV;
}

std::string ZELRenderer::getTextureName(std::shared_ptr<Texture> const& texture) const
{
    return narrow(texture->GetTextureName());
}

std::string ZELRenderer::getMaterialName(std::shared_ptr<Material> const& material) const
{
    return narrow(material->GetMaterialName());
}

void ZELRenderer::prepImageImport(std::shared_ptr<Texture> const&, std::string&, HPS::Image::Format&) {}

bool ZELRenderer::importImage(std::shared_ptr<Texture> const& texture, HPS::ImageKit& image)
{
    HPS::Image::Format format = HPS::Image::Format::Png;
    std::string file;
    prepImageImport(texture, file, format);
    try {
        image = HPS::Image::File::Import(file.c_str(), HPS::Image::ImportOptionsKit().SetFormat(format));
    } catch (HPS::IOException const&) {
        return false;
    }
    return true;
}

bool ZELRenderer::exportImage(std::string const& file, HPS::ImageKit const& image)
{
    HPS::ImageKit copy = image;
    try {
        copy.Convert(HPS::Image::Format::Png);
        HPS::Image::File::Export(file.c_str(), copy);
    } catch (HPS::IOException const&) {
        return false;
    }
    return true;
}

void ZELRenderer::defineImage(std::shared_ptr<Texture> const& texture, std::string& name,
                              HPS::ImageDefinition& definition)
{
    HPS::ImageKit kit;
    std::wstring path;
    if (texture->GetTextureFilePath(path, false)) {
        importImage(texture, kit);
    } else if (std::shared_ptr<TextureImage> image; texture->GetTextureImage(image)) {
        unsigned char const* bytes = nullptr;
        std::size_t size = 0;
        if (image->GetMipmapsCount() > 0 && image->GetMipmap(0, bytes, size)) kit.SetData(size, bytes);
        kit.SetSize(image->GetWidth(), image->GetHeight());
        kit.SetFormat(mapFormat(image->GetPixelFormat()));
    }
    name = getTextureName(texture);
    definition = PortfolioKey.DefineImage(name.c_str(), kit);
    ImageNames.push_back(name);
}

void ZELRenderer::defineTexture(std::shared_ptr<Texture> const& texture)
{
    std::string name;
    HPS::ImageDefinition image;
    defineImage(texture, name, image);

    HPS::TextureOptionsKit options = HPS::TextureOptionsKit::GetDefault();
    auto mode = Texture::TextureMappingMode::Unknown;
    texture->GetTextureMappingMode(mode);
    options.SetParameterizationSource(mapParameterization(mode));

    if (HPS::MatrixKit const matrix = placementOf(*texture); !matrix.IsIdentity())
        options.SetTransformMatrix(matrix);

    std::shared_ptr<TextureImage> pixels;
    if (texture->GetTextureImage(pixels) && pixels->GetMipmapsCount() > 1)
        options.SetDecimationFilter(HPS::Material::Texture::Decimation::Mipmap);

    auto method = Texture::TextureMethod::Unknown;
    texture->GetTextureMethod(method);
    if (method == Texture::TextureMethod::Decal) options.SetDecal(true);
    if (method == Texture::TextureMethod::Modulate) options.SetModulation(true);

    Texture::TextureFilter magnified{}, minified{};
    if (texture->GetTextureFilter(magnified, minified) && magnified != Texture::TextureFilter::None)
        options.SetInterpolationFilter(isSmoothing(magnified) || isSmoothing(minified)
                                           ? HPS::Material::Texture::Interpolation::Bilinear
                                           : HPS::Material::Texture::Interpolation::None);

    Texture::TextureWrapMode u{}, v{};
    texture->GetTextureWrapMode(u, v);
    if (auto const tiling = tilingOf(u, v)) options.SetTiling(*tiling);

    PortfolioKey.DefineTexture(name.c_str(), image, options);
    TextureNames.push_back(name);
}

void ZELRenderer::defineMaterial(std::shared_ptr<Material> const& material, HPS::MaterialKit& kit)
{
    if (material->HasTextures())
        defineMaterialWithTexture(material, kit);
    else
        defineMaterialNoTexture(material, kit);
}

void ZELRenderer::defineMaterialNoTexture(std::shared_ptr<Material> const& material, HPS::MaterialKit& kit)
{
    float const alpha = setDiffuse(*material, kit);
    HPS::RGBColor color;
    if (readColor(*material, &Material::GetSpecularColor, &Material::GetSpecularCoefficient, color))
        kit.SetSpecular(HPS::RGBAColor(color, alpha));
    if (readColor(*material, &Material::GetReflectionColor, &Material::GetReflectionCoefficient, color))
        kit.SetMirror(HPS::RGBAColor(color, alpha));
    setGloss(*material, kit);
}

void ZELRenderer::defineMaterialWithTexture(std::shared_ptr<Material> const& material, HPS::MaterialKit& kit)
{
    setGloss(*material, kit);
    setDiffuse(*material, kit);

    std::size_t layer = 0;
    auto const addLayers = [&](Material::Textures const& textures) {
        for (auto const& texture : textures) kit.SetDiffuseTexture(getTextureName(texture).c_str(), layer++);
    };
    for (auto const& texture : material->GetDiffuseColorTextures()) {
        std::string const name = getTextureName(texture);
        auto mode = Texture::TextureMappingMode::Unknown;
        texture->GetTextureMappingMode(mode);
        if (mode == Texture::TextureMappingMode::EnvironmentCube)
            kit.SetEnvironmentCubeMap(name.c_str());
        else if (mode == Texture::TextureMappingMode::Environment)
            kit.SetEnvironmentTexture(name.c_str());
        else
            kit.SetDiffuseTexture(name.c_str(), layer++);
    }
    layer = 0;
    addLayers(material->GetDiffuseCoeffTextures());
    addLayers(material->GetAmbientCoeffTextures());

    // Of these channels a material has one texture: the first of the last list that has any.
    auto const setFirst = [&](auto set, std::initializer_list<Material::Textures const*> lists) {
        for (Material::Textures const* list : lists)
            if (!list->empty()) set(HPS::UTF8(getTextureName(list->front()).c_str()));
    };
    Material const& m = *material;
    setFirst([&](HPS::UTF8 const& name) { kit.SetSpecular(name); },
             {&m.GetSpecularColorTextures(), &m.GetSpecularCoeffTextures()});
    setFirst([&](HPS::UTF8 const& name) { kit.SetBump(name); },
             {&m.GetBumpColorTextures(), &m.GetBumpCoeffTextures(), &m.GetNormalTextures()});
    setFirst([&](HPS::UTF8 const& name) { kit.SetEmission(name); },
             {&m.GetEmissiveColorTextures(), &m.GetEmissiveCoeffTextures()});
}

} // namespace ZelVizBase
