#include "portfolio_record.h"
#include "structure.h"
#include <hps/Database.h>

namespace HPS
{
using namespace scene;

namespace
{

PortfolioRecord* recordOf(Key const& key)
{
    return store().resolve<PortfolioRecord>(key);
}

// The operations that all kinds of definitions share. Names are never empty.
template <class D, class Map>
D define(Key const& key, UTF8 const& name, Map PortfolioRecord::*map, typename Map::mapped_type value)
{
    auto* const portfolio = recordOf(key);
    if (!portfolio || name.Empty()) return {};
    (portfolio->*map).insert_or_assign(name.Str(), std::move(value));
    noteDefinitions(*portfolio);
    return D(key, name);
}

template <class D, class Map>
bool show(Key const& key, UTF8 const& name, Map PortfolioRecord::*map, D& definition)
{
    auto const* const portfolio = recordOf(key);
    if (!portfolio || !(portfolio->*map).contains(name.Str())) return false;
    definition = D(key, name);
    return true;
}

template <class D, class Map>
bool showAll(Key const& key, Map PortfolioRecord::*map, std::vector<D>& definitions)
{
    definitions.clear();
    if (auto const* const portfolio = recordOf(key))
        for (auto const& [name, value] : portfolio->*map) definitions.emplace_back(key, UTF8(name));
    return !definitions.empty();
}

template <class Map> bool undefine(Key const& key, UTF8 const& name, Map PortfolioRecord::*map)
{
    auto* const portfolio = recordOf(key);
    if (!portfolio || (portfolio->*map).erase(name.Str()) == 0) return false;
    noteDefinitions(*portfolio);
    return true;
}

template <class Map>
typename Map::mapped_type* find(Key const& key, UTF8 const& name, Map PortfolioRecord::*map)
{
    auto* const portfolio = recordOf(key);
    if (!portfolio) return nullptr;
    auto const found = (portfolio->*map).find(name.Str());
    return found == (portfolio->*map).end() ? nullptr : &found->second;
}

} // namespace

NamedStyleDefinition PortfolioKey::DefineNamedStyle(UTF8 const& name, SegmentKey const& source)
{
    auto* const segment = store().resolve<SegmentRecord>(source);
    if (!segment) return {};
    segment->isStyleSource = true;
    return define<NamedStyleDefinition>(*this, name, &PortfolioRecord::styles, source.Index());
}

bool PortfolioKey::ShowNamedStyleDefinition(UTF8 const& name, NamedStyleDefinition& definition) const
{
    return show(*this, name, &PortfolioRecord::styles, definition);
}

bool PortfolioKey::ShowAllNamedStyleDefinitions(std::vector<NamedStyleDefinition>& definitions) const
{
    return showAll(*this, &PortfolioRecord::styles, definitions);
}

bool PortfolioKey::UndefineNamedStyle(UTF8 const& name)
{
    return undefine(*this, name, &PortfolioRecord::styles);
}

LinePatternDefinition PortfolioKey::DefineLinePattern(UTF8 const& name, LinePatternKit const& kit)
{
    return define<LinePatternDefinition>(*this, name, &PortfolioRecord::linePatterns, kit);
}

bool PortfolioKey::ShowLinePatternDefinition(UTF8 const& name, LinePatternDefinition& definition) const
{
    return show(*this, name, &PortfolioRecord::linePatterns, definition);
}

bool PortfolioKey::ShowAllLinePatternDefinitions(std::vector<LinePatternDefinition>& definitions) const
{
    return showAll(*this, &PortfolioRecord::linePatterns, definitions);
}

bool PortfolioKey::UndefineLinePattern(UTF8 const& name)
{
    return undefine(*this, name, &PortfolioRecord::linePatterns);
}

MaterialPaletteDefinition PortfolioKey::DefineMaterialPalette(UTF8 const& name,
                                                              MaterialKitArray const& materials)
{
    return define<MaterialPaletteDefinition>(*this, name, &PortfolioRecord::palettes,
                                             std::make_shared<MaterialKitArray const>(materials));
}

MaterialPaletteDefinition PortfolioKey::DefineMaterialPalette(UTF8 const& name, std::size_t count,
                                                              MaterialKit const materials[])
{
    return DefineMaterialPalette(name, MaterialKitArray(materials, materials + count));
}

bool PortfolioKey::ShowMaterialPaletteDefinition(UTF8 const& name,
                                                 MaterialPaletteDefinition& definition) const
{
    return show(*this, name, &PortfolioRecord::palettes, definition);
}

bool PortfolioKey::ShowAllMaterialPaletteDefinitions(
    std::vector<MaterialPaletteDefinition>& definitions) const
{
    return showAll(*this, &PortfolioRecord::palettes, definitions);
}

bool PortfolioKey::UndefineMaterialPalette(UTF8 const& name)
{
    return undefine(*this, name, &PortfolioRecord::palettes);
}

bool PortfolioKey::UndefineEverything()
{
    auto* const portfolio = recordOf(*this);
    if (!portfolio) return false;
    portfolio->styles.clear();
    portfolio->linePatterns.clear();
    portfolio->palettes.clear();
    noteDefinitions(*portfolio);
    return true;
}

HPS::Type NamedStyleDefinition::Type() const
{
    return find(portfolio_, name_, &PortfolioRecord::styles) ? HPS::Type::NamedStyleDefinition
                                                             : HPS::Type::None;
}

SegmentKey NamedStyleDefinition::GetSource() const
{
    auto const* const source = find(portfolio_, name_, &PortfolioRecord::styles);
    return source && store().resolve<SegmentRecord>(*source) ? SegmentKey(*source) : SegmentKey();
}

HPS::Type LinePatternDefinition::Type() const
{
    return find(portfolio_, name_, &PortfolioRecord::linePatterns) ? HPS::Type::LinePatternDefinition
                                                                   : HPS::Type::None;
}

bool LinePatternDefinition::Show(LinePatternKit& kit) const
{
    auto const* const pattern = find(portfolio_, name_, &PortfolioRecord::linePatterns);
    if (pattern) kit = *pattern;
    return pattern;
}

bool LinePatternDefinition::Set(LinePatternKit const& kit)
{
    return !Empty() && !PortfolioKey(portfolio_).DefineLinePattern(name_, kit).Empty();
}

HPS::Type MaterialPaletteDefinition::Type() const
{
    return find(portfolio_, name_, &PortfolioRecord::palettes) ? HPS::Type::MaterialPaletteDefinition
                                                               : HPS::Type::None;
}

bool MaterialPaletteDefinition::Show(MaterialKitArray& materials) const
{
    auto const* const palette = find(portfolio_, name_, &PortfolioRecord::palettes);
    if (palette) materials = **palette;
    return palette;
}

bool MaterialPaletteDefinition::Set(MaterialKitArray const& materials)
{
    return !Empty() && !PortfolioKey(portfolio_).DefineMaterialPalette(name_, materials).Empty();
}

PortfolioKey Database::CreatePortfolio()
{
    return PortfolioKey(store().indexOf(store().create<PortfolioRecord>(Type::PortfolioKey)));
}

} // namespace HPS
