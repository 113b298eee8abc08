#pragma once
#include "store.h"
#include <hps/PortfolioKey.h>
#include <map>
#include <string>

namespace HPS::scene
{

// Values that may be large, or that users keep for a while. Shared and never changed: a new definition puts
// new ones in place.
using Palette = std::shared_ptr<MaterialKitArray const>;
using ImagePointer = std::shared_ptr<ImageKit const>;

struct Texture {
    ImageDefinition image; // may be gone
    TextureOptionsKit options;
};
struct CubeMap {
    CubeMapImages images; // some may be gone
    TextureOptionsKit options;
};

template <class Value> using Definitions = std::map<std::string, Value, std::less<>>;

// Definitions by name.
struct PortfolioRecord : Record {
    static constexpr HPS::Type family = HPS::Type::PortfolioKey;
    Definitions<KeyIndex> styles; // source segments; some may be gone
    Definitions<LinePatternKit> linePatterns;
    Definitions<Palette> palettes;
    Definitions<ImagePointer> images;
    Definitions<Texture> textures;
    Definitions<CubeMap> cubeMaps;
    Definitions<GlyphKit> glyphs;
    Definitions<ShapeKit> shapes;
    Definitions<LegacyShaderKit> legacyShaders;
};

// Where a portfolio keeps the definitions of a type.
template <HPS::Type> inline constexpr auto definitionsOf = nullptr;
template <> inline constexpr auto definitionsOf<Type::NamedStyleDefinition> = &PortfolioRecord::styles;
template <> inline constexpr auto definitionsOf<Type::LinePatternDefinition> = &PortfolioRecord::linePatterns;
template <> inline constexpr auto definitionsOf<Type::MaterialPaletteDefinition> = &PortfolioRecord::palettes;
template <> inline constexpr auto definitionsOf<Type::ImageDefinition> = &PortfolioRecord::images;
template <> inline constexpr auto definitionsOf<Type::TextureDefinition> = &PortfolioRecord::textures;
template <> inline constexpr auto definitionsOf<Type::CubeMapDefinition> = &PortfolioRecord::cubeMaps;
template <> inline constexpr auto definitionsOf<Type::GlyphDefinition> = &PortfolioRecord::glyphs;
template <> inline constexpr auto definitionsOf<Type::ShapeDefinition> = &PortfolioRecord::shapes;
template <> inline constexpr auto definitionsOf<Type::LegacyShaderDefinition> =
    &PortfolioRecord::legacyShaders;

// The definition of a name in one portfolio, or null.
template <HPS::Type Kind> auto* definitionIn(KeyIndex portfolio, std::string_view name)
{
    auto* const record = store().resolve<PortfolioRecord>(portfolio);
    using Value = typename std::remove_reference_t<decltype(record->*definitionsOf<Kind>)>::mapped_type;
    if (!record) return static_cast<Value*>(nullptr);
    auto& definitions = record->*definitionsOf<Kind>;
    auto const found = definitions.find(name);
    return found == definitions.end() ? nullptr : &found->second;
}

// Looks a name up along a stack of portfolios, the last one first. Null if none has it. Valid until the next
// write.
template <HPS::Type Kind>
auto const* findDefinition(std::span<KeyIndex const> portfolios, std::string_view name)
{
    for (auto at = portfolios.size(); at-- > 0;)
        if (auto const* const value = definitionIn<Kind>(portfolios[at], name)) return value;
    return static_cast<decltype(definitionIn<Kind>(KeyIndex(), name))>(nullptr);
}

// Null also for a style whose source is gone.
SegmentRecord const* findStyle(std::span<KeyIndex const> portfolios, std::string_view name);
LinePatternKit const* findLinePattern(std::span<KeyIndex const> portfolios, std::string_view name);
Palette findPalette(std::span<KeyIndex const> portfolios, std::string_view name);
// A glyph that no portfolio defines may be one of the built-in ones.
GlyphKit const* findGlyph(std::span<KeyIndex const> portfolios, std::string_view name);
// The built-in glyph of a name, or null.
GlyphKit const* builtInGlyph(std::string_view name);

} // namespace HPS::scene
