#include <narmeta/visu/LineAttribute.h>

#include <iterator>

namespace NarMetaVisu
{

bool LineAttribute::GetLineStyle(VisuLineStyle& style) const
{
    if (style_) style = *style_;
    return style_.has_value();
}

bool LineAttribute::GetLineWeight(float& weight) const
{
    if (weight_) weight = *weight_;
    return weight_.has_value();
}

std::string LineAttribute::ToString(VisuLineStyle style)
{
    static constexpr char const* names[] = {"",
                                            "solid",
                                            "dashed",
                                            "dotted",
                                            "dash dot",
                                            "dash dot dot",
                                            "dash dot dot dot",
                                            "long dash",
                                            "long dash dot",
                                            "long dash dot dot"};
    auto const number = static_cast<std::size_t>(style);
    return number < std::size(names) ? names[number] : "";
}

std::string LineAttribute::ToString() const
{
    return ToString(style_.value_or(None));
}

} // namespace NarMetaVisu
