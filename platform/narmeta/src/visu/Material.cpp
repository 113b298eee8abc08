#include <narmeta/visu/MaterialContainer.h>

#include <algorithm>

namespace NarMetaVisu
{

namespace
{

bool Give(std::optional<NarMeta::Colour> const& colour, unsigned short& red, unsigned short& green,
          unsigned short& blue)
{
    if (colour) red = colour->red, green = colour->green, blue = colour->blue;
    return colour.has_value();
}

bool Give(std::optional<float> const& coefficient, float& value)
{
    if (coefficient) value = *coefficient;
    return coefficient.has_value();
}

} // namespace

bool Material::GetDiffuseColor(unsigned short& red, unsigned short& green, unsigned short& blue) const
{
    return Give(settings_.diffuse.colour, red, green, blue);
}

bool Material::GetDiffuseCoefficient(float& value) const
{
    return Give(settings_.diffuse.coefficient, value);
}

bool Material::GetTransparencyColor(unsigned short& red, unsigned short& green, unsigned short& blue) const
{
    return Give(settings_.transparency.colour, red, green, blue);
}

bool Material::GetTransparencyCoefficient(float& value) const
{
    return Give(settings_.transparency.coefficient, value);
}

bool Material::GetSpecularColor(unsigned short& red, unsigned short& green, unsigned short& blue) const
{
    return Give(settings_.specular.colour, red, green, blue);
}

bool Material::GetSpecularCoefficient(float& value) const
{
    return Give(settings_.specular.coefficient, value);
}

bool Material::GetReflectionColor(unsigned short& red, unsigned short& green, unsigned short& blue) const
{
    return Give(settings_.reflection.colour, red, green, blue);
}

bool Material::GetReflectionCoefficient(float& value) const
{
    return Give(settings_.reflection.coefficient, value);
}

bool Material::GetShininess(float& value) const
{
    return Give(settings_.shininess, value);
}

bool Material::HasTextures() const
{
    auto const& s = settings_;
    auto const lists = {&s.diffuseColorTextures,  &s.diffuseCoeffTextures,  &s.ambientCoeffTextures,
                        &s.specularColorTextures, &s.specularCoeffTextures, &s.bumpColorTextures,
                        &s.bumpCoeffTextures,     &s.normalTextures,        &s.emissiveColorTextures,
                        &s.emissiveCoeffTextures};
    return std::any_of(lists.begin(), lists.end(), [](Textures const* list) { return !list->empty(); });
}

MaterialContainer& MaterialContainer::Instance()
{
    static MaterialContainer container;
    return container;
}

void MaterialContainer::Add(std::shared_ptr<Material> material)
{
    materials_[material->GetMaterialName()] = std::move(material);
}

void MaterialContainer::Add(std::shared_ptr<Texture> texture)
{
    textures_[texture->GetTextureName()] = std::move(texture);
}

void MaterialContainer::Clear()
{
    materials_.clear();
    textures_.clear();
}

} // namespace NarMetaVisu
