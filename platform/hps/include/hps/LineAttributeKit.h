#pragma once
#include <hps/Kit.h>
#include <hps/LinePatternOptionsKit.h>
#include <hps/enumerations.h>

namespace HPS
{

// How lines are drawn.
struct LineAttributeData {
    std::optional<std::tuple<UTF8, LinePatternOptionsKit>> pattern;
    std::optional<std::tuple<float, Line::SizeUnits>> weight;

    bool operator==(LineAttributeData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{Aspect{1, "Pattern", &LineAttributeData::pattern},
                          Aspect{2, "Weight", &LineAttributeData::weight}};
    }
};
static_assert(CompleteKit<LineAttributeData>);

template <class Self> class LineAttributeOperations : public Operations<Self>
{
public:
    using Data = LineAttributeData;

    // The name of a line pattern, looked up in the portfolios of the path.
    Self& SetPattern(UTF8 const& name, LinePatternOptionsKit const& options = {})
    {
        return detail::set<&Data::pattern>(this->self(), std::tuple{name, options});
    }
    Self& UnsetPattern() { return detail::unset<&Data::pattern>(this->self()); }
    bool ShowPattern(UTF8& name, LinePatternOptionsKit& options) const
    {
        return detail::show<&Data::pattern>(this->self(), name, options);
    }
    bool ShowPattern(UTF8& name) const
    {
        LinePatternOptionsKit options;
        return ShowPattern(name, options);
    }
    // Thickness; ScaleFactor counts in pixels of a standard screen.
    Self& SetWeight(float weight, Line::SizeUnits units = Line::SizeUnits::ScaleFactor)
    {
        return detail::set<&Data::weight>(this->self(), std::tuple{weight, units});
    }
    Self& UnsetWeight() { return detail::unset<&Data::weight>(this->self()); }
    bool ShowWeight(float& weight, Line::SizeUnits& units) const
    {
        return detail::show<&Data::weight>(this->self(), weight, units);
    }
};

class LineAttributeKit : public Kit<LineAttributeKit, LineAttributeOperations>
{
public:
    static LineAttributeKit GetDefault();
};

class LineAttributeControl : public Control<LineAttributeControl, LineAttributeOperations>
{
public:
    using Control::Control;
};

} // namespace HPS
