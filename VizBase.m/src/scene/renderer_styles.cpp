// Line patterns and marker glyphs by the model's numbers.

#include "ZELRenderer.h"

#include <algorithm>
#include <array>

namespace ZelVizBase
{

using NarMetaVisu::LineAttribute;

namespace
{

/// A glyph serves several styles; zeros fill up.
struct GlyphOfStyles {
    char const* glyph;
    std::array<int, 12> styles;
};

constexpr std::array glyphsOfStyles{
    GlyphOfStyles{"times", {1, 31}},
    GlyphOfStyles{"plus", {2}},
    GlyphOfStyles{"circle with circle", {3}},
    GlyphOfStyles{"circle with dot", {4}},
    GlyphOfStyles{"circle", {5, 12, 18, 19, 28, 36}},
    GlyphOfStyles{"box", {6, 13, 26, 2008}},
    GlyphOfStyles{"splat", {7}},
    GlyphOfStyles{"triangle up", {14, 15, 16, 24, 29, 30, 32, 33, 2001, 2002, 2009, 2013}},
    GlyphOfStyles{"solid triangle up", {17, 25, 2011}},
    GlyphOfStyles{"solid circle", {20}},
    GlyphOfStyles{"circle with times", {21}},
    GlyphOfStyles{"Box", {22}},
    GlyphOfStyles{"solid box", {23, 34}},
    GlyphOfStyles{"diamond", {27, 35}},
    GlyphOfStyles{"slant right", {2003}},
    GlyphOfStyles{"slant left", {2004}},
    GlyphOfStyles{"triangle down", {2010}},
    GlyphOfStyles{"solid triangle down", {2012}},
};

} // namespace

void ZELRenderer::initializeLineStyles()
{
    if (PortfolioKey.Type() == HPS::Type::None) return;
    for (int style = LineAttribute::Solid; style <= LineAttribute::LongDashedDoubleDotted; ++style) {
        std::string const name = LineAttribute::ToString(static_cast<LineAttribute::VisuLineStyle>(style));
        auto const pattern = static_cast<HPS::LinePattern::Default>(style - 1);
        PortfolioKey.DefineLinePattern(name.c_str(), HPS::LinePatternKit::GetDefault(pattern));
    }
}

std::string ZELRenderer::mapMarkerStyleToGlyphName(NarMetaVisu::VisuMarkerStyle style) const
{
    int const number = static_cast<int>(style);
    for (GlyphOfStyles const& row : glyphsOfStyles)
        if (number != 0 && std::ranges::find(row.styles, number) != row.styles.end()) return row.glyph;
    return "dot"; // also for numbers that are no style
}

} // namespace ZelVizBase
