// The filters of styles and includes, which work alike.
#include "structure.h"
#include <algorithm>

namespace HPS
{
using namespace scene;

namespace
{

using Filter = Store::Filter;

template <class R> constexpr Change changeOf =
    std::is_same_v<R, StyleRecord> ? Change::Styles : Change::Structure;

// Lets f edit the filter of a link, and tells those who depend on it.
template <class R, class F> void edit(Key const& key, F&& f)
{
    auto* const link = store().resolve<R>(key);
    if (!link) return;
    auto const* const old = store().filterOf(link->slot);
    Filter filter = old ? *old : Filter();
    f(filter);
    std::sort(filter.begin(), filter.end());
    filter.erase(std::unique(filter.begin(), filter.end()), filter.end());
    if (old ? *old == filter : filter.empty()) return;
    if (filter.empty())
        store().filters.erase(link->slot);
    else
        store().filters[link->slot] = std::move(filter);
    noteChange(*store().at<SegmentRecord>(link->owner), changeOf<R>);
}

template <class R> void add(Key const& key, Filter const& types)
{
    edit<R>(key, [&](Filter& filter) { filter.insert(filter.end(), types.begin(), types.end()); });
}

template <class R> void takeAway(Key const& key, Filter const& types)
{
    edit<R>(key, [&](Filter& filter) {
        std::erase_if(filter,
                      [&](auto type) { return std::find(types.begin(), types.end(), type) != types.end(); });
    });
}

template <class R> bool show(Key const& key, Filter& types)
{
    auto const* const link = store().resolve<R>(key);
    auto const* const filter = link ? store().filterOf(link->slot) : nullptr;
    types = filter ? *filter : Filter();
    return filter;
}

} // namespace

#define HPS_FILTER(Name)                                                                                     \
    Name##Key& Name##Key::SetFilter(Filter const& types)                                                     \
    {                                                                                                        \
        return add<Name##Record>(*this, types), *this;                                                       \
    }                                                                                                        \
    Name##Key& Name##Key::UnsetFilter(Filter const& types)                                                   \
    {                                                                                                        \
        return takeAway<Name##Record>(*this, types), *this;                                                  \
    }                                                                                                        \
    Name##Key& Name##Key::UnsetFilter()                                                                      \
    {                                                                                                        \
        return edit<Name##Record>(*this, [](Filter& filter) { filter.clear(); }), *this;                     \
    }                                                                                                        \
    bool Name##Key::ShowFilter(Filter& types) const                                                          \
    {                                                                                                        \
        return show<Name##Record>(*this, types);                                                             \
    }
HPS_FILTER(Include)
HPS_FILTER(Style)
#undef HPS_FILTER

} // namespace HPS
