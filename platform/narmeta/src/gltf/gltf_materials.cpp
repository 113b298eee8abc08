#include "gltf_materials.h"

#include <cmath>

#include <QJsonArray>
#include <QJsonObject>

namespace NarMetaInfra
{
namespace
{
using NarMetaVisu::Texture;

Texture::TextureWrapMode wrapOf(int code)
{
    if (code == 33071) return Texture::TextureWrapMode::ClampToEdge;
    if (code == 33648) return Texture::TextureWrapMode::MirroredRepeat;
    return Texture::TextureWrapMode::Repeat;
}

// The format's numbers are those of OpenGL, and stand in the order of the enumeration.
Texture::TextureFilter filterOf(int code, Texture::TextureFilter otherwise)
{
    if (code == 9728) return Texture::TextureFilter::Nearest;
    if (code == 9729) return Texture::TextureFilter::Linear;
    if (code >= 9984 && code <= 9987)
        return static_cast<Texture::TextureFilter>(
            static_cast<int>(Texture::TextureFilter::NearestMipmapNearest) + code - 9984);
    return otherwise;
}

void readPair(QJsonValue const& value, std::array<double, 2>& pair)
{
    auto const list = value.toArray();
    if (list.size() != 2) return;
    for (std::size_t i = 0; i < 2; ++i) {
        auto const number = list.at(static_cast<qsizetype>(i)).toDouble(pair[i]);
        if (std::isfinite(number)) pair[i] = number;
    }
}

class MaterialScan
{
public:
    explicit MaterialScan(QJsonObject const& document)
        : Textures(document["textures"].toArray()), Samplers(document["samplers"].toArray())
    {
    }

    std::optional<TextureUse> use(QJsonValue const& reference) const
    {
        if (!reference.isObject()) return std::nullopt;
        auto const texture = reference["index"].toInt(-1);
        if (texture < 0 || texture >= Textures.size()) return std::nullopt;
        TextureUse made;
        auto const sampler = Textures.at(texture)["sampler"].toInt(-1);
        if (sampler >= 0 && sampler < Samplers.size()) {
            auto const values = Samplers.at(sampler).toObject();
            made.wrap = {wrapOf(values["wrapS"].toInt()), wrapOf(values["wrapT"].toInt())};
            made.filter = {filterOf(values["magFilter"].toInt(), made.filter[0]),
                           filterOf(values["minFilter"].toInt(), made.filter[1])};
        }
        auto const transform = reference["extensions"]["KHR_texture_transform"];
        readPair(transform["offset"], made.offset);
        readPair(transform["scale"], made.scale);
        made.rotation = transform["rotation"].toDouble(0.0);
        return made;
    }

private:
    QJsonArray Textures, Samplers;
};
} // namespace

MaterialDetailMap readGltfMaterials(QJsonObject const& document)
{
    MaterialScan const scan(document);
    MaterialDetailMap materials;
    for (auto const& value : document["materials"].toArray()) {
        auto const source = value.toObject();
        auto const name = source["name"].toString().toStdString();
        if (name.empty()) continue;
        auto const metallic = source["pbrMetallicRoughness"];
        MaterialDetails details;
        details.baseColour = scan.use(metallic["baseColorTexture"]);
        details.normal = scan.use(source["normalTexture"]);
        details.emissive = scan.use(source["emissiveTexture"]);
        details.occlusion = scan.use(source["occlusionTexture"]);
        details.roughness = scan.use(metallic["metallicRoughnessTexture"]);
        materials.emplace(name, std::move(details));
    }
    return materials;
}
} // namespace NarMetaInfra
