// PMI representations: texts, edges and a mesh below one tagged segment.

#include "ZELRenderer.h"

#include "model_color.h"
#include "text.h"

#include <algorithm>
#include <string_view>

namespace ZelVizBase
{

using NarMetaVisu::Font;
using NarMetaVisu::Node;
using NarMetaVisu::PmiRep;
using NarMetaVisu::TextRep;

namespace
{

constexpr float defaultTextSize = 3.5F; // world units

/// The name has a stem, and either no dot or a font file's ending behind its first one.
bool isUsableFontName(std::wstring_view name)
{
    static constexpr std::wstring_view endings[] = {L"ttf", L"TTF", L"otf", L"OTF", L"ttc",
                                                    L"TTC", L"pfb", L"PFB", L"pfm", L"PFM"};
    size_t const dot = name.find(L'.');
    if (name.empty() || dot == 0) return false;
    if (dot == std::wstring_view::npos) return true;
    return std::find(std::begin(endings), std::end(endings), name.substr(dot + 1)) != std::end(endings);
}

/// A font file that has the text's character.
char const* fallbackFont(std::wstring_view text)
{
    struct SymbolFont {
        wchar_t Symbol;
        char const* File;
    };
    static constexpr SymbolFont symbolFonts[] = {{L'\u2293', "SEGUISYM.ttf"},
                                                 {L'\u25FA', "SEGUISYM.ttf"},
                                                 {L'\u2A4B', "SEGUISYM.ttf"},
                                                 {L'\u2322', "ARIALUNI.ttf"},
                                                 {L'\u2323', "ARIALUNI.ttf"}};
    if (text.size() == 1) {
        for (SymbolFont const& font : symbolFonts) {
            if (text.front() == font.Symbol) return font.File;
        }
    }
    return "MRISO1.otf";
}

} // namespace

void ZELRenderer::prepareFontName(std::wstring const& text, std::wstring const& fontName,
                                  HPS::UTF8& name) const
{
    name = isUsableFontName(fontName) ? HPS::UTF8(narrow(fontName)) : HPS::UTF8(fallbackFont(text));
}

void ZELRenderer::insert(HPS::SegmentKey& segment, std::shared_ptr<Node> const& node,
                         std::shared_ptr<PmiRep> const& pmi)
{
    if (segment.Type() == HPS::Type::None || !pmi->HasData()) return;
    size_t index = 0;
    for (std::shared_ptr<TextRep> const& text : pmi->GetStrings()) {
        HPS::SegmentKey target = segment.Subsegment(("Txt_" + std::to_string(index++)).c_str(), true);
        insert(target, node, text);
    }
    insertEdges(segment, node, pmi->GetEdges());
    if (pmi->GetMesh()) {
        HPS::SegmentKey target = segment.Subsegment("Msh_0", true);
        insert(target, node, pmi->GetMesh());
    }
}

void ZELRenderer::insert(HPS::SegmentKey& segment, std::shared_ptr<Node> const&,
                         std::shared_ptr<TextRep> const& text)
{
    float origin[3] = {};
    float baseline[3] = {};
    float up[3] = {};
    std::wstring const characters = text->GetTextString(origin, baseline, up);
    Font font;
    if (!text->GetFont(font)) font = {};
    HPS::UTF8 fontName;
    prepareFontName(characters, font.Name, fontName);

    ModelColor color;
    color.ReadRgb(*text);
    color.ReadAlpha(*text);
    HPS::RGBAColor ink = color.HasRgb ? color.Opaque() : HPS::RGBAColor::Black();
    if (color.HasAlpha) ink.alpha = ModelColor::Unit(color.Alpha);

    HPS::TextKit kit;
    kit.SetText(HPS::UTF8(characters));
    kit.SetPosition(HPS::Point(0, 0, 0)); // the place is in the segment's matrix
    kit.SetAlignment(HPS::Text::Alignment::BottomLeft, HPS::Text::ReferenceFrame::WorldAligned,
                     HPS::Text::Justification::Left);
    kit.SetFont(fontName);
    kit.SetSize(font.Size.value_or(defaultTextSize), HPS::Text::SizeUnits::WorldSpace);
    if (font.Spacing.value_or(1.0F) != 1.0F) kit.SetSpacing(*font.Spacing);
    kit.SetColor(ink);
    segment.InsertText(kit);

    float elements[16] = {};
    text->GetTransform(elements);
    HPS::MatrixKit matrix(elements);
    if (font.HorizontalScale.value_or(1.0F) != 1.0F) matrix.Scale(*font.HorizontalScale, 1.0, 1.0);
    segment.SetModellingMatrix(matrix);
}

} // namespace ZelVizBase
