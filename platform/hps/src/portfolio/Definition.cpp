#include "portfolio_record.h"
#include "structure.h"
#include <hps/SegmentKey.h>

namespace HPS
{
using namespace scene;

namespace
{

template <class Value> Value const& valueOf(Value const& stored)
{
    return stored;
}
template <class Value> Value const& valueOf(std::shared_ptr<Value const> const& stored)
{
    return *stored;
}
template <class Value> void put(Value& stored, Value const& value)
{
    stored = value;
}
template <class Value> void put(std::shared_ptr<Value const>& stored, Value const& value)
{
    stored = std::make_shared<Value const>(value);
}

template <HPS::Type Kind> bool showOptions(Key const& portfolio, UTF8 const& name, TextureOptionsKit& options)
{
    auto const* const found = definitionIn<Kind>(portfolio.Index(), name.Str());
    if (found) options = found->options;
    return found;
}

template <HPS::Type Kind>
bool setOptions(Key const& portfolio, UTF8 const& name, TextureOptionsKit const& options)
{
    auto* const found = definitionIn<Kind>(portfolio.Index(), name.Str());
    if (!found) return false;
    found->options = options;
    noteDefinitions(*store().resolve<PortfolioRecord>(portfolio));
    return true;
}

} // namespace

template <HPS::Type Kind> HPS::Type DefinitionOf<Kind>::Type() const
{
    return definitionIn<Kind>(portfolio_.Index(), name_.Str()) ? Kind : HPS::Type::None;
}

template <HPS::Type Kind, class Value> bool ValueDefinition<Kind, Value>::Show(Value& value) const
{
    auto const* const found = definitionIn<Kind>(this->portfolio_.Index(), this->name_.Str());
    if (found) value = valueOf(*found);
    return found;
}

template <HPS::Type Kind, class Value> bool ValueDefinition<Kind, Value>::Set(Value const& value)
{
    auto* const found = definitionIn<Kind>(this->portfolio_.Index(), this->name_.Str());
    if (!found) return false;
    put(*found, value);
    noteDefinitions(*store().resolve<PortfolioRecord>(this->portfolio_));
    return true;
}

template class DefinitionOf<Type::NamedStyleDefinition>;
template class DefinitionOf<Type::TextureDefinition>;
template class DefinitionOf<Type::CubeMapDefinition>;
template class DefinitionOf<Type::ImageDefinition>;
template class DefinitionOf<Type::LinePatternDefinition>;
template class DefinitionOf<Type::GlyphDefinition>;
template class DefinitionOf<Type::ShapeDefinition>;
template class DefinitionOf<Type::LegacyShaderDefinition>;
template class DefinitionOf<Type::MaterialPaletteDefinition>;
template class ValueDefinition<Type::ImageDefinition, ImageKit>;
template class ValueDefinition<Type::LinePatternDefinition, LinePatternKit>;
template class ValueDefinition<Type::GlyphDefinition, GlyphKit>;
template class ValueDefinition<Type::ShapeDefinition, ShapeKit>;
template class ValueDefinition<Type::LegacyShaderDefinition, LegacyShaderKit>;
template class ValueDefinition<Type::MaterialPaletteDefinition, MaterialKitArray>;

SegmentKey NamedStyleDefinition::GetSource() const
{
    auto const* const source = definitionIn<StaticType>(portfolio_.Index(), name_.Str());
    return source && store().resolve<SegmentRecord>(*source) ? SegmentKey(*source) : SegmentKey();
}

bool TextureDefinition::ShowImage(ImageDefinition& image) const
{
    auto const* const texture = definitionIn<StaticType>(portfolio_.Index(), name_.Str());
    if (!texture || texture->image.Empty()) return false;
    image = texture->image;
    return true;
}

bool TextureDefinition::ShowOptions(TextureOptionsKit& options) const
{
    return showOptions<StaticType>(portfolio_, name_, options);
}

bool TextureDefinition::SetOptions(TextureOptionsKit const& options)
{
    return setOptions<StaticType>(portfolio_, name_, options);
}

bool CubeMapDefinition::ShowImages(CubeMapImages& images) const
{
    auto const* const cubeMap = definitionIn<StaticType>(portfolio_.Index(), name_.Str());
    if (cubeMap) images = cubeMap->images;
    return cubeMap;
}

bool CubeMapDefinition::ShowOptions(TextureOptionsKit& options) const
{
    return showOptions<StaticType>(portfolio_, name_, options);
}

bool CubeMapDefinition::SetOptions(TextureOptionsKit const& options)
{
    return setOptions<StaticType>(portfolio_, name_, options);
}

TextureOptionsKit TextureOptionsKit::GetDefault()
{
    using namespace Material::Texture;
    TextureOptionsKit kit;
    kit.SetDecal(false).SetDownSampling(true).SetModulation(false).SetParameterOffset(0);
    kit.SetParameterizationSource(Parameterization::UV).SetTiling(Tiling::Repeat);
    kit.SetInterpolationFilter(Interpolation::Bilinear).SetDecimationFilter(Decimation::None);
    return kit;
}

} // namespace HPS
