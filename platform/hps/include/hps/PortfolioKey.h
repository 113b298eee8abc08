#pragma once
#include <hps/Definition.h>
#include <hps/Key.h>

namespace HPS
{

// A collection of definitions. Defining a name again replaces what it stood for. The empty name defines
// nothing.
class PortfolioKey : public KeyOf<Type::PortfolioKey>
{
public:
    using KeyOf::KeyOf;

    NamedStyleDefinition DefineNamedStyle(UTF8 const& name, SegmentKey const& source);
    LinePatternDefinition DefineLinePattern(UTF8 const& name, LinePatternKit const& kit);
    MaterialPaletteDefinition DefineMaterialPalette(UTF8 const& name, MaterialKitArray const& materials);
    MaterialPaletteDefinition DefineMaterialPalette(UTF8 const& name, std::size_t count,
                                                    MaterialKit const materials[]);
    ImageDefinition DefineImage(UTF8 const& name, ImageKit const& kit);
    // The image is used by its name, so that a new one of that name shows.
    TextureDefinition DefineTexture(UTF8 const& name, ImageDefinition const& image,
                                    TextureOptionsKit const& options);
    CubeMapDefinition DefineCubeMap(UTF8 const& name, CubeMapImages const& images,
                                    TextureOptionsKit const& options);
    GlyphDefinition DefineGlyph(UTF8 const& name, GlyphKit const& kit);
    ShapeDefinition DefineShape(UTF8 const& name, ShapeKit const& kit);
    LegacyShaderDefinition DefineLegacyShader(UTF8 const& name, LegacyShaderKit const& kit);

    // Show...: false, leaving the definition as it is, if there is none of the name. ShowAll...: in the order
    // of the names; false if there are none. Undefine...: false if there was none.
#define HPS_DEFINITION(Name)                                                                                 \
    bool Show##Name##Definition(UTF8 const& name, Name##Definition& definition) const;                       \
    bool ShowAll##Name##Definitions(std::vector<Name##Definition>& definitions) const;                       \
    bool Undefine##Name(UTF8 const& name);
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

    bool UndefineEverything();
};

using PortfolioKeyArray = std::vector<PortfolioKey>;

// The portfolios pushed on a segment. A name is looked up in the last one pushed first, then in those before
// it, then in those of the segments above on the path.
class PortfolioControl
{
public:
    explicit PortfolioControl(Key const& segment) : segment_(segment) {}

    PortfolioControl& Push(PortfolioKey const& portfolio);
    bool Pop();
    bool Pop(PortfolioKey& portfolio);
    bool ShowTop(PortfolioKey& portfolio) const;
    bool Show(PortfolioKeyArray& portfolios) const; // the last one pushed stands last
    PortfolioControl& UnsetTop();
    PortfolioControl& UnsetEverything();
    std::size_t GetCount() const;

    // The palette that material indices count in.
    PortfolioControl& SetMaterialPalette(UTF8 const& name);
    PortfolioControl& UnsetMaterialPalette();
    bool ShowMaterialPalette(UTF8& name) const;

private:
    Key segment_;
};

} // namespace HPS
