#pragma once

#include <narmeta/Colour.h>
#include <narmeta/visu/Font.h>

#include <array>

namespace NarMetaVisu
{

/// One line of text, set in the x, y plane of its own matrix with the baseline starting at the origin.
class TextRep : public NarMeta::Coloured
{
public:
    explicit TextRep(std::wstring text = {}) : text_(std::move(text)) {}

    /// The text; fills origin, baseline direction and up direction (3 floats each) from the matrix.
    std::wstring GetTextString(float (&origin)[3], float (&baseline)[3], float (&up)[3]) const;
    std::wstring const& GetText() const { return text_; }

    void SetFont(Font font) { font_ = std::move(font); }
    bool GetFont(Font& font) const
    {
        if (font_) font = *font_;
        return font_.has_value();
    }

    /// 16 elements for row vectors, translation in 12 to 14.
    void SetTransform(std::array<float, 16> const& matrix) { matrix_ = matrix; }
    /// Fills 16 floats.
    void GetTransform(float* matrix) const;

private:
    std::wstring text_;
    std::optional<Font> font_;
    std::array<float, 16> matrix_{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
};

} // namespace NarMetaVisu
