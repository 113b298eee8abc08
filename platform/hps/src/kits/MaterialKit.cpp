#include <hps/MaterialKit.h>

namespace HPS
{

void MaterialData::putLayer(std::size_t layer, MaterialChannel channel)
{
    if (layer >= maximumLayers) return;
    if (!diffuseTexture) diffuseTexture.emplace();
    MaterialChannel empty;
    empty.type = Material::Type::None;
    if (diffuseTexture->size() <= layer) diffuseTexture->resize(layer + 1, empty);
    (*diffuseTexture)[layer] = std::move(channel);
}

MaterialKit MaterialKit::GetDefault()
{
    MaterialKit kit;
    kit.SetDiffuse(RGBAColor(0.7f, 0.7f, 0.7f)).SetSpecular(RGBAColor::Black()).SetGloss(15);
    return kit;
}

MaterialKit& MaterialKit::SetDiffuseColor(RGBColor const& color)
{
    data_.diffuseColor = color;
    return *this;
}

MaterialKit& MaterialKit::SetDiffuseColor(RGBAColor const& color)
{
    data_.diffuseColor = color.RGB();
    data_.diffuseAlpha = color.alpha;
    return *this;
}

MaterialKit& MaterialKit::UnsetDiffuseColor()
{
    data_.diffuseColor.reset();
    data_.diffuseAlpha.reset();
    return *this;
}

bool MaterialKit::ShowDiffuseColor(RGBColor& color) const
{
    return detail::show<&Data::diffuseColor>(*this, color);
}

bool MaterialKit::ShowDiffuseColor(RGBAColor& color) const
{
    if (!data_.diffuseColor || !data_.diffuseAlpha) return false;
    color = RGBAColor(*data_.diffuseColor, *data_.diffuseAlpha);
    return true;
}

MaterialKit& MaterialKit::SetDiffuseAlpha(float alpha)
{
    data_.diffuseAlpha = alpha;
    return *this;
}

MaterialKit& MaterialKit::UnsetDiffuseAlpha()
{
    data_.diffuseAlpha.reset();
    return *this;
}

bool MaterialKit::ShowDiffuseAlpha(float& alpha) const
{
    return detail::show<&Data::diffuseAlpha>(*this, alpha);
}

MaterialKit& MaterialKit::UnsetDiffuse()
{
    return UnsetDiffuseColor().UnsetDiffuseTexture();
}

MaterialKit& MaterialKit::SetDiffuseTexture(UTF8 const& texture, std::size_t layer)
{
    data_.putLayer(layer, {Material::Type::TextureName, RGBAColor(), texture});
    return *this;
}

MaterialKit& MaterialKit::SetDiffuseTexture(UTF8 const& texture, RGBAColor const& modulation,
                                            std::size_t layer)
{
    data_.putLayer(layer, {Material::Type::ModulatedTexture, modulation, texture});
    return *this;
}

MaterialKit& MaterialKit::UnsetDiffuseTexture()
{
    data_.diffuseTexture.reset();
    return *this;
}

MaterialKit& MaterialKit::UnsetDiffuseTexture(std::size_t layer)
{
    auto& layers = data_.diffuseTexture;
    if (!layers || layer >= layers->size()) return *this;
    (*layers)[layer] = {Material::Type::None, RGBAColor(), UTF8()};
    while (!layers->empty() && layers->back().type == Material::Type::None) layers->pop_back();
    if (layers->empty()) layers.reset();
    return *this;
}

bool MaterialKit::ShowDiffuseTexture(TypeArray& types, std::vector<RGBAColor>& colors,
                                     std::vector<UTF8>& names) const
{
    if (!data_.diffuseTexture) return false;
    types.clear();
    colors.clear();
    names.clear();
    for (auto const& layer : *data_.diffuseTexture) {
        types.push_back(layer.type);
        colors.push_back(layer.color);
        names.push_back(layer.texture);
    }
    return true;
}

MaterialKit& MaterialKit::SetEnvironmentTexture(UTF8 const& texture)
{
    auto const type = texture.Empty() ? Material::Type::None : Material::Type::TextureName;
    data_.environment = {type, RGBAColor(), texture};
    return *this;
}

MaterialKit& MaterialKit::SetEnvironmentTexture(UTF8 const& texture, RGBAColor const& modulation)
{
    data_.environment = {Material::Type::ModulatedTexture, modulation, texture};
    return *this;
}

MaterialKit& MaterialKit::SetEnvironmentCubeMap(UTF8 const& cubeMap)
{
    auto const type = cubeMap.Empty() ? Material::Type::None : Material::Type::CubeMapName;
    data_.environment = {type, RGBAColor(), cubeMap};
    return *this;
}

MaterialKit& MaterialKit::SetEnvironmentCubeMap(UTF8 const& cubeMap, RGBAColor const& modulation)
{
    data_.environment = {Material::Type::ModulatedCubeMap, modulation, cubeMap};
    return *this;
}

MaterialKit& MaterialKit::UnsetEnvironment()
{
    data_.environment.reset();
    return *this;
}

bool MaterialKit::ShowEnvironment(Material::Type& type, RGBAColor& color, UTF8& name) const
{
    return showChannel<&Data::environment>(type, color, name);
}

MaterialKit& MaterialKit::UnsetEverything()
{
    data_ = {};
    return *this;
}

} // namespace HPS
