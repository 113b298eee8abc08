#pragma once
#include <hps/Color.h>
#include <hps/Kit.h>
#include <hps/enumerations.h>

namespace HPS
{

// Lines along which the parameter of a surface keeps one value.
struct ContourLineData {
    std::optional<bool> visibility;
    std::optional<std::tuple<ContourLine::Mode, std::vector<float>>> positions;
    std::optional<std::vector<RGBColor>> colors;
    std::optional<std::vector<UTF8>> patterns;
    std::optional<std::tuple<std::vector<float>, std::vector<Line::SizeUnits>>> weights;
    std::optional<bool> lighting;

    bool operator==(ContourLineData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{Aspect{1, "Visibility", &ContourLineData::visibility},
                          Aspect{2, "Positions", &ContourLineData::positions},
                          Aspect{3, "Colors", &ContourLineData::colors},
                          Aspect{4, "Patterns", &ContourLineData::patterns},
                          Aspect{5, "Weights", &ContourLineData::weights},
                          Aspect{6, "Lighting", &ContourLineData::lighting}};
    }
};
static_assert(CompleteKit<ContourLineData>);

template <class Self> class ContourLineOperations : public Operations<Self>
{
public:
    using Data = ContourLineData;

    HPS_ASPECT(Visibility, bool, visibility)
    // Repeating: at `offset`, and from there at every `interval`.
    Self& SetPositions(float interval, float offset = 0)
    {
        return detail::set<&Data::positions>(
            this->self(), std::tuple{ContourLine::Mode::Repeating, std::vector<float>{interval, offset}});
    }
    Self& SetPositions(std::vector<float> const& positions)
    {
        return detail::set<&Data::positions>(this->self(),
                                             std::tuple{ContourLine::Mode::Explicit, positions});
    }
    Self& UnsetPositions() { return detail::unset<&Data::positions>(this->self()); }
    // Interval and offset of repeating ones.
    bool ShowPositions(ContourLine::Mode& mode, std::vector<float>& positions) const
    {
        return detail::show<&Data::positions>(this->self(), mode, positions);
    }
    // One for each line, from the first again after the last; so for patterns and weights.
    HPS_ASPECT(Colors, std::vector<RGBColor>, colors)
    // By name.
    HPS_ASPECT(Patterns, std::vector<UTF8>, patterns)
    HPS_ASPECT_PARTS(Weights, weights,
                     (std::vector<float> const& weights, std::vector<Line::SizeUnits> const& units),
                     (std::vector<float> & weights, std::vector<Line::SizeUnits>& units), weights, units)
    // Whether the lines are lit as the surface is.
    HPS_ASPECT(Lighting, bool, lighting)
};

class ContourLineKit : public Kit<ContourLineKit, ContourLineOperations>
{
public:
    static ContourLineKit GetDefault();
};

class ContourLineControl : public Control<ContourLineControl, ContourLineOperations>
{
public:
    using Control::Control;
};

} // namespace HPS
