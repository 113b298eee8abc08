#include "TextLayout.h"
#include <algorithm>
#include <cmath>
#include <numbers>

namespace HPS::render
{
namespace
{

constexpr double italicLean = 0.21; // tangent of 12 degrees

struct Line {
    std::vector<ShapedGlyph> glyphs;
    double width = 0;
};

enum class Across { Left, Middle, Right };
enum class Upright { Top, Middle, Bottom };

Across acrossOf(Text::Alignment alignment)
{
    return Across(std::uint32_t(alignment) / 3);
}
Upright uprightOf(Text::Alignment alignment)
{
    return Upright(std::uint32_t(alignment) % 3);
}

double share(Across across)
{
    return across == Across::Left ? 0 : across == Across::Middle ? 0.5 : 1;
}
double share(Text::Justification justification)
{
    switch (justification) {
    case Text::Justification::Left:
        return 0;
    case Text::Justification::Right:
        return 1;
    case Text::Justification::Center:
        return 0.5;
    }
    return 0;
}

FlatMesh::Corner at(Affine const& m, double x, double y)
{
    return {float(m.a * x + m.c * y + m.e), float(m.b * x + m.d * y + m.f)};
}

TextLayout::Bar bar(Affine const& m, double left, double bottom, double right, double top)
{
    return {{at(m, left, bottom), at(m, right, bottom), at(m, right, top), at(m, left, top)}};
}

/// The advance of a glyph with the spaces that the style asks for.
double advanceOf(ShapedGlyph const& glyph, TextStyle const& style)
{
    double const extra = glyph.endsCluster && glyph.advance != 0 ? style.extraSpace : 0;
    return (glyph.advance * style.spacing + extra) * style.widthScale;
}

Extent extentOf(std::vector<TextLayout::Bar> const& boxes)
{
    Extent extent;
    bool first = true;
    for (TextLayout::Bar const& box : boxes)
        for (FlatMesh::Corner const& p : box.corners) {
            if (first) extent = {p.x, p.y, p.x, p.y};
            first = false;
            extent.left = std::min<double>(extent.left, p.x);
            extent.right = std::max<double>(extent.right, p.x);
            extent.bottom = std::min<double>(extent.bottom, p.y);
            extent.top = std::max<double>(extent.top, p.y);
        }
    return extent;
}

/// What is laid out so far, before it is aligned.
class Setter
{
public:
    Setter(TextStyle const& style, Font& font) : style_(style), metrics_(font.metrics())
    {
        double const length = std::hypot(style.pathX, style.pathY);
        if (length > 0 && std::isfinite(length)) {
            pathX_ = style.pathX / length;
            pathY_ = style.pathY / length;
        }
        weight_ = style.font.bold && !font.bold() ? Font::Weight::Emboldened : Font::Weight::Own;
        double lean = std::tan(std::clamp(style.slant, -80.0, 80.0) * std::numbers::pi / 180);
        if (style.font.italic && !font.italic()) lean += italicLean;
        letter_ = {style.widthScale, 0, lean, 1, 0, 0};
        if (style.rotation == Text::Rotation::Rotate) {
            double const angle = style.angle * std::numbers::pi / 180;
            letter_ = letter_.then(Affine::turned(std::cos(angle), std::sin(angle)));
        }
    }

    /// Letters side by side on the baseline, which the path turns as a whole.
    void setStraight(Line const& line, double x, double y, Affine const& turn, TextLayout& out) const
    {
        double pen = x;
        for (ShapedGlyph const& g : line.glyphs) {
            put(g, letter_.then({1, 0, 0, 1, pen + g.x * style_.widthScale, y + g.y}).then(turn), out);
            pen += advanceOf(g, style_);
        }
        Affine const place = Affine{1, 0, 0, 1, x, y}.then(turn);
        out.lines.push_back(bar(place, 0, metrics_.descender, line.width, metrics_.ascender));
        auto rule = [&](bool wanted, double height) {
            if (wanted && line.width > 0)
                out.bars.push_back(
                    bar(place, 0, height - metrics_.stroke / 2, line.width, height + metrics_.stroke / 2));
        };
        rule(style_.underline, metrics_.underline);
        rule(style_.strikethrough, metrics_.strike);
        rule(style_.overline, metrics_.ascender - metrics_.stroke / 2);
    }

    /// Upright letters that follow each other along the path, each clear of the one before.
    void setAlongPath(Line const& line, double x, double y, TextLayout& out) const
    {
        double const high = metrics_.lineHeight;
        for (ShapedGlyph const& g : line.glyphs) {
            double const wide = advanceOf(g, style_);
            put(g, letter_.then({1, 0, 0, 1, x + g.x * style_.widthScale, y + g.y}), out);
            Affine const place{1, 0, 0, 1, x, y};
            out.lines.push_back(bar(place, 0, metrics_.descender, wide, metrics_.ascender));
            double const step = std::min(std::abs(pathX_) > 1e-9 ? wide / std::abs(pathX_) : 1e9,
                                         std::abs(pathY_) > 1e-9 ? high / std::abs(pathY_) : 1e9);
            x += pathX_ * step;
            y += pathY_ * step;
        }
    }

    bool straight() const { return style_.rotation == Text::Rotation::FollowPath || pathX_ > 1 - 1e-9; }
    Affine pathTurn() const { return Affine::turned(pathX_, pathY_); }

private:
    void put(ShapedGlyph const& g, Affine const& place, TextLayout& out) const
    {
        out.glyphs.push_back({g.font, g.glyph, weight_, place});
    }

    TextStyle const& style_;
    FontMetrics const& metrics_;
    double pathX_ = 1, pathY_ = 0;
    Font::Weight weight_;
    Affine letter_;
};

void move(TextLayout& layout, double x, double y)
{
    for (TextLayout::Glyph& glyph : layout.glyphs) {
        glyph.place.e += x;
        glyph.place.f += y;
    }
    for (auto* const boxes : {&layout.bars, &layout.lines})
        for (TextLayout::Bar& box : *boxes)
            for (FlatMesh::Corner& corner : box.corners) {
                corner.x += float(x);
                corner.y += float(y);
            }
}

} // namespace

Affine Affine::then(Affine const& n) const
{
    return {n.a * a + n.c * b, n.b * a + n.d * b,       n.a * c + n.c * d,
            n.b * c + n.d * d, n.a * e + n.c * f + n.e, n.b * e + n.d * f + n.f};
}

TextLayout layOut(std::string_view utf8, TextStyle const& style)
{
    Font& font = FontLibrary::instance().find(style.font);
    FontMetrics const& metrics = font.metrics();
    std::vector<Line> lines;
    double widest = 0;
    std::size_t glyphs = 0;
    for (std::u32string const& text : linesOf(utf8)) {
        Line line{shape(text, font), 0};
        for (ShapedGlyph const& glyph : line.glyphs) line.width += advanceOf(glyph, style);
        // No space stands after the last character.
        if (!line.glyphs.empty()) line.width -= style.extraSpace * style.widthScale;
        widest = std::max(widest, line.width);
        glyphs += line.glyphs.size();
        lines.push_back(std::move(line));
    }

    TextLayout layout;
    layout.glyphs.reserve(glyphs);
    Setter const setter(style, font);
    double const lineStep = metrics.lineHeight * style.lineSpacing;
    double const above = metrics.capHeight, below = -lineStep * double(lines.size() - 1);
    Across const across = acrossOf(style.alignment);
    Upright const upright = uprightOf(style.alignment);
    double const height = upright == Upright::Top      ? above
                          : upright == Upright::Bottom ? below
                                                       : 0.5 * (above + below);
    // In its own frame a text is aligned before the path turns it, otherwise after.
    bool const own = style.frame == Text::ReferenceFrame::PathAligned;
    bool const turned = setter.straight() && setter.pathTurn().b != 0;
    double const shiftX = own || !turned ? -share(across) * widest : 0;
    double const shiftY = own || !turned ? -height : 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        double const x = shiftX + share(style.justification) * (widest - lines[i].width);
        double const y = shiftY - lineStep * double(i);
        if (setter.straight())
            setter.setStraight(lines[i], x, y, setter.pathTurn(), layout);
        else
            setter.setAlongPath(lines[i], x, y, layout);
    }
    layout.extent = extentOf(layout.lines);
    if ((turned && !own) || !setter.straight()) {
        Extent const& e = layout.extent;
        double const x = -(e.left + share(across) * e.width());
        double const y = upright == Upright::Top      ? -e.top
                         : upright == Upright::Bottom ? -(e.bottom - metrics.descender)
                                                      : -0.5 * (e.top + e.bottom);
        move(layout, x, y);
        layout.extent = extentOf(layout.lines);
    }
    return layout;
}

} // namespace HPS::render
