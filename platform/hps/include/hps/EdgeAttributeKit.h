#pragma once
#include <hps/Kit.h>
#include <hps/enumerations.h>

namespace HPS
{

// How the edges of faces are drawn.
struct EdgeAttributeData {
    std::optional<UTF8> pattern;
    std::optional<std::tuple<float, Edge::SizeUnits>> weight;
    std::optional<float> hardAngle;

    bool operator==(EdgeAttributeData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{Aspect{1, "Pattern", &EdgeAttributeData::pattern},
                          Aspect{2, "Weight", &EdgeAttributeData::weight},
                          Aspect{3, "HardAngle", &EdgeAttributeData::hardAngle}};
    }
};
static_assert(CompleteKit<EdgeAttributeData>);

template <class Self> class EdgeAttributeOperations : public Operations<Self>
{
public:
    using Data = EdgeAttributeData;

    // The name of a line pattern, looked up in the portfolios of the path.
    HPS_ASPECT(Pattern, UTF8, pattern)
    Self& SetWeight(float weight, Edge::SizeUnits units = Edge::SizeUnits::ScaleFactor)
    {
        return detail::set<&Data::weight>(this->self(), std::tuple{weight, units});
    }
    Self& UnsetWeight() { return detail::unset<&Data::weight>(this->self()); }
    bool ShowWeight(float& weight, Edge::SizeUnits& units) const
    {
        return detail::show<&Data::weight>(this->self(), weight, units);
    }
    // Edges whose faces differ by more than this angle, in degrees, count as hard.
    HPS_ASPECT(HardAngle, float, hardAngle)
};

class EdgeAttributeKit : public Kit<EdgeAttributeKit, EdgeAttributeOperations>
{
public:
    static EdgeAttributeKit GetDefault();
};

class EdgeAttributeControl : public Control<EdgeAttributeControl, EdgeAttributeOperations>
{
public:
    using Control::Control;
};

} // namespace HPS
