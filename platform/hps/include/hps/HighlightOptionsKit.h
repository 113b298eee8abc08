#pragma once
#include <hps/Kit.h>

namespace HPS
{

// How a path is highlighted.
struct HighlightOptionsData {
    std::optional<UTF8> styleName;

    bool operator==(HighlightOptionsData const&) const = default;

    static constexpr auto aspects()
    {
        return std::tuple{Aspect{1, "StyleName", &HighlightOptionsData::styleName}};
    }
};
static_assert(CompleteKit<HighlightOptionsData>);

template <class Self> class HighlightOptionsOperations : public Operations<Self>
{
public:
    using Data = HighlightOptionsData;

    // A named style of the portfolios on the path.
    HPS_ASPECT(StyleName, UTF8, styleName)
};

class HighlightOptionsKit : public Kit<HighlightOptionsKit, HighlightOptionsOperations>
{
};

} // namespace HPS
