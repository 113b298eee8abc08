#pragma once
#include <hps/MaterialKit.h>
#include <memory>

namespace HPS
{

// The colour of a kind that has no surface: a colour and an alpha, inherited apart, or the diffuse colour of
// a material of the palette.
struct SimpleMaterial {
    std::optional<RGBColor> color;
    std::optional<float> alpha;
    std::optional<float> index; // fractions blend neighbouring materials
    bool operator==(SimpleMaterial const&) const = default;
};

// The look of a surface: a material of the palette, with the channels that were set on top of it.
struct ComplexMaterial {
    std::optional<float> index;
    std::shared_ptr<MaterialData const> channels; // null if none is set; never changed once it is here

    // Every channel of the surface, empty ones where none is set.
    MaterialData const& values() const;
    bool operator==(ComplexMaterial const& other) const
    {
        return index == other.index && (channels == other.channels || values() == other.values());
    }
};

// The colours and materials of everything that a segment shows.
struct MaterialMappingData {
    std::optional<ComplexMaterial> vertex;
    std::optional<ComplexMaterial> edge;
    std::optional<ComplexMaterial> backFace;
    std::optional<ComplexMaterial> frontFace;
    std::optional<ComplexMaterial> cutFace;
    std::optional<SimpleMaterial> ambientUp;
    std::optional<SimpleMaterial> ambientDown;
    std::optional<SimpleMaterial> window;
    std::optional<SimpleMaterial> windowContrast;
    std::optional<SimpleMaterial> light;
    std::optional<SimpleMaterial> line;
    std::optional<SimpleMaterial> marker;
    std::optional<SimpleMaterial> text;
    std::optional<SimpleMaterial> cutEdge;

    bool operator==(MaterialMappingData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{Aspect{1, "FrontFaceMaterial", &MaterialMappingData::frontFace},
                          Aspect{2, "BackFaceMaterial", &MaterialMappingData::backFace},
                          Aspect{3, "EdgeMaterial", &MaterialMappingData::edge},
                          Aspect{4, "VertexMaterial", &MaterialMappingData::vertex},
                          Aspect{5, "LineColor", &MaterialMappingData::line},
                          Aspect{6, "TextColor", &MaterialMappingData::text},
                          Aspect{7, "MarkerColor", &MaterialMappingData::marker},
                          Aspect{8, "LightColor", &MaterialMappingData::light},
                          Aspect{9, "WindowColor", &MaterialMappingData::window},
                          Aspect{10, "WindowContrastColor", &MaterialMappingData::windowContrast},
                          Aspect{11, "AmbientLightUpColor", &MaterialMappingData::ambientUp},
                          Aspect{12, "AmbientLightDownColor", &MaterialMappingData::ambientDown},
                          Aspect{13, "CutFaceMaterial", &MaterialMappingData::cutFace},
                          Aspect{14, "CutEdgeColor", &MaterialMappingData::cutEdge}};
    }
};
static_assert(CompleteKit<MaterialMappingData>);

namespace detail
{
using SimpleSlot = std::optional<SimpleMaterial>;
using ComplexSlot = std::optional<ComplexMaterial>;
void setSimple(SimpleSlot& slot, RGBAColor const& color); // takes the place of an index
void setSimpleAlpha(SimpleSlot& slot, float alpha);
void setSimpleIndex(SimpleSlot& slot, float index); // takes the place of colour and alpha
bool showSimple(SimpleSlot const& slot, Material::Type& type, RGBAColor& color, float& index);
void setComplex(ComplexSlot& slot, MaterialData const& channels); // lays them over those that are set
void setComplex(ComplexSlot& slot, RGBAColor const& color, Material::Color::Channel channel);
void setComplex(ComplexSlot& slot, RGBColor const& color, Material::Color::Channel channel);
void setComplexTexture(ComplexSlot& slot, UTF8 const& texture, std::size_t layer);
void setComplexIndex(ComplexSlot& slot, float index);
bool showComplex(ComplexSlot const& slot, Material::Type& type, MaterialKit& material, float& index);
} // namespace detail

template <class Self> class MaterialMappingOperations : public Operations<Self>
{
public:
    using Data = MaterialMappingData;
    using Channel = Material::Color::Channel;

    // Surfaces. Setting a colour, an alpha or a material takes the place of an index set here, and the other
    // way round. A colour without alpha leaves alpha as it is.
#define HPS_SURFACE(Name, ...)                                                                               \
    Self& Set##Name##Color(RGBAColor const& color, Channel channel = Channel::DiffuseColor)                  \
    {                                                                                                        \
        return surface([&](auto& slot) { detail::setComplex(slot, color, channel); }, __VA_ARGS__);          \
    }                                                                                                        \
    Self& Set##Name##Color(RGBColor const& color, Channel channel = Channel::DiffuseColor)                   \
    {                                                                                                        \
        return surface([&](auto& slot) { detail::setComplex(slot, color, channel); }, __VA_ARGS__);          \
    }                                                                                                        \
    Self& Set##Name##Alpha(float alpha)                                                                      \
    {                                                                                                        \
        return surface([&](auto& slot) { detail::setComplex(slot, alphaOnly(alpha)); }, __VA_ARGS__);        \
    }                                                                                                        \
    Self& Set##Name##Texture(UTF8 const& texture, std::size_t layer = 0)                                     \
    {                                                                                                        \
        return surface([&](auto& slot) { detail::setComplexTexture(slot, texture, layer); }, __VA_ARGS__);   \
    }                                                                                                        \
    Self& Set##Name##Material(MaterialKit const& material)                                                   \
    {                                                                                                        \
        return surface([&](auto& slot) { detail::setComplex(slot, material.data()); }, __VA_ARGS__);         \
    }                                                                                                        \
    Self& Set##Name##MaterialByIndex(float index)                                                            \
    {                                                                                                        \
        return surface([&](auto& slot) { detail::setComplexIndex(slot, index); }, __VA_ARGS__);              \
    }                                                                                                        \
    Self& Unset##Name##Material()                                                                            \
    {                                                                                                        \
        return surface([](auto& slot) { slot.reset(); }, __VA_ARGS__);                                       \
    }
    HPS_SURFACE(Face, &Data::frontFace, &Data::backFace)
    HPS_SURFACE(FrontFace, &Data::frontFace)
    HPS_SURFACE(BackFace, &Data::backFace)
    HPS_SURFACE(Edge, &Data::edge)
    HPS_SURFACE(Vertex, &Data::vertex)
    HPS_SURFACE(CutFace, &Data::cutFace)
#undef HPS_SURFACE

    // FullMaterial with `material`, or MaterialIndex with `index`.
    bool ShowFrontFaceMaterial(Material::Type& type, MaterialKit& material, float& index) const
    {
        return detail::showComplex(this->self().data().frontFace, type, material, index);
    }
    bool ShowBackFaceMaterial(Material::Type& type, MaterialKit& material, float& index) const
    {
        return detail::showComplex(this->self().data().backFace, type, material, index);
    }
    bool ShowEdgeMaterial(Material::Type& type, MaterialKit& material, float& index) const
    {
        return detail::showComplex(this->self().data().edge, type, material, index);
    }
    bool ShowVertexMaterial(Material::Type& type, MaterialKit& material, float& index) const
    {
        return detail::showComplex(this->self().data().vertex, type, material, index);
    }
    bool ShowCutFaceMaterial(Material::Type& type, MaterialKit& material, float& index) const
    {
        return detail::showComplex(this->self().data().cutFace, type, material, index);
    }

    // Plain colours. Show gives RGBAColor with `color`, or MaterialIndex with `index`.
#define HPS_COLOR(Name, slot)                                                                                \
    Self& Set##Name##Color(RGBAColor const& color)                                                           \
    {                                                                                                        \
        return surface([&](auto& value) { detail::setSimple(value, color); }, &Data::slot);                  \
    }                                                                                                        \
    Self& Set##Name##Alpha(float alpha)                                                                      \
    {                                                                                                        \
        return surface([&](auto& value) { detail::setSimpleAlpha(value, alpha); }, &Data::slot);             \
    }                                                                                                        \
    Self& Set##Name##MaterialByIndex(float index)                                                            \
    {                                                                                                        \
        return surface([&](auto& value) { detail::setSimpleIndex(value, index); }, &Data::slot);             \
    }                                                                                                        \
    Self& Unset##Name##Color()                                                                               \
    {                                                                                                        \
        return detail::unset<&Data::slot>(this->self());                                                     \
    }                                                                                                        \
    bool Show##Name##Color(Material::Type& type, RGBAColor& color, float& index) const                       \
    {                                                                                                        \
        return detail::showSimple(this->self().data().slot, type, color, index);                             \
    }
    HPS_COLOR(Line, line)
    HPS_COLOR(Text, text)
    HPS_COLOR(Marker, marker)
    HPS_COLOR(Light, light)
    HPS_COLOR(Window, window)
    HPS_COLOR(WindowContrast, windowContrast)
    HPS_COLOR(AmbientLightUp, ambientUp)
    HPS_COLOR(AmbientLightDown, ambientDown)
    HPS_COLOR(CutEdge, cutEdge)
#undef HPS_COLOR

    Self& SetAmbientLightColor(RGBAColor const& color)
    {
        return SetAmbientLightUpColor(color).SetAmbientLightDownColor(color);
    }
    // Faces, edges, vertices, lines, markers and text alike.
    Self& SetGeometryColor(RGBAColor const& color)
    {
        SetFaceColor(color).SetEdgeColor(color).SetVertexColor(color);
        return SetLineColor(color).SetMarkerColor(color).SetTextColor(color);
    }

private:
    static MaterialData alphaOnly(float alpha)
    {
        MaterialData data;
        data.diffuseAlpha = alpha;
        return data;
    }
    template <class F, class... Slot> Self& surface(F const& change, Slot... slots)
    {
        this->self().edit([&](Data& data) { (change(data.*slots), ...); });
        return this->self();
    }
};

class MaterialMappingKit : public Kit<MaterialMappingKit, MaterialMappingOperations>
{
public:
    // What is drawn where nothing is set.
    static MaterialMappingKit GetDefault();
};

class MaterialMappingControl : public Control<MaterialMappingControl, MaterialMappingOperations>
{
public:
    using Control::Control;
};

} // namespace HPS
