#include <hps/MaterialMappingKit.h>

namespace HPS
{

MaterialData const& ComplexMaterial::values() const
{
    static MaterialData const none;
    return channels ? *channels : none;
}

namespace detail
{
namespace
{

// Changes the channels of a surface; an index set before gives way to them.
template <class F> void editChannels(ComplexSlot& slot, F&& change)
{
    MaterialData data = slot ? slot->values() : MaterialData();
    change(data);
    slot = ComplexMaterial{std::nullopt, std::make_shared<MaterialData const>(std::move(data))};
}

} // namespace

void setSimple(SimpleSlot& slot, RGBAColor const& color)
{
    slot = SimpleMaterial{color.RGB(), color.alpha, std::nullopt};
}

void setSimpleAlpha(SimpleSlot& slot, float alpha)
{
    if (!slot) slot.emplace();
    slot->alpha = alpha;
    slot->index.reset();
}

void setSimpleIndex(SimpleSlot& slot, float index)
{
    slot = SimpleMaterial{std::nullopt, std::nullopt, index};
}

bool showSimple(SimpleSlot const& slot, Material::Type& type, RGBAColor& color, float& index)
{
    if (!slot) return false;
    if (slot->index) {
        type = Material::Type::MaterialIndex;
        index = *slot->index;
    } else {
        type = slot->color ? Material::Type::RGBAColor : Material::Type::DiffuseChannelAlpha;
        color = RGBAColor(slot->color.value_or(RGBColor()), slot->alpha.value_or(1));
    }
    return true;
}

void setComplex(ComplexSlot& slot, MaterialData const& channels)
{
    editChannels(slot, [&](MaterialData& data) {
        forEachAspect<MaterialData>([&](auto const& aspect) {
            if (auto const& value = aspect.get(channels)) aspect.put(data, value);
        });
    });
}

void setComplex(ComplexSlot& slot, RGBAColor const& color, Material::Color::Channel channel)
{
    using enum Material::Color::Channel;
    MaterialChannel const value{Material::Type::RGBAColor, color, UTF8()};
    editChannels(slot, [&](MaterialData& data) {
        switch (channel) {
        case DiffuseColor:
            data.diffuseColor = color.RGB();
            data.diffuseAlpha = color.alpha;
            break;
        case Specular:
            data.specular = value;
            break;
        case Mirror:
            data.mirror = value;
            break;
        case Transmission:
            data.transmission = value;
            break;
        case Emission:
            data.emission = value;
            break;
        case EnvironmentColor:
            data.environment = value;
            break;
        }
    });
}

void setComplex(ComplexSlot& slot, RGBColor const& color, Material::Color::Channel channel)
{
    if (channel != Material::Color::Channel::DiffuseColor) return setComplex(slot, RGBAColor(color), channel);
    editChannels(slot, [&](MaterialData& data) { data.diffuseColor = color; });
}

void setComplexTexture(ComplexSlot& slot, UTF8 const& texture, std::size_t layer)
{
    editChannels(slot, [&](MaterialData& data) {
        data.putLayer(layer, {Material::Type::TextureName, RGBAColor(), texture});
    });
}

void setComplexIndex(ComplexSlot& slot, float index)
{
    slot = ComplexMaterial{index, nullptr};
}

bool showComplex(ComplexSlot const& slot, Material::Type& type, MaterialKit& material, float& index)
{
    if (!slot) return false;
    if (slot->index) {
        type = Material::Type::MaterialIndex;
        index = *slot->index;
    } else {
        type = Material::Type::FullMaterial;
        material.edit([&](MaterialData& data) { data = slot->values(); });
    }
    return true;
}

} // namespace detail
} // namespace HPS
