#include "Font.h"
#include <algorithm>
#include <cmath>
#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H
#include FT_TRUETYPE_TABLES_H
#include <hb-ft.h>

namespace HPS::render
{
namespace
{

FT_Library freeType()
{
    static FT_Library const library = [] {
        FT_Library made = nullptr;
        return FT_Init_FreeType(&made) == 0 ? made : nullptr; // as long-lived as the process
    }();
    return library;
}

OutlineFiller& filler()
{
    static OutlineFiller shared;
    return shared;
}

/// Gathers an outline into contours of straight lines.
struct Flattener {
    std::vector<OutlineFiller::Contour> contours;
    double scale;
    double tolerance; ///< in ems
    double x = 0, y = 0;

    void put(double toX, double toY)
    {
        x = toX;
        y = toY;
        contours.back().push_back({float(x), float(y)});
    }
    double em(FT_Pos value) const { return double(value) / scale; }

    /// Steps so that a curve whose second differences are (dx, dy) stays within the tolerance.
    int steps(double dx, double dy, double factor) const
    {
        double const wanted = std::sqrt(factor * std::hypot(dx, dy) / tolerance);
        return std::isfinite(wanted) ? std::clamp(int(std::ceil(wanted)), 1, 64) : 1;
    }

    static int move(FT_Vector const* to, void* user)
    {
        auto& self = *static_cast<Flattener*>(user);
        self.contours.emplace_back();
        self.put(self.em(to->x), self.em(to->y));
        return 0;
    }
    static int line(FT_Vector const* to, void* user)
    {
        auto& self = *static_cast<Flattener*>(user);
        self.put(self.em(to->x), self.em(to->y));
        return 0;
    }
    static int conic(FT_Vector const* control, FT_Vector const* to, void* user)
    {
        auto& self = *static_cast<Flattener*>(user);
        double const x0 = self.x, y0 = self.y, x1 = self.em(control->x), y1 = self.em(control->y),
                     x2 = self.em(to->x), y2 = self.em(to->y);
        int const count = self.steps(x0 - 2 * x1 + x2, y0 - 2 * y1 + y2, 0.25);
        for (int i = 1; i <= count; ++i) {
            double const t = double(i) / count, s = 1 - t;
            self.put(s * s * x0 + 2 * s * t * x1 + t * t * x2, s * s * y0 + 2 * s * t * y1 + t * t * y2);
        }
        return 0;
    }
    static int cubic(FT_Vector const* first, FT_Vector const* second, FT_Vector const* to, void* user)
    {
        auto& self = *static_cast<Flattener*>(user);
        double const x0 = self.x, y0 = self.y, x1 = self.em(first->x), y1 = self.em(first->y),
                     x2 = self.em(second->x), y2 = self.em(second->y), x3 = self.em(to->x),
                     y3 = self.em(to->y);
        double const dx = std::max(std::abs(x0 - 2 * x1 + x2), std::abs(x1 - 2 * x2 + x3));
        double const dy = std::max(std::abs(y0 - 2 * y1 + y2), std::abs(y1 - 2 * y2 + y3));
        int const count = self.steps(dx, dy, 0.75);
        for (int i = 1; i <= count; ++i) {
            double const t = double(i) / count, s = 1 - t;
            double const a = s * s * s, b = 3 * s * s * t, c = 3 * s * t * t, d = t * t * t;
            self.put(a * x0 + b * x1 + c * x2 + d * x3, a * y0 + b * y1 + c * y2 + d * y3);
        }
        return 0;
    }
};

FlatMesh box()
{
    constexpr float left = 0.08f, right = 0.52f, bottom = 0, top = 0.7f, pen = 0.05f;
    std::vector<OutlineFiller::Contour> const rims{
        {{left, bottom}, {right, bottom}, {right, top}, {left, top}},
        {{left + pen, bottom + pen},
         {left + pen, top - pen},
         {right - pen, top - pen},
         {right - pen, bottom + pen}}};
    FlatMesh mesh;
    filler().fill(rims, mesh);
    return mesh;
}

} // namespace

Font::Font() = default;

Font::~Font()
{
    if (shaper_ != nullptr) hb_font_destroy(shaper_);
    if (face_ != nullptr) FT_Done_Face(face_);
}

std::unique_ptr<Font> Font::open(std::string const& file, int index, std::string& failure)
{
    FT_Face face = nullptr;
    if (freeType() == nullptr || FT_New_Face(freeType(), file.c_str(), index, &face) != 0) {
        failure = "The file '" + file + "' is no font, or a damaged one.";
        return nullptr;
    }
    auto font = std::make_unique<Font>();
    font->face_ = face;
    font->file_ = file;
    if (!FT_IS_SCALABLE(face) || face->units_per_EM == 0) {
        failure = "The font '" + file + "' has no outlines.";
        return nullptr;
    }
    // One font unit is 64 units of outlines and positions then: nothing is rounded.
    if (FT_Set_Char_Size(face, 0, FT_F26Dot6(face->units_per_EM) * 64, 72, 72) != 0) {
        failure = "The font '" + file + "' cannot be scaled.";
        return nullptr;
    }
    if (FT_Select_Charmap(face, FT_ENCODING_UNICODE) != 0 && face->num_charmaps > 0)
        FT_Set_Charmap(face, face->charmaps[0]);
    font->shaper_ = hb_ft_font_create_referenced(face);
    hb_ft_font_set_load_flags(font->shaper_, FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP);
    font->readMetrics();
    return font;
}

void Font::readMetrics()
{
    if (face_->family_name != nullptr) family_ = face_->family_name;
    bold_ = (face_->style_flags & FT_STYLE_FLAG_BOLD) != 0;
    italic_ = (face_->style_flags & FT_STYLE_FLAG_ITALIC) != 0;
    double const em = face_->units_per_EM;
    scale_ = em * 64;
    if (face_->ascender > face_->descender) {
        metrics_.ascender = face_->ascender / em;
        metrics_.descender = face_->descender / em;
        metrics_.lineHeight = metrics_.ascender - metrics_.descender;
        if (face_->height > 0) metrics_.lineHeight = std::max(face_->height / em, 0.5);
    }
    auto const* const os2 = static_cast<TT_OS2 const*>(FT_Get_Sfnt_Table(face_, FT_SFNT_OS2));
    if (os2 != nullptr && os2->version >= 2 && os2->sCapHeight > 0)
        metrics_.capHeight = os2->sCapHeight / em;
    else if (FT_Load_Char(face_, 'H', FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP) == 0 &&
             face_->glyph->metrics.horiBearingY > 0)
        metrics_.capHeight = double(face_->glyph->metrics.horiBearingY) / scale_;
    else
        metrics_.capHeight = metrics_.ascender * 0.78;
    if (face_->underline_thickness > 0) {
        metrics_.underline = face_->underline_position / em;
        metrics_.stroke = face_->underline_thickness / em;
    }
    metrics_.strike = os2 != nullptr && os2->version != 0xFFFF && os2->yStrikeoutPosition > 0
                          ? os2->yStrikeoutPosition / em
                          : metrics_.capHeight * 0.4;
}

bool Font::shows(char32_t character) const
{
    return face_ != nullptr && FT_Get_Char_Index(face_, character) != 0;
}

FlatMesh const& Font::mesh(std::uint32_t glyph, Weight weight, Detail detail)
{
    Key const key{glyph, weight, detail};
    auto const found = meshes_.find(key);
    return found != meshes_.end() ? found->second : meshes_.emplace(key, makeMesh(key)).first->second;
}

FlatMesh Font::makeMesh(Key const& key)
{
    if (key.glyph == boxGlyph) return box();
    if (face_ == nullptr || FT_Load_Glyph(face_, key.glyph, FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP) != 0 ||
        face_->glyph->format != FT_GLYPH_FORMAT_OUTLINE)
        return {};
    FT_Outline& outline = face_->glyph->outline;
    if (key.weight == Weight::Emboldened) {
        auto const strength = FT_Pos(scale_ / 24);
        FT_Outline_Embolden(&outline, strength);
        FT_Outline_Translate(&outline, 0, -strength / 2); // thicker on all sides, on the same baseline
    }
    Flattener flattener{{}, scale_, key.detail == Detail::Fine ? 1.0 / 4000 : 1.0 / 400};
    FT_Outline_Funcs const calls{
        &Flattener::move, &Flattener::line, &Flattener::conic, &Flattener::cubic, 0, 0};
    FlatMesh mesh;
    if (FT_Outline_Decompose(&outline, &calls, &flattener) == 0) filler().fill(flattener.contours, mesh);
    return mesh;
}

} // namespace HPS::render
