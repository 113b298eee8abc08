#pragma once
#include <hps/Kit.h>
#include <hps/Vector.h>
#include <hps/enumerations.h>

namespace HPS
{

// How text is set.
struct TextAttributeData {
    std::optional<std::tuple<Text::Alignment, Text::ReferenceFrame, Text::Justification>> alignment;
    std::optional<bool> bold;
    std::optional<bool> italic;
    std::optional<bool> overline;
    std::optional<bool> strikethrough;
    std::optional<bool> underline;
    std::optional<float> slant;
    std::optional<float> lineSpacing;
    std::optional<std::tuple<Text::Rotation, float>> rotation;
    std::optional<std::tuple<bool, float, Text::SizeUnits>> extraSpace;
    std::optional<std::tuple<bool, float, Text::GreekingUnits, Text::GreekingMode>> greeking;
    std::optional<std::tuple<bool, float, Text::SizeToleranceUnits>> sizeTolerance;
    std::optional<std::tuple<float, Text::SizeUnits>> size;
    std::optional<UTF8> font;
    std::optional<Text::Transform> transform;
    std::optional<Text::Renderer> renderer;
    std::optional<std::tuple<float, Text::SizeUnits, Text::Preference, Text::Preference>> preference;
    std::optional<Vector> path;
    std::optional<float> spacing;
    std::optional<std::tuple<bool, UTF8>> background;
    std::optional<std::tuple<std::vector<float>, std::vector<Text::MarginUnits>>> backgroundMargins;
    std::optional<UTF8> backgroundStyle;

    bool operator==(TextAttributeData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{Aspect{1, "Alignment", &TextAttributeData::alignment},
                          Aspect{2, "Bold", &TextAttributeData::bold},
                          Aspect{3, "Italic", &TextAttributeData::italic},
                          Aspect{4, "Overline", &TextAttributeData::overline},
                          Aspect{5, "Strikethrough", &TextAttributeData::strikethrough},
                          Aspect{6, "Underline", &TextAttributeData::underline},
                          Aspect{7, "Slant", &TextAttributeData::slant},
                          Aspect{8, "LineSpacing", &TextAttributeData::lineSpacing},
                          Aspect{9, "Rotation", &TextAttributeData::rotation},
                          Aspect{10, "ExtraSpace", &TextAttributeData::extraSpace},
                          Aspect{11, "Greeking", &TextAttributeData::greeking},
                          Aspect{12, "SizeTolerance", &TextAttributeData::sizeTolerance},
                          Aspect{13, "Size", &TextAttributeData::size},
                          Aspect{14, "Font", &TextAttributeData::font},
                          Aspect{15, "Transform", &TextAttributeData::transform},
                          Aspect{16, "Renderer", &TextAttributeData::renderer},
                          Aspect{17, "Preference", &TextAttributeData::preference},
                          Aspect{18, "Path", &TextAttributeData::path},
                          Aspect{19, "Spacing", &TextAttributeData::spacing},
                          Aspect{20, "Background", &TextAttributeData::background},
                          Aspect{21, "BackgroundMargins", &TextAttributeData::backgroundMargins},
                          Aspect{22, "BackgroundStyle", &TextAttributeData::backgroundStyle}};
    }
};
static_assert(CompleteKit<TextAttributeData>);

template <class Self> class TextAttributeOperations : public Operations<Self>
{
public:
    using Data = TextAttributeData;

    // The place on the text that lies on its position.
    Self& SetAlignment(Text::Alignment alignment,
                       Text::ReferenceFrame frame = Text::ReferenceFrame::WorldAligned,
                       Text::Justification justification = Text::Justification::Left)
    {
        return detail::set<&Data::alignment>(this->self(), std::tuple{alignment, frame, justification});
    }
    Self& UnsetAlignment() { return detail::unset<&Data::alignment>(this->self()); }
    bool ShowAlignment(Text::Alignment& alignment, Text::ReferenceFrame& frame,
                       Text::Justification& justification) const
    {
        return detail::show<&Data::alignment>(this->self(), alignment, frame, justification);
    }
    HPS_ASPECT(Bold, bool, bold)
    HPS_ASPECT(Italic, bool, italic)
    HPS_ASPECT(Overline, bool, overline)
    HPS_ASPECT(Strikethrough, bool, strikethrough)
    HPS_ASPECT(Underline, bool, underline)
    // Degrees.
    HPS_ASPECT(Slant, float, slant)
    // Multiple of the font's own.
    HPS_ASPECT(LineSpacing, float, lineSpacing)
    // Degrees.
    Self& SetRotation(Text::Rotation rotation, float angle = 0)
    {
        return detail::set<&Data::rotation>(this->self(), std::tuple{rotation, angle});
    }
    Self& UnsetRotation() { return detail::unset<&Data::rotation>(this->self()); }
    bool ShowRotation(Text::Rotation& rotation, float& angle) const
    {
        return detail::show<&Data::rotation>(this->self(), rotation, angle);
    }
    Self& SetExtraSpace(bool state, float size = 0, Text::SizeUnits units = Text::SizeUnits::Points)
    {
        return detail::set<&Data::extraSpace>(this->self(), std::tuple{state, size, units});
    }
    Self& UnsetExtraSpace() { return detail::unset<&Data::extraSpace>(this->self()); }
    bool ShowExtraSpace(bool& state, float& size, Text::SizeUnits& units) const
    {
        return detail::show<&Data::extraSpace>(this->self(), state, size, units);
    }
    // What stands for a text smaller than a size.
    Self& SetGreeking(bool state, float size = 0, Text::GreekingUnits units = Text::GreekingUnits::Pixels,
                      Text::GreekingMode mode = Text::GreekingMode::Lines)
    {
        return detail::set<&Data::greeking>(this->self(), std::tuple{state, size, units, mode});
    }
    Self& UnsetGreeking() { return detail::unset<&Data::greeking>(this->self()); }
    bool ShowGreeking(bool& state, float& size, Text::GreekingUnits& units, Text::GreekingMode& mode) const
    {
        return detail::show<&Data::greeking>(this->self(), state, size, units, mode);
    }
    Self& SetSizeTolerance(bool state, float size = 0,
                           Text::SizeToleranceUnits units = Text::SizeToleranceUnits::Percent)
    {
        return detail::set<&Data::sizeTolerance>(this->self(), std::tuple{state, size, units});
    }
    Self& UnsetSizeTolerance() { return detail::unset<&Data::sizeTolerance>(this->self()); }
    bool ShowSizeTolerance(bool& state, float& size, Text::SizeToleranceUnits& units) const
    {
        return detail::show<&Data::sizeTolerance>(this->self(), state, size, units);
    }
    Self& SetSize(float size, Text::SizeUnits units = Text::SizeUnits::Points)
    {
        return detail::set<&Data::size>(this->self(), std::tuple{size, units});
    }
    Self& UnsetSize() { return detail::unset<&Data::size>(this->self()); }
    bool ShowSize(float& size, Text::SizeUnits& units) const
    {
        return detail::show<&Data::size>(this->self(), size, units);
    }
    // Name or file name, found in the font directories.
    HPS_ASPECT(Font, UTF8, font)
    HPS_ASPECT(Transform, Text::Transform, transform)
    HPS_ASPECT(Renderer, Text::Renderer, renderer)
    Self& SetPreference(float cutoff, Text::SizeUnits units, Text::Preference smaller,
                        Text::Preference larger)
    {
        return detail::set<&Data::preference>(this->self(), std::tuple{cutoff, units, smaller, larger});
    }
    Self& UnsetPreference() { return detail::unset<&Data::preference>(this->self()); }
    bool ShowPreference(float& cutoff, Text::SizeUnits& units, Text::Preference& smaller,
                        Text::Preference& larger) const
    {
        return detail::show<&Data::preference>(this->self(), cutoff, units, smaller, larger);
    }
    // The direction in which the letters follow each other.
    HPS_ASPECT(Path, Vector, path)
    // Multiple of the font's own.
    HPS_ASPECT(Spacing, float, spacing)
    Self& SetBackground(bool state, UTF8 const& name = {})
    {
        return detail::set<&Data::background>(this->self(), std::tuple{state, name});
    }
    Self& UnsetBackground() { return detail::unset<&Data::background>(this->self()); }
    bool ShowBackground(bool& state, UTF8& name) const
    {
        return detail::show<&Data::background>(this->self(), state, name);
    }
    Self& SetBackgroundMargins(std::vector<float> const& sizes, std::vector<Text::MarginUnits> const& units)
    {
        return detail::set<&Data::backgroundMargins>(this->self(), std::tuple{sizes, units});
    }
    Self& UnsetBackgroundMargins() { return detail::unset<&Data::backgroundMargins>(this->self()); }
    bool ShowBackgroundMargins(std::vector<float>& sizes, std::vector<Text::MarginUnits>& units) const
    {
        return detail::show<&Data::backgroundMargins>(this->self(), sizes, units);
    }
    HPS_ASPECT(BackgroundStyle, UTF8, backgroundStyle)
};

class TextAttributeKit : public Kit<TextAttributeKit, TextAttributeOperations>
{
public:
    static TextAttributeKit GetDefault();
};

class TextAttributeControl : public Control<TextAttributeControl, TextAttributeOperations>
{
public:
    using Control::Control;
};

} // namespace HPS
