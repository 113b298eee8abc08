#pragma once
#include <hps/Definition.h>
#include <hps/Key.h>

namespace HPS
{

// A collection of definitions. Defining a name again replaces what it stood for.
class PortfolioKey : public KeyOf<Type::PortfolioKey>
{
public:
    using KeyOf::KeyOf;

    NamedStyleDefinition DefineNamedStyle(UTF8 const& name, SegmentKey const& source);
    bool ShowNamedStyleDefinition(UTF8 const& name, NamedStyleDefinition& definition) const;
    bool ShowAllNamedStyleDefinitions(std::vector<NamedStyleDefinition>& definitions) const;
    bool UndefineNamedStyle(UTF8 const& name);

    LinePatternDefinition DefineLinePattern(UTF8 const& name, LinePatternKit const& kit);
    bool ShowLinePatternDefinition(UTF8 const& name, LinePatternDefinition& definition) const;
    bool ShowAllLinePatternDefinitions(std::vector<LinePatternDefinition>& definitions) const;
    bool UndefineLinePattern(UTF8 const& name);

    MaterialPaletteDefinition DefineMaterialPalette(UTF8 const& name, MaterialKitArray const& materials);
    MaterialPaletteDefinition DefineMaterialPalette(UTF8 const& name, std::size_t count,
                                                    MaterialKit const materials[]);
    bool ShowMaterialPaletteDefinition(UTF8 const& name, MaterialPaletteDefinition& definition) const;
    bool ShowAllMaterialPaletteDefinitions(std::vector<MaterialPaletteDefinition>& definitions) const;
    bool UndefineMaterialPalette(UTF8 const& name);

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
