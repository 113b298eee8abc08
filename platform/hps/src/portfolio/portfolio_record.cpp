#include "portfolio_record.h"

namespace HPS::scene
{

SegmentRecord const* findStyle(std::span<KeyIndex const> portfolios, std::string_view name)
{
    auto const* const source = findDefinition<Type::NamedStyleDefinition>(portfolios, name);
    return source ? store().resolve<SegmentRecord>(*source) : nullptr;
}

LinePatternKit const* findLinePattern(std::span<KeyIndex const> portfolios, std::string_view name)
{
    return findDefinition<Type::LinePatternDefinition>(portfolios, name);
}

Palette findPalette(std::span<KeyIndex const> portfolios, std::string_view name)
{
    auto const* const palette = findDefinition<Type::MaterialPaletteDefinition>(portfolios, name);
    return palette ? *palette : nullptr;
}

GlyphKit const* findGlyph(std::span<KeyIndex const> portfolios, std::string_view name)
{
    auto const* const glyph = findDefinition<Type::GlyphDefinition>(portfolios, name);
    return glyph ? glyph : builtInGlyph(name);
}

} // namespace HPS::scene
