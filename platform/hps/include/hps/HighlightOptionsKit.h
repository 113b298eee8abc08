#pragma once
#include <hps/Kit.h>
#include <hps/enumerations.h>

namespace HPS
{

// How a path is highlighted.
struct HighlightOptionsData {
    std::optional<UTF8> styleName;
    std::optional<UTF8> secondaryStyleName;
    std::optional<Drawing::Overlay> overlay;

    bool operator==(HighlightOptionsData const&) const = default;

    static constexpr auto aspects()
    {
        return std::tuple{Aspect{1, "StyleName", &HighlightOptionsData::styleName},
                          Aspect{2, "SecondaryStyleName", &HighlightOptionsData::secondaryStyleName},
                          Aspect{3, "Overlay", &HighlightOptionsData::overlay}};
    }
};
static_assert(CompleteKit<HighlightOptionsData>);

template <class Self> class HighlightOptionsOperations : public Operations<Self>
{
public:
    using Data = HighlightOptionsData;

    // A named style of the portfolios on the path. It wins over all that is set on what is highlighted and
    // below, but for what is locked there.
    HPS_ASPECT(StyleName, UTF8, styleName)
    // One more, which gives what the first one does not set.
    HPS_ASPECT(SecondaryStyleName, UTF8, secondaryStyleName)
    // Whether what is highlighted shows through what stands before it.
    HPS_ASPECT(Overlay, Drawing::Overlay, overlay)
};

class HighlightOptionsKit : public Kit<HighlightOptionsKit, HighlightOptionsOperations>
{
public:
    // Without a style: what is highlighted shows in a colour of the library's own.
    static HighlightOptionsKit GetDefault()
    {
        HighlightOptionsKit kit;
        kit.SetOverlay(Drawing::Overlay::None);
        return kit;
    }
};

} // namespace HPS
