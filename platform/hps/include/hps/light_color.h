#pragma once
#include <hps/GeometryKit.h>
#include <hps/MaterialMappingKit.h>

namespace HPS
{

// The colour of a light, where the light colour of its segment is not to hold.
template <class Self, class Data> class LightColorOperations : public GeometryOperations<Self>
{
public:
    Self& SetColor(RGBAColor const& color)
    {
        this->self().edit([&](Data& data) { detail::setSimple(data.color, color); });
        return this->self();
    }
    Self& SetColorByIndex(float index)
    {
        this->self().edit([&](Data& data) { detail::setSimpleIndex(data.color, index); });
        return this->self();
    }
    Self& UnsetColor()
    {
        this->self().edit([](Data& data) { data.color.reset(); });
        return this->self();
    }
    bool ShowColor(Material::Type& type, RGBAColor& color, float& index) const
    {
        bool isSet = false;
        this->self().read(
            [&](Data const& data) { isSet = detail::showSimple(data.color, type, color, index); });
        return isSet;
    }
};

} // namespace HPS
