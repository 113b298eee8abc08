#include "portfolio_record.h"
#include "structure.h"
#include "subscriptions.h"
#include <hps/Database.h>

namespace HPS
{
using namespace scene;

namespace
{

template <class D, class Value> D define(Key const& key, UTF8 const& name, Value value)
{
    auto* const portfolio = store().resolve<PortfolioRecord>(key);
    if (!portfolio) return {};
    if (name.Empty()) return raiseError("Definition refused: it has no name"), D();
    (portfolio->*definitionsOf<D::StaticType>).insert_or_assign(name.Str(), std::move(value));
    noteDefinitions(*portfolio);
    return D(key, name);
}

template <class D> bool show(Key const& key, UTF8 const& name, D& definition)
{
    if (!definitionIn<D::StaticType>(key.Index(), name.Str())) return false;
    definition = D(key, name);
    return true;
}

template <class D> bool showAll(Key const& key, std::vector<D>& definitions)
{
    definitions.clear();
    if (auto const* const portfolio = store().resolve<PortfolioRecord>(key))
        for (auto const& [name, value] : portfolio->*definitionsOf<D::StaticType>)
            definitions.emplace_back(key, UTF8(name));
    return !definitions.empty();
}

template <class D> bool undefine(Key const& key, UTF8 const& name)
{
    auto* const portfolio = store().resolve<PortfolioRecord>(key);
    if (!portfolio || (portfolio->*definitionsOf<D::StaticType>).erase(name.Str()) == 0) return false;
    noteDefinitions(*portfolio);
    return true;
}

} // namespace

#define HPS_DEFINITION(Name)                                                                                 \
    bool PortfolioKey::Show##Name##Definition(UTF8 const& name, Name##Definition& definition) const          \
    {                                                                                                        \
        return show(*this, name, definition);                                                                \
    }                                                                                                        \
    bool PortfolioKey::ShowAll##Name##Definitions(std::vector<Name##Definition>& definitions) const          \
    {                                                                                                        \
        return showAll(*this, definitions);                                                                  \
    }                                                                                                        \
    bool PortfolioKey::Undefine##Name(UTF8 const& name)                                                      \
    {                                                                                                        \
        return undefine<Name##Definition>(*this, name);                                                      \
    }
HPS_DEFINITION(NamedStyle)
HPS_DEFINITION(LinePattern)
HPS_DEFINITION(MaterialPalette)
HPS_DEFINITION(Image)
HPS_DEFINITION(Texture)
HPS_DEFINITION(CubeMap)
HPS_DEFINITION(Glyph)
HPS_DEFINITION(Shape)
HPS_DEFINITION(LegacyShader)
#undef HPS_DEFINITION

NamedStyleDefinition PortfolioKey::DefineNamedStyle(UTF8 const& name, SegmentKey const& source)
{
    auto* const segment = store().resolve<SegmentRecord>(source);
    if (!segment) return raiseError("Named style refused: there is no such segment"), NamedStyleDefinition();
    segment->isStyleSource = true;
    return define<NamedStyleDefinition>(*this, name, source.Index());
}

LinePatternDefinition PortfolioKey::DefineLinePattern(UTF8 const& name, LinePatternKit const& kit)
{
    return define<LinePatternDefinition>(*this, name, kit);
}

MaterialPaletteDefinition PortfolioKey::DefineMaterialPalette(UTF8 const& name,
                                                              MaterialKitArray const& materials)
{
    return define<MaterialPaletteDefinition>(*this, name,
                                             std::make_shared<MaterialKitArray const>(materials));
}

MaterialPaletteDefinition PortfolioKey::DefineMaterialPalette(UTF8 const& name, std::size_t count,
                                                              MaterialKit const materials[])
{
    return DefineMaterialPalette(name, MaterialKitArray(materials, materials + count));
}

ImageDefinition PortfolioKey::DefineImage(UTF8 const& name, ImageKit const& kit)
{
    return define<ImageDefinition>(*this, name, std::make_shared<ImageKit const>(kit));
}

TextureDefinition PortfolioKey::DefineTexture(UTF8 const& name, ImageDefinition const& image,
                                              TextureOptionsKit const& options)
{
    if (image.Empty())
        raiseWarning(UTF8("Texture \"" + name.Str() + "\" shows nothing: its image is not there"));
    return define<TextureDefinition>(*this, name, Texture{image, options});
}

CubeMapDefinition PortfolioKey::DefineCubeMap(UTF8 const& name, CubeMapImages const& images,
                                              TextureOptionsKit const& options)
{
    return define<CubeMapDefinition>(*this, name, CubeMap{images, options});
}

GlyphDefinition PortfolioKey::DefineGlyph(UTF8 const& name, GlyphKit const& kit)
{
    return define<GlyphDefinition>(*this, name, kit);
}

ShapeDefinition PortfolioKey::DefineShape(UTF8 const& name, ShapeKit const& kit)
{
    return define<ShapeDefinition>(*this, name, kit);
}

LegacyShaderDefinition PortfolioKey::DefineLegacyShader(UTF8 const& name, LegacyShaderKit const& kit)
{
    return define<LegacyShaderDefinition>(*this, name, kit);
}

bool PortfolioKey::UndefineEverything()
{
    auto* const portfolio = store().resolve<PortfolioRecord>(*this);
    if (!portfolio) return false;
    PortfolioRecord bare;
    static_cast<Record&>(bare) = *portfolio;
    *portfolio = std::move(bare);
    noteDefinitions(*portfolio);
    return true;
}

PortfolioKey Database::CreatePortfolio()
{
    return PortfolioKey(store().indexOf(store().create<PortfolioRecord>(Type::PortfolioKey)));
}

} // namespace HPS
