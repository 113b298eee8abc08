#pragma once
#include "shaping.h"
#include <hps/enumerations.h>

namespace HPS::render
{

/// How a text is set. Lengths count in ems: 1 is the size of the text.
struct TextStyle {
    FontLibrary::Request font;
    Text::Alignment alignment = Text::Alignment::BottomLeft;
    Text::ReferenceFrame frame = Text::ReferenceFrame::WorldAligned;
    Text::Justification justification = Text::Justification::Left;
    bool overline = false, strikethrough = false, underline = false;
    double slant = 0;       ///< degrees that uprights lean to the right
    double lineSpacing = 1; ///< multiple of the font's own
    double spacing = 1;     ///< multiple of each advance
    double extraSpace = 0;  ///< after each character
    double widthScale = 1;  ///< of the letters and what is between them
    Text::Rotation rotation = Text::Rotation::None;
    double angle = 0;            ///< degrees, with Rotation::Rotate: by which each letter is turned
    double pathX = 1, pathY = 0; ///< the way that letters follow each other; any length but 0

    bool operator==(TextStyle const&) const = default;
};

/// (x, y) goes to (a x + c y + e, b x + d y + f).
struct Affine {
    double a = 1, b = 0, c = 0, d = 1, e = 0, f = 0;

    /// First this, then `next`.
    Affine then(Affine const& next) const;
    static Affine turned(double cosine, double sine) { return {cosine, sine, -sine, cosine, 0, 0}; }
};

struct Extent {
    double left = 0, bottom = 0, right = 0, top = 0;
    double width() const { return right - left; }
    double height() const { return top - bottom; }
};

/// A text worked out: where each glyph goes, in ems, x to the right and y up from the place that the text's
/// position stands for.
struct TextLayout {
    struct Glyph {
        Font* font;
        std::uint32_t glyph;
        Font::Weight weight;
        Affine place;
    };
    struct Bar {
        FlatMesh::Corner corners[4];
    };
    std::vector<Glyph> glyphs;
    std::vector<Bar> bars;  ///< overlines, strikethroughs, underlines
    std::vector<Bar> lines; ///< around each line of text, from descender to ascender: for greeking
    Extent extent;          ///< around all of these boxes, blanks and what no ink touches included
};

/// The same text and style give the same layout as long as the fonts are the same.
TextLayout layOut(std::string_view utf8, TextStyle const& style);

} // namespace HPS::render
