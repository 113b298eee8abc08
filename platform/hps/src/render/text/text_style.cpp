#include "text_style.h"

namespace HPS::render
{

TextStyle styleOf(TextAttributeData const& attributes)
{
    TextStyle style;
    style.font = {attributes.font->Str(), *attributes.bold, *attributes.italic};
    std::tie(style.alignment, style.frame, style.justification) = *attributes.alignment;
    style.overline = *attributes.overline;
    style.strikethrough = *attributes.strikethrough;
    style.underline = *attributes.underline;
    style.slant = *attributes.slant;
    style.lineSpacing = *attributes.lineSpacing;
    style.spacing = *attributes.spacing;
    float angle = 0;
    std::tie(style.rotation, angle) = *attributes.rotation;
    style.angle = angle;
    style.pathX = attributes.path->x;
    style.pathY = attributes.path->y;
    if (style.pathX == 0 && style.pathY == 0) style.pathX = 1;
    return style;
}

} // namespace HPS::render
