#pragma once
#include <hps/Color.h>
#include <hps/Kit.h>
#include <hps/enumerations.h>

namespace HPS
{

// A channel that is a colour, a texture, or a texture times a colour.
struct MaterialChannel {
    Material::Type type = Material::Type::RGBAColor;
    RGBAColor color; // with RGBAColor, ModulatedTexture and ModulatedCubeMap
    UTF8 texture;    // the name of a texture or cube map, looked up in the portfolios of the path
    bool operator==(MaterialChannel const&) const = default;
};
using MaterialLayers = std::vector<MaterialChannel>; // Type::None where a layer is empty

// How a surface looks. Colour and alpha of the diffuse channel are inherited apart from each other.
struct MaterialData {
    std::optional<RGBColor> diffuseColor;
    std::optional<float> diffuseAlpha;
    std::optional<MaterialLayers> diffuseTexture;
    std::optional<MaterialChannel> specular;
    std::optional<MaterialChannel> mirror;
    std::optional<MaterialChannel> transmission;
    std::optional<MaterialChannel> emission;
    std::optional<MaterialChannel> environment;
    std::optional<UTF8> bump;
    std::optional<float> gloss;
    std::optional<UTF8> legacyShader;

    bool operator==(MaterialData const&) const = default;
    // Up to Gloss in the order of the attribute locks of a material.
    static constexpr auto aspects()
    {
        return std::tuple{Aspect{1, "DiffuseColor", &MaterialData::diffuseColor},
                          Aspect{2, "DiffuseAlpha", &MaterialData::diffuseAlpha},
                          Aspect{3, "DiffuseTexture", &MaterialData::diffuseTexture},
                          Aspect{4, "Specular", &MaterialData::specular},
                          Aspect{5, "Mirror", &MaterialData::mirror},
                          Aspect{6, "Transmission", &MaterialData::transmission},
                          Aspect{7, "Emission", &MaterialData::emission},
                          Aspect{8, "Environment", &MaterialData::environment},
                          Aspect{9, "Bump", &MaterialData::bump},
                          Aspect{10, "Gloss", &MaterialData::gloss},
                          Aspect{11, "LegacyShader", &MaterialData::legacyShader}};
    }
    // A diffuse texture has up to this many layers.
    static constexpr std::size_t maximumLayers = 8;
    void putLayer(std::size_t layer, MaterialChannel channel);
};
static_assert(CompleteKit<MaterialData>);

class MaterialKit : public Operations<MaterialKit>
{
public:
    using Data = MaterialData;
    using TypeArray = std::vector<Material::Type>;

    static MaterialKit GetDefault();

    MaterialKit& SetDiffuse(RGBColor const& color) { return SetDiffuseColor(color); }
    MaterialKit& SetDiffuse(RGBAColor const& color) { return SetDiffuseColor(color); }
    MaterialKit& SetDiffuseColor(RGBColor const& color);
    MaterialKit& SetDiffuseColor(RGBAColor const& color); // colour and alpha
    MaterialKit& UnsetDiffuseColor();                     // colour and alpha
    bool ShowDiffuseColor(RGBColor& color) const;
    bool ShowDiffuseColor(RGBAColor& color) const; // true if both are set
    MaterialKit& SetDiffuseAlpha(float alpha);
    MaterialKit& UnsetDiffuseAlpha();
    bool ShowDiffuseAlpha(float& alpha) const;
    MaterialKit& UnsetDiffuse(); // colour, alpha and textures

    // Layers count from 0; a layer above the last one there is leaves empty ones between.
    MaterialKit& SetDiffuseTexture(UTF8 const& texture, std::size_t layer = 0);
    MaterialKit& SetDiffuseTexture(UTF8 const& texture, RGBAColor const& modulation, std::size_t layer = 0);
    MaterialKit& UnsetDiffuseTexture();
    MaterialKit& UnsetDiffuseTexture(std::size_t layer);
    bool ShowDiffuseTexture(TypeArray& types, std::vector<RGBAColor>& colors, std::vector<UTF8>& names) const;

    // Without a name: no environment, whatever is inherited.
    MaterialKit& SetEnvironmentTexture(UTF8 const& texture = UTF8());
    MaterialKit& SetEnvironmentTexture(UTF8 const& texture, RGBAColor const& modulation);
    MaterialKit& SetEnvironmentCubeMap(UTF8 const& cubeMap = UTF8());
    MaterialKit& SetEnvironmentCubeMap(UTF8 const& cubeMap, RGBAColor const& modulation);
    MaterialKit& UnsetEnvironment();
    bool ShowEnvironment(Material::Type& type, RGBAColor& color, UTF8& name) const;

#define HPS_CHANNEL(Name, slot)                                                                              \
    MaterialKit& Set##Name(UTF8 const& texture)                                                              \
    {                                                                                                        \
        return setChannel<&Data::slot>(texture);                                                             \
    }                                                                                                        \
    MaterialKit& Set##Name(UTF8 const& texture, RGBAColor const& modulation)                                 \
    {                                                                                                        \
        return setChannel<&Data::slot>(texture, modulation);                                                 \
    }                                                                                                        \
    MaterialKit& Unset##Name()                                                                               \
    {                                                                                                        \
        return detail::unset<&Data::slot>(*this);                                                            \
    }                                                                                                        \
    bool Show##Name(Material::Type& type, RGBAColor& color, UTF8& texture) const                             \
    {                                                                                                        \
        return showChannel<&Data::slot>(type, color, texture);                                               \
    }
    HPS_CHANNEL(Specular, specular)
    HPS_CHANNEL(Mirror, mirror)
    HPS_CHANNEL(Transmission, transmission)
    HPS_CHANNEL(Emission, emission)
#undef HPS_CHANNEL
    MaterialKit& SetSpecular(RGBAColor const& color)
    {
        return setChannel<&Data::specular>(color);
    }
    MaterialKit& SetMirror(RGBAColor const& color)
    {
        return setChannel<&Data::mirror>(color);
    }
    MaterialKit& SetEmission(RGBAColor const& color)
    {
        return setChannel<&Data::emission>(color);
    }

    using Self = MaterialKit;
    HPS_ASPECT(Bump, UTF8, bump)
    HPS_ASPECT(Gloss, float, gloss)
    HPS_ASPECT(LegacyShader, UTF8, legacyShader)

    MaterialKit& UnsetEverything();
    bool Empty() const
    {
        return data_ == MaterialData{};
    }
    void Reset()
    {
        data_ = {};
    }
    Data const& data() const
    {
        return data_;
    }
    template <class F> void edit(F&& f)
    {
        f(data_);
    }
    friend bool operator==(MaterialKit const& a, MaterialKit const& b)
    {
        return a.data_ == b.data_;
    }

private:
    template <auto Slot> MaterialKit& setChannel(RGBAColor const& color)
    {
        return detail::set<Slot>(*this, MaterialChannel{Material::Type::RGBAColor, color, UTF8()});
    }
    template <auto Slot> MaterialKit& setChannel(UTF8 const& texture)
    {
        return detail::set<Slot>(*this, MaterialChannel{Material::Type::TextureName, RGBAColor(), texture});
    }
    template <auto Slot> MaterialKit& setChannel(UTF8 const& texture, RGBAColor const& modulation)
    {
        return detail::set<Slot>(*this,
                                 MaterialChannel{Material::Type::ModulatedTexture, modulation, texture});
    }
    template <auto Slot> bool showChannel(Material::Type& type, RGBAColor& color, UTF8& texture) const
    {
        MaterialChannel channel;
        if (!detail::show<Slot>(*this, channel)) return false;
        type = channel.type;
        color = channel.color;
        texture = channel.texture;
        return true;
    }

    MaterialData data_;
};

} // namespace HPS
