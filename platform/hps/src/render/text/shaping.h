#pragma once
#include "FontLibrary.h"

namespace HPS::render
{

/// A glyph with its place in a line, in ems; pens move to the right whatever the script.
struct ShapedGlyph {
    Font* font = nullptr;
    std::uint32_t glyph = 0; ///< `Font::boxGlyph` for what no font shows
    double x = 0, y = 0;     ///< from where the pen stands
    double advance = 0;
    bool endsCluster = true; ///< false where more glyphs of the same character follow: no space goes between
};

/// Breaks text at line ends (LF, CR, CR LF, U+2028, U+2029). At least one line.
std::vector<std::u32string> linesOf(std::string_view utf8);

/// One line in the order of sight: runs of one direction, script and font, shaped. Characters that the font
/// lacks come from others.
std::vector<ShapedGlyph> shape(std::u32string_view line, Font& font);

} // namespace HPS::render
