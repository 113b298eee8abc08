#include "kit_operations.h"

namespace HPS
{

HPS_DEFINE_KIT(TextAttribute)

TextAttributeKit TextAttributeKit::GetDefault()
{
    TextAttributeKit kit;
    kit.SetAlignment(Text::Alignment::BottomLeft).SetBold(false).SetItalic(false).SetOverline(false);
    kit.SetStrikethrough(false).SetUnderline(false).SetSlant(0).SetLineSpacing(1).SetRotation(
        Text::Rotation::None);
    kit.SetExtraSpace(false).SetGreeking(false).SetSizeTolerance(false, 50);
    kit.SetSize(14, Text::SizeUnits::Points).SetFont(UTF8()).SetTransform(Text::Transform::NonTransformable);
    kit.SetRenderer(Text::Renderer::Default).SetPath(Vector::XAxis()).SetSpacing(1).SetBackground(false);
    kit.SetPreference(0, Text::SizeUnits::Points, Text::Preference::Default, Text::Preference::Default);
    return kit;
}

} // namespace HPS
