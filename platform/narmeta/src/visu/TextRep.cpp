#include <narmeta/visu/TextRep.h>

#include <algorithm>

namespace NarMetaVisu
{

std::wstring TextRep::GetTextString(float (&origin)[3], float (&baseline)[3], float (&up)[3]) const
{
    std::copy_n(matrix_.data() + 12, 3, origin);
    std::copy_n(matrix_.data(), 3, baseline);
    std::copy_n(matrix_.data() + 4, 3, up);
    return text_;
}

void TextRep::GetTransform(float* matrix) const
{
    std::copy(matrix_.begin(), matrix_.end(), matrix);
}

} // namespace NarMetaVisu
