#include "zel_xml_parts.h"

namespace NarMetaInfra
{

using namespace NarMetaVisu;

namespace
{

using MaterialSettings = NarMetaVisu::Material::Settings;
using TextureSettings = NarMetaVisu::Texture::Settings;

struct PropertyName {
    char const* element;
    NarMetaVisu::Material::Property MaterialSettings::*property;
};
constexpr PropertyName properties[5] = {{"diffuse", &MaterialSettings::diffuse},
                                        {"transparency", &MaterialSettings::transparency},
                                        {"specular", &MaterialSettings::specular},
                                        {"reflection", &MaterialSettings::reflection},
                                        {"emission", &MaterialSettings::emission}};

struct TextureListName {
    wchar_t const* use;
    NarMetaVisu::Material::Textures MaterialSettings::*list;
};
constexpr TextureListName textureLists[] = {{L"diffuse_color", &MaterialSettings::diffuseColorTextures},
                                            {L"diffuse_coeff", &MaterialSettings::diffuseCoeffTextures},
                                            {L"ambient_coeff", &MaterialSettings::ambientCoeffTextures},
                                            {L"specular_color", &MaterialSettings::specularColorTextures},
                                            {L"specular_coeff", &MaterialSettings::specularCoeffTextures},
                                            {L"bump_color", &MaterialSettings::bumpColorTextures},
                                            {L"bump_coeff", &MaterialSettings::bumpCoeffTextures},
                                            {L"normal", &MaterialSettings::normalTextures},
                                            {L"emissive_color", &MaterialSettings::emissiveColorTextures},
                                            {L"emissive_coeff", &MaterialSettings::emissiveCoeffTextures}};

template <class Enumeration> std::array<int, 2> Numbers(std::array<Enumeration, 2> const& pair)
{
    return {static_cast<int>(pair[0]), static_cast<int>(pair[1])};
}

void WriteTexture(XmlSink& sink, Texture const& texture)
{
    auto const element = sink.Open("texture");
    auto const& settings = texture.GetSettings();
    sink.Attribute("name", texture.GetTextureName());
    sink.Attribute("file", settings.filePath);
    if (settings.mapping) sink.Attribute("mapping", static_cast<int>(*settings.mapping));
    sink.Attribute("rotation", settings.rotation);
    sink.Attribute("translation", settings.translation);
    sink.Attribute("scale", settings.scale);
    if (settings.method) sink.Attribute("method", static_cast<int>(*settings.method));
    if (settings.filter) sink.Attribute("filter", Numbers(*settings.filter));
    if (settings.wrap) sink.Attribute("wrap", Numbers(*settings.wrap));
    if (!settings.image) return;
    auto const& image = *settings.image;
    auto const child = sink.Open("image");
    sink.Attribute("width", image.GetWidth());
    sink.Attribute("height", image.GetHeight());
    sink.Attribute("format", static_cast<int>(image.GetPixelFormat()));
    sink.Attribute("pixel", static_cast<int>(image.GetPixelDataType()));
    for (unsigned level = 0; level < image.GetMipmapsCount(); ++level) {
        unsigned char const* data = nullptr;
        std::size_t size = 0;
        image.GetMipmap(level, data, size);
        sink.Bytes("level", QByteArray(reinterpret_cast<char const*>(data), static_cast<qsizetype>(size)));
    }
}

std::shared_ptr<TextureImage> ReadImage(XmlSource& source)
{
    auto image = std::make_shared<TextureImage>(source.NumberOf<unsigned>("width").value_or(0),
                                                source.NumberOf<unsigned>("height").value_or(0),
                                                source.Choice("format", 0, 13, ImagePixelFormat::Unknown),
                                                source.Choice("pixel", 0, 9, ImagePixelDataType::Unknown));
    source.Children({{"level", [&] {
                          auto const bytes = source.Bytes();
                          image->AddMipmap({bytes.begin(), bytes.end()});
                      }}});
    unsigned char const* data = nullptr;
    std::size_t size = 0;
    // No pixel takes less than a bit: a size that the bytes cannot fill is an invention.
    if (!image->GetMipmap(0, data, size) || Id(image->GetWidth()) * image->GetHeight() > Id(size) * 8)
        source.Fail(QStringLiteral("an image has fewer bytes than its size needs"));
    return image;
}

template <class Enumeration>
std::optional<std::array<Enumeration, 2>> ReadPair(XmlSource& source, char const* name, int last)
{
    auto const pair = source.Tuple<2, int>(name);
    if (!pair) return {};
    for (int value : *pair)
        if (value < 0 || value > last) source.Fail(QStringLiteral("a texture setting is out of range"));
    return std::array{static_cast<Enumeration>((*pair)[0]), static_cast<Enumeration>((*pair)[1])};
}

template <class Enumeration>
std::optional<Enumeration> ReadOptional(XmlSource& source, char const* name, int last)
{
    if (!source.NumberOf<int>(name)) return {};
    return source.Choice(name, 0, last, Enumeration{});
}

} // namespace

void WriteMaterials(XmlSink& sink, Materials const& materials)
{
    Textures textures;
    for (auto const& [name, material] : materials)
        for (auto const& [use, list] : textureLists)
            for (auto const& texture : material->GetSettings().*list)
                textures[texture->GetTextureName()] = texture;
    for (auto const& [name, texture] : textures) WriteTexture(sink, *texture);

    for (auto const& [name, material] : materials) {
        auto const element = sink.Open("material");
        auto const& settings = material->GetSettings();
        sink.Attribute("name", name);
        sink.Attribute("shininess", settings.shininess);
        sink.Attribute("metallic", settings.metallic);
        sink.Attribute("roughness", settings.roughness);
        sink.Attribute("alpha_cutoff", settings.alphaCutoff);
        sink.Flag("double_sided", settings.isDoubleSided.value_or(false));
        for (auto const& [kind, property] : properties) {
            auto const& value = settings.*property;
            if (!value.colour && !value.coefficient) continue;
            auto const child = sink.Open(kind);
            sink.Attribute("colour", value.colour);
            sink.Attribute("coefficient", value.coefficient);
        }
        for (auto const& [use, list] : textureLists)
            for (auto const& texture : settings.*list) {
                auto const child = sink.Open("use");
                sink.Attribute("as", std::wstring(use));
                sink.Attribute("texture", texture->GetTextureName());
            }
    }
}

void ReadTexture(XmlSource& source, Textures& textures)
{
    auto const name = source.Text("name");
    TextureSettings settings;
    if (auto const file = source.Text("file"); !file.empty()) settings.filePath = file;
    settings.mapping = ReadOptional<Texture::TextureMappingMode>(source, "mapping", 6);
    settings.rotation = source.Tuple<3>("rotation");
    settings.translation = source.Tuple<2>("translation");
    settings.scale = source.Tuple<2>("scale");
    settings.method = ReadOptional<Texture::TextureMethod>(source, "method", 2);
    settings.filter = ReadPair<Texture::TextureFilter>(source, "filter", 6);
    settings.wrap = ReadPair<Texture::TextureWrapMode>(source, "wrap", 5);
    source.Children({{"image", [&] { settings.image = ReadImage(source); }}});
    textures[name] = std::make_shared<Texture>(name, std::move(settings));
}

void ReadMaterial(XmlSource& source, Textures const& textures, Materials& materials)
{
    auto const name = source.Text("name");
    MaterialSettings settings;
    settings.shininess = source.NumberOf<float>("shininess");
    settings.metallic = source.NumberOf<float>("metallic");
    settings.roughness = source.NumberOf<float>("roughness");
    settings.alphaCutoff = source.NumberOf<float>("alpha_cutoff");
    settings.isDoubleSided = source.Flag("double_sided");
    auto const read = [&](PropertyName const& entry) {
        return XmlSource::Handler{
            entry.element, [&source, &settings, entry] {
                settings.*entry.property = {source.Colour("colour"), source.NumberOf<float>("coefficient")};
            }};
    };
    auto const use = [&] {
        auto const texture = textures.find(source.Text("texture"));
        auto const as = source.Text("as");
        auto const list = std::find_if(std::begin(textureLists), std::end(textureLists),
                                       [&as](TextureListName const& entry) { return as == entry.use; });
        if (texture == textures.end() || list == std::end(textureLists))
            return source.Fail(QStringLiteral("a material uses a texture that does not stand before"));
        (settings.*(list->list)).push_back(texture->second);
    };
    source.Children({read(properties[0]),
                     read(properties[1]),
                     read(properties[2]),
                     read(properties[3]),
                     read(properties[4]),
                     {"use", use}});
    materials[name] = std::make_shared<Material>(name, std::move(settings));
}

} // namespace NarMetaInfra
