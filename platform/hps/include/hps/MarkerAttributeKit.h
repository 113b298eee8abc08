#pragma once
#include <hps/Kit.h>
#include <hps/enumerations.h>

namespace HPS
{

// How markers and vertices are drawn.
struct MarkerAttributeData {
    std::optional<UTF8> symbol;
    std::optional<std::tuple<float, Marker::SizeUnits>> size;
    std::optional<Marker::DrawingPreference> drawingPreference;
    std::optional<float> glyphRotation;

    bool operator==(MarkerAttributeData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{Aspect{1, "Symbol", &MarkerAttributeData::symbol},
                          Aspect{2, "Size", &MarkerAttributeData::size},
                          Aspect{3, "DrawingPreference", &MarkerAttributeData::drawingPreference},
                          Aspect{4, "GlyphRotation", &MarkerAttributeData::glyphRotation}};
    }
};
static_assert(CompleteKit<MarkerAttributeData>);

template <class Self> class MarkerAttributeOperations : public Operations<Self>
{
public:
    using Data = MarkerAttributeData;

    // The name of a glyph.
    HPS_ASPECT(Symbol, UTF8, symbol)
    Self& SetSize(float size, Marker::SizeUnits units = Marker::SizeUnits::ScaleFactor)
    {
        return detail::set<&Data::size>(this->self(), std::tuple{size, units});
    }
    Self& UnsetSize() { return detail::unset<&Data::size>(this->self()); }
    bool ShowSize(float& size, Marker::SizeUnits& units) const
    {
        return detail::show<&Data::size>(this->self(), size, units);
    }
    HPS_ASPECT(DrawingPreference, Marker::DrawingPreference, drawingPreference)
    // Degrees.
    HPS_ASPECT(GlyphRotation, float, glyphRotation)
};

class MarkerAttributeKit : public Kit<MarkerAttributeKit, MarkerAttributeOperations>
{
public:
    static MarkerAttributeKit GetDefault();
};

class MarkerAttributeControl : public Control<MarkerAttributeControl, MarkerAttributeOperations>
{
public:
    using Control::Control;
};

} // namespace HPS
