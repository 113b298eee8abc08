#include "portfolio_record.h"
#include "structure.h"
#include "subscriptions.h"
#include <hps/SegmentKey.h>

namespace HPS
{
using namespace scene;

namespace
{

std::span<KeyIndex const> pushedOn(Key const& key)
{
    auto const* const segment = store().resolve<SegmentRecord>(key);
    return segment && segment->extras ? std::span<KeyIndex const>(segment->extras->portfolios)
                                      : std::span<KeyIndex const>();
}

// Writes the palette's name if it differs; empty takes it away.
void setPalette(Key const& key, std::string const& name)
{
    auto* const segment = store().resolve<SegmentRecord>(key);
    if (!segment || (segment->extras ? segment->extras->materialPalette == name : name.empty())) return;
    segment->rare().materialPalette = name;
    noteChange(*segment, Change::Portfolio);
}

} // namespace

PortfolioControl& PortfolioControl::Push(PortfolioKey const& portfolio)
{
    auto* const segment = store().resolve<SegmentRecord>(segment_);
    if (!segment) return *this;
    if (portfolio.Empty()) return raiseError("Portfolio not pushed: there is no such portfolio"), *this;
    segment->rare().portfolios.push_back(portfolio.Index());
    noteChange(*segment, Change::Portfolio);
    return *this;
}

bool PortfolioControl::Pop()
{
    PortfolioKey portfolio;
    return Pop(portfolio);
}

bool PortfolioControl::Pop(PortfolioKey& portfolio)
{
    if (!ShowTop(portfolio)) return false;
    auto& segment = *store().resolve<SegmentRecord>(segment_);
    segment.extras->portfolios.pop_back();
    noteChange(segment, Change::Portfolio);
    return true;
}

bool PortfolioControl::ShowTop(PortfolioKey& portfolio) const
{
    auto const pushed = pushedOn(segment_);
    if (pushed.empty()) return false;
    portfolio = PortfolioKey(pushed.back());
    return true;
}

bool PortfolioControl::Show(PortfolioKeyArray& portfolios) const
{
    portfolios.clear();
    for (auto const index : pushedOn(segment_)) portfolios.emplace_back(index);
    return !portfolios.empty();
}

PortfolioControl& PortfolioControl::UnsetTop()
{
    Pop();
    return *this;
}

PortfolioControl& PortfolioControl::UnsetEverything()
{
    while (Pop()) continue;
    return *this;
}

std::size_t PortfolioControl::GetCount() const
{
    return pushedOn(segment_).size();
}

PortfolioControl& PortfolioControl::SetMaterialPalette(UTF8 const& name)
{
    setPalette(segment_, name.Str());
    return *this;
}

PortfolioControl& PortfolioControl::UnsetMaterialPalette()
{
    setPalette(segment_, {});
    return *this;
}

bool PortfolioControl::ShowMaterialPalette(UTF8& name) const
{
    auto const* const segment = store().resolve<SegmentRecord>(segment_);
    if (!segment || !segment->extras || segment->extras->materialPalette.empty()) return false;
    name = UTF8(segment->extras->materialPalette);
    return true;
}

SegmentKey& SegmentKey::SetMaterialPalette(UTF8 const& name)
{
    GetPortfolioControl().SetMaterialPalette(name);
    return *this;
}

SegmentKey& SegmentKey::UnsetMaterialPalette()
{
    GetPortfolioControl().UnsetMaterialPalette();
    return *this;
}

bool SegmentKey::ShowMaterialPalette(UTF8& name) const
{
    return GetPortfolioControl().ShowMaterialPalette(name);
}

} // namespace HPS
