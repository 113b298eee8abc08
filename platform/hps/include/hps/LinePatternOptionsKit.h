#pragma once
#include <hps/Kit.h>
#include <hps/enumerations.h>

namespace HPS
{

// A cap or a join: one of the built-in shapes, or a glyph by name.
template <class Shape> struct CapOrJoin {
    LinePattern::Modifier modifier = LinePattern::Modifier::Enumerated;
    UTF8 glyph; // with Modifier::GlyphName
    Shape shape{};
    bool operator==(CapOrJoin const&) const = default;
};

// How the dashes of a line pattern begin, end and meet.
struct LinePatternOptionsData {
    std::optional<CapOrJoin<LinePattern::Cap>> startCap;
    std::optional<CapOrJoin<LinePattern::Cap>> endCap;
    std::optional<LinePattern::Cap> innerCap;
    std::optional<CapOrJoin<LinePattern::Join>> join;

    bool operator==(LinePatternOptionsData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{Aspect{1, "StartCap", &LinePatternOptionsData::startCap},
                          Aspect{2, "EndCap", &LinePatternOptionsData::endCap},
                          Aspect{3, "InnerCap", &LinePatternOptionsData::innerCap},
                          Aspect{4, "Join", &LinePatternOptionsData::join}};
    }
};
static_assert(CompleteKit<LinePatternOptionsData>);

template <class Self> class LinePatternOptionsOperations : public Operations<Self>
{
public:
    using Data = LinePatternOptionsData;

    Self& SetStartCap(UTF8 const& glyph) { return set<&Data::startCap>(glyph); }
    Self& SetStartCap(LinePattern::Cap cap) { return set<&Data::startCap>(cap); }
    Self& UnsetStartCap() { return detail::unset<&Data::startCap>(this->self()); }
    bool ShowStartCap(LinePattern::Modifier& modifier, UTF8& glyph, LinePattern::Cap& cap) const
    {
        return show<&Data::startCap>(modifier, glyph, cap);
    }
    Self& SetEndCap(UTF8 const& glyph) { return set<&Data::endCap>(glyph); }
    Self& SetEndCap(LinePattern::Cap cap) { return set<&Data::endCap>(cap); }
    Self& UnsetEndCap() { return detail::unset<&Data::endCap>(this->self()); }
    bool ShowEndCap(LinePattern::Modifier& modifier, UTF8& glyph, LinePattern::Cap& cap) const
    {
        return show<&Data::endCap>(modifier, glyph, cap);
    }
    HPS_ASPECT(InnerCap, LinePattern::Cap, innerCap)
    Self& SetJoin(UTF8 const& glyph) { return set<&Data::join>(glyph); }
    Self& SetJoin(LinePattern::Join join) { return set<&Data::join>(join); }
    Self& UnsetJoin() { return detail::unset<&Data::join>(this->self()); }
    bool ShowJoin(LinePattern::Modifier& modifier, UTF8& glyph, LinePattern::Join& join) const
    {
        return show<&Data::join>(modifier, glyph, join);
    }

private:
    template <auto Slot> Self& set(UTF8 const& glyph)
    {
        return detail::set<Slot>(this->self(), typename detail::MemberOf<decltype(Slot)>::Value{
                                                   LinePattern::Modifier::GlyphName, glyph, {}});
    }
    template <auto Slot, class Shape> Self& set(Shape shape)
    {
        return detail::set<Slot>(this->self(),
                                 CapOrJoin<Shape>{LinePattern::Modifier::Enumerated, UTF8(), shape});
    }
    template <auto Slot, class Shape>
    bool show(LinePattern::Modifier& modifier, UTF8& glyph, Shape& shape) const
    {
        CapOrJoin<Shape> value;
        if (!detail::show<Slot>(this->self(), value)) return false;
        modifier = value.modifier;
        (value.modifier == LinePattern::Modifier::GlyphName ? void(glyph = value.glyph)
                                                            : void(shape = value.shape));
        return true;
    }
};

class LinePatternOptionsKit : public Kit<LinePatternOptionsKit, LinePatternOptionsOperations>
{
};

} // namespace HPS
