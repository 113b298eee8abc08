#include "surface_material.h"
#include <algorithm>
#include <cmath>

namespace HPS::render
{
namespace
{

using Material::Texture::Parameterization;
using Material::Texture::Tiling;

RGBColor mixed(RGBColor const& a, RGBColor const& b, float t)
{
    auto mix = [t](float x, float y) { return x + (y - x) * t; };
    return {mix(a.red, b.red), mix(a.green, b.green), mix(a.blue, b.blue)};
}

void put(float (&out)[3], RGBAColor const& colour)
{
    out[0] = colour.red;
    out[1] = colour.green;
    out[2] = colour.blue;
}

LayerSource sourceOf(Parameterization wanted)
{
    switch (wanted) {
    case Parameterization::Cylinder:
        return LayerSource::Cylinder;
    case Parameterization::PhysicalReflection:
        return LayerSource::Surroundings;
    case Parameterization::Object:
        return LayerSource::Object;
    case Parameterization::ReflectionVector:
        return LayerSource::Reflection;
    case Parameterization::SurfaceNormal:
        return LayerSource::Normal;
    case Parameterization::Sphere:
        return LayerSource::Sphere;
    case Parameterization::World:
        return LayerSource::World;
    case Parameterization::NaturalUV:
    case Parameterization::UV:
        return LayerSource::Parameters;
    }
    return LayerSource::Parameters;
}

LayerBlend blendOf(TextureOptionsData const& options, std::size_t layer)
{
    bool const decal = options.decal.value_or(false), modulated = options.modulation.value_or(false);
    if (modulated) return decal ? LayerBlend::ModulatedDecal : LayerBlend::Modulate;
    // A layer on top of others covers them where it is opaque; it makes no hole in them.
    return decal || layer > 0 ? LayerBlend::Decal : LayerBlend::Replace;
}

/// Fills a material channel by channel.
class Maker
{
public:
    Maker(MaterialData const& channels, scene::NetState const& place) : channels_(channels), place_(place) {}

    SurfaceMaterial make()
    {
        if (channels_.diffuseTexture)
            for (MaterialChannel const& layer : *channels_.diffuseTexture)
                if (layer.type != Material::Type::None) addDiffuse(layer);
        made_.kind.features.layers = std::uint8_t(made_.layers.size());
        takeHighlight();
        channel(channels_.mirror, made_.row.mirror, MirrorUnit, Feature::MirrorMap);
        channel(channels_.transmission, made_.row.transmission, TransmissionUnit, Feature::TransmissionMap);
        made_.translucent = made_.translucent || channels_.transmission;
        channel(channels_.emission, made_.row.emission, EmissionUnit, Feature::EmissionMap);
        if (channels_.bump) takeBump(*channels_.bump);
        takeSurroundings();
        if (channels_.mirror) made_.kind.features.set(Feature::Mirror);
        takeAmbient();
        return std::move(made_);
    }

private:
    void use() { made_.kind.features.set(Feature::Material); }

    /// Enters a texture and its layer.
    Sampled add(UTF8 const& name, unsigned unit, RGBAColor const& modulation)
    {
        use();
        auto const* const found =
            scene::findDefinition<Type::TextureDefinition>(place_.portfolios, name.Str());
        TextureStore& store = TextureStore::instance();
        TextureOptionsData const options = found != nullptr ? found->options.data() : TextureOptionsData{};
        Sampled const sampled = found != nullptr ? store.flat(*found, name.Str()) : store.missing(name.Str());
        LayerRow layer;
        MatrixKit matrix = options.transformMatrix.value_or(MatrixKit());
        if (place_.textureMatrix) matrix.Concatenate(*place_.textureMatrix);
        for (std::size_t i = 0; i < 4; ++i) {
            layer.u[i] = matrix.Data()[4 * i];
            layer.v[i] = matrix.Data()[4 * i + 1];
        }
        layer.modulation[0] = modulation.red;
        layer.modulation[1] = modulation.green;
        layer.modulation[2] = modulation.blue;
        layer.modulation[3] = modulation.alpha;
        layer.source = sourceOf(options.parameterizationSource.value_or(Parameterization::UV));
        layer.blend = blendOf(options, made_.layers.size());
        layer.first = options.parameterOffset.value_or(0);
        if (options.tiling == Tiling::Trim) layer.flags |= Trimmed;
        if (sampled.texture->holdsNormals()) layer.flags |= HoldsNormals;
        made_.layers.push_back(layer);
        made_.kind.textures.push_back({unit, sampled});
        return sampled;
    }

    void addDiffuse(MaterialChannel const& channel)
    {
        auto const number = unsigned(made_.layers.size());
        bool const modulated = channel.type == Material::Type::ModulatedTexture;
        Sampled const sampled =
            add(channel.texture, DiffuseUnit + number, modulated ? channel.color : RGBAColor::White());
        LayerBlend const blend = made_.layers.back().blend;
        bool const keepsAlpha = blend == LayerBlend::Decal || blend == LayerBlend::ModulatedDecal;
        bool const opaque = !sampled.texture->translucent() && !(modulated && channel.color.alpha < 1);
        made_.translucent = made_.translucent || !(keepsAlpha || opaque);
    }

    /// A channel that is a colour, or a texture times one.
    void channel(std::optional<MaterialChannel> const& set, float (&colour)[3], TextureUnit unit, Feature map)
    {
        if (!set || set->type == Material::Type::None) return;
        use();
        bool const textured = set->type != Material::Type::RGBAColor;
        put(colour, set->type == Material::Type::TextureName ? RGBAColor::White() : set->color);
        if (!textured) return;
        add(set->texture, unit, RGBAColor::White());
        made_.kind.features.set(map);
    }

    void takeHighlight()
    {
        channel(channels_.specular, made_.row.specular, SpecularUnit, Feature::SpecularMap);
        if (!channels_.gloss || !std::isfinite(*channels_.gloss)) return;
        use();
        // The usual gloss of 15 gives the highlight that surfaces have for which nothing is set.
        made_.row.exponent = 2 * std::clamp(*channels_.gloss, 0.0f, 1000.0f) + 2;
    }

    void takeBump(UTF8 const& name)
    {
        add(name, BumpUnit, RGBAColor::White());
        made_.kind.features.set(Feature::BumpMap);
    }

    void takeSurroundings()
    {
        using enum Material::Type;
        if (!channels_.environment) return;
        MaterialChannel const& set = *channels_.environment;
        if (set.type == None || (set.type != RGBAColor && set.texture.Empty())) return;
        use();
        bool const coloured =
            set.type == RGBAColor || set.type == ModulatedTexture || set.type == ModulatedCubeMap;
        put(made_.row.environment, coloured ? set.color : HPS::RGBAColor::White());
        // Surroundings are there to be seen: without a mirror channel half of the light is reflected.
        if (!channels_.mirror) std::fill_n(made_.row.mirror, 3, 0.5f);
        made_.kind.features.set(Feature::Mirror);
        if (set.type == CubeMapName || set.type == ModulatedCubeMap)
            addCube(set.texture);
        else if (set.type == RGBAColor)
            made_.kind.features.set(Feature::EnvironmentColour);
        else
            addPanorama(set.texture);
    }

    void addCube(UTF8 const& name)
    {
        auto const* const found =
            scene::findDefinition<Type::CubeMapDefinition>(place_.portfolios, name.Str());
        TextureStore& store = TextureStore::instance();
        if (found == nullptr) {
            made_.layers.push_back({.source = LayerSource::Surroundings});
            made_.kind.textures.push_back({EnvironmentUnit, store.missing(name.Str())});
            made_.kind.features.set(Feature::EnvironmentMap);
            return;
        }
        made_.kind.textures.push_back({EnvironmentUnit, store.cube(*found, name.Str())});
        made_.kind.features.set(Feature::EnvironmentCube);
    }

    void addPanorama(UTF8 const& name)
    {
        add(name, EnvironmentUnit, RGBAColor::White());
        made_.kind.features.set(Feature::EnvironmentMap);
        // Only what depends on the viewer's place can reflect; a plain picture is taken as a panorama.
        LayerSource& source = made_.layers.back().source;
        if (source != LayerSource::Reflection && source != LayerSource::Normal)
            source = LayerSource::Surroundings;
    }

    void takeAmbient()
    {
        auto const& materials = place_.get<MaterialMappingData>();
        if (!materials.ambientUp && !materials.ambientDown) return;
        use();
        auto const palette = place_.palette();
        RGBColor const usual(0.2f, 0.2f, 0.2f);
        auto colour = [&](std::optional<SimpleMaterial> const& set) {
            if (!set) return usual;
            if (set->color) return *set->color;
            auto const found = set->index ? paletteMaterial(palette.get(), *set->index) : std::nullopt;
            return found ? found->diffuseColor.value_or(usual) : usual;
        };
        put(made_.row.ambientUp, colour(materials.ambientUp));
        put(made_.row.ambientDown, colour(materials.ambientDown));
        made_.row.ownAmbient = 1;
    }

    MaterialData const& channels_;
    scene::NetState const& place_;
    SurfaceMaterial made_;
};

} // namespace

std::optional<MaterialData> paletteMaterial(MaterialKitArray const* palette, float index)
{
    if (palette == nullptr || !(index >= -0.5f)) return std::nullopt;
    double const place = std::max(double(index), 0.0);
    if (!(place < double(palette->size()) - 0.5)) return std::nullopt;
    auto const low = std::min(std::size_t(place), palette->size() - 1);
    auto const high = std::min(low + 1, palette->size() - 1);
    auto const t = float(place - double(low));
    MaterialData const &a = (*palette)[low].data(), &b = (*palette)[high].data();
    MaterialData result = t < 0.5f ? a : b;
    if (t == 0) return result;
    if (a.diffuseColor && b.diffuseColor) result.diffuseColor = mixed(*a.diffuseColor, *b.diffuseColor, t);
    if (a.diffuseAlpha || b.diffuseAlpha)
        result.diffuseAlpha = a.diffuseAlpha.value_or(1) * (1 - t) + b.diffuseAlpha.value_or(1) * t;
    if (a.gloss && b.gloss) result.gloss = *a.gloss * (1 - t) + *b.gloss * t;
    return result;
}

MaterialData channelsOf(std::optional<ComplexMaterial> const& material, MaterialKitArray const* palette)
{
    MaterialData channels;
    if (!material) return channels;
    if (material->index)
        if (auto found = paletteMaterial(palette, *material->index)) channels = std::move(*found);
    forEachAspect<MaterialData>([&](auto const& aspect) {
        if (auto const& value = aspect.get(material->values())) aspect.put(channels, value);
    });
    return channels;
}

SurfaceMaterial surfaceMaterial(MaterialData const& channels, scene::NetState const& place)
{
    return Maker(channels, place).make();
}

std::vector<MaterialRow> paletteRows(MaterialKitArray const& palette)
{
    std::vector<MaterialRow> rows;
    rows.reserve(palette.size());
    for (MaterialKit const& kit : palette) {
        MaterialRow row;
        RGBColor const colour = kit.data().diffuseColor.value_or(RGBColor(0.7f, 0.7f, 0.7f));
        row.diffuse[0] = colour.red;
        row.diffuse[1] = colour.green;
        row.diffuse[2] = colour.blue;
        row.diffuse[3] = kit.data().diffuseAlpha.value_or(1);
        rows.push_back(row);
    }
    return rows;
}

} // namespace HPS::render
