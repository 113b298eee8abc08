#include "shaping.h"
#include <algorithm>
#include <fribidi.h>
#include <hb.h>

namespace HPS::render
{
namespace
{

/// Characters that shaping takes together.
struct Run {
    std::size_t from, to;
    Font* font; ///< null: no font shows them
    hb_script_t script;
    FriBidiLevel level;
};

bool isMark(hb_unicode_general_category_t category)
{
    return category == HB_UNICODE_GENERAL_CATEGORY_NON_SPACING_MARK ||
           category == HB_UNICODE_GENERAL_CATEGORY_ENCLOSING_MARK ||
           category == HB_UNICODE_GENERAL_CATEGORY_SPACING_MARK ||
           category == HB_UNICODE_GENERAL_CATEGORY_FORMAT || category == HB_UNICODE_GENERAL_CATEGORY_CONTROL;
}

bool isPlain(std::u32string_view line)
{
    return std::all_of(line.begin(), line.end(), [](char32_t c) { return c >= 0x20 && c < 0x7F; });
}

std::vector<FriBidiLevel> levelsOf(std::u32string_view line)
{
    auto const length = FriBidiStrIndex(line.size());
    std::vector<FriBidiLevel> levels(line.size(), 0);
    auto const* const text = reinterpret_cast<FriBidiChar const*>(line.data());
    std::vector<FriBidiCharType> types(line.size());
    fribidi_get_bidi_types(text, length, types.data());
    std::vector<FriBidiBracketType> brackets(line.size());
    fribidi_get_bracket_types(text, length, types.data(), brackets.data());
    FriBidiParType direction = FRIBIDI_PAR_ON;
    if (fribidi_get_par_embedding_levels_ex(types.data(), brackets.data(), length, &direction,
                                            levels.data()) == 0)
        std::fill(levels.begin(), levels.end(), FriBidiLevel(0));
    return levels;
}

std::vector<Run> runsOf(std::u32string_view line, Font& font)
{
    std::vector<Run> runs;
    if (isPlain(line) && font.shows('A')) {
        bool const all = std::all_of(line.begin(), line.end(), [&](char32_t c) { return font.shows(c); });
        if (all) return {{0, line.size(), &font, HB_SCRIPT_LATIN, 0}};
    }
    std::vector<FriBidiLevel> const levels = levelsOf(line);
    hb_unicode_funcs_t* const unicode = hb_unicode_funcs_get_default();
    FontLibrary& library = FontLibrary::instance();
    for (std::size_t i = 0; i < line.size(); ++i) {
        char32_t const c = line[i];
        hb_script_t script = hb_unicode_script(unicode, c);
        bool const anyScript = script == HB_SCRIPT_COMMON || script == HB_SCRIPT_INHERITED;
        if (anyScript) script = runs.empty() ? HB_SCRIPT_COMMON : runs.back().script;
        bool const follows = !runs.empty() && isMark(hb_unicode_general_category(unicode, c)) &&
                             (runs.back().font == nullptr || !font.shows(c));
        Font* const own = follows ? runs.back().font : library.fontFor(c, font);
        if (!runs.empty()) {
            Run& last = runs.back();
            if (last.script == HB_SCRIPT_COMMON && own == last.font && levels[i] == last.level)
                last.script = script;
            if (last.font == own && last.level == levels[i] && last.script == script) {
                last.to = i + 1;
                continue;
            }
        }
        runs.push_back({i, i + 1, own, script, levels[i]});
    }
    return runs;
}

/// From the order of writing to that of sight: every stretch of a level and above turns round, the highest
/// levels first.
void orderBySight(std::vector<Run>& runs)
{
    FriBidiLevel highest = 0;
    for (Run const& run : runs) highest = std::max(highest, run.level);
    for (FriBidiLevel level = highest; level >= 1; --level)
        for (auto first = runs.begin(); first != runs.end();) {
            first = std::find_if(first, runs.end(), [&](Run const& r) { return r.level >= level; });
            auto const last = std::find_if(first, runs.end(), [&](Run const& r) { return r.level < level; });
            std::reverse(first, last);
            first = last;
        }
}

void addBoxes(Run const& run, std::vector<ShapedGlyph>& out, Font& font)
{
    for (std::size_t i = run.from; i < run.to; ++i)
        out.push_back({&font, Font::boxGlyph, 0, 0, Font::boxAdvance, true});
}

hb_buffer_t* workBuffer()
{
    static hb_buffer_t* const buffer = hb_buffer_create();
    return buffer;
}

void addRun(std::u32string_view line, Run const& run, std::vector<ShapedGlyph>& out)
{
    hb_buffer_t* const buffer = workBuffer();
    hb_buffer_clear_contents(buffer);
    hb_buffer_add_utf32(buffer, reinterpret_cast<std::uint32_t const*>(line.data()), int(line.size()),
                        unsigned(run.from), int(run.to - run.from));
    hb_buffer_set_direction(buffer, run.level % 2 != 0 ? HB_DIRECTION_RTL : HB_DIRECTION_LTR);
    hb_buffer_set_script(buffer, run.script);
    hb_buffer_set_language(buffer, hb_language_get_default());
    hb_shape(run.font->shaper(), buffer, nullptr, 0);
    unsigned count = 0;
    hb_glyph_info_t const* const infos = hb_buffer_get_glyph_infos(buffer, &count);
    hb_glyph_position_t const* const positions = hb_buffer_get_glyph_positions(buffer, &count);
    double const scale = 1 / run.font->shaperScale();
    for (unsigned i = 0; i < count; ++i) {
        bool const ends = i + 1 == count || infos[i + 1].cluster != infos[i].cluster;
        out.push_back({run.font, infos[i].codepoint, positions[i].x_offset * scale,
                       positions[i].y_offset * scale, positions[i].x_advance * scale, ends});
    }
}

char32_t nextCharacter(std::string_view utf8, std::size_t& at)
{
    auto const lead = static_cast<unsigned char>(utf8[at++]);
    if (lead < 0x80) return lead;
    int const more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
    char32_t c = lead & (0x3Fu >> more);
    for (int i = 0; i < more; ++i) {
        if (at >= utf8.size() || (static_cast<unsigned char>(utf8[at]) & 0xC0) != 0x80) return 0xFFFD;
        c = c << 6 | (static_cast<unsigned char>(utf8[at++]) & 0x3F);
    }
    return c;
}

} // namespace

std::vector<std::u32string> linesOf(std::string_view utf8)
{
    std::vector<std::u32string> lines(1);
    for (std::size_t at = 0; at < utf8.size();) {
        char32_t const c = nextCharacter(utf8, at);
        bool const pair = c == '\r' && at < utf8.size() && utf8[at] == '\n';
        if (pair) ++at;
        if (c == '\n' || c == '\r' || c == 0x2028 || c == 0x2029)
            lines.emplace_back();
        else if (c == '\t')
            lines.back().append(4, U' ');
        else
            lines.back().push_back(c);
    }
    return lines;
}

std::vector<ShapedGlyph> shape(std::u32string_view line, Font& font)
{
    std::vector<ShapedGlyph> glyphs;
    glyphs.reserve(line.size());
    std::vector<Run> runs = runsOf(line, font);
    orderBySight(runs);
    for (Run const& run : runs)
        if (run.font == nullptr)
            addBoxes(run, glyphs, font);
        else
            addRun(line, run, glyphs);
    return glyphs;
}

} // namespace HPS::render
