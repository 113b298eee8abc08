#include "portfolio_record.h"
#include "store.h"

namespace HPS::scene
{
namespace
{

template <class Map> typename Map::mapped_type const* find(std::span<KeyIndex const> portfolios,
                                                           std::string_view name, Map PortfolioRecord::*map)
{
    for (auto at = portfolios.size(); at-- > 0;) {
        auto const* const portfolio = store().resolve<PortfolioRecord>(portfolios[at]);
        if (!portfolio) continue;
        auto const found = (portfolio->*map).find(name);
        if (found != (portfolio->*map).end()) return &found->second;
    }
    return nullptr;
}

} // namespace

SegmentRecord const* findStyle(std::span<KeyIndex const> portfolios, std::string_view name)
{
    auto const* const source = find(portfolios, name, &PortfolioRecord::styles);
    return source ? store().resolve<SegmentRecord>(*source) : nullptr;
}

LinePatternKit const* findLinePattern(std::span<KeyIndex const> portfolios, std::string_view name)
{
    return find(portfolios, name, &PortfolioRecord::linePatterns);
}

Palette findPalette(std::span<KeyIndex const> portfolios, std::string_view name)
{
    auto const* const palette = find(portfolios, name, &PortfolioRecord::palettes);
    return palette ? *palette : nullptr;
}

} // namespace HPS::scene
