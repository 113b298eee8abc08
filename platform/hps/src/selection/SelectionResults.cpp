#include <algorithm>
#include <hps/SelectionResults.h>
#include <unordered_map>

namespace HPS
{
namespace
{

// Items by their paths: whole models may be selected, so that nobody may compare each with each.
class Places
{
public:
    explicit Places(std::vector<SelectionItem> const& items) : items_(items)
    {
        for (std::size_t i = 0; i < items.size(); ++i) places_.emplace(hashOf(items[i]), i);
    }
    std::optional<std::size_t> find(SelectionItem const& item) const
    {
        auto const [begin, end] = places_.equal_range(hashOf(item));
        for (auto i = begin; i != end; ++i)
            if (items_[i->second] == item) return i->second;
        return std::nullopt;
    }

private:
    static std::size_t hashOf(SelectionItem const& item)
    {
        KeyPath path;
        item.ShowPath(path);
        std::size_t hash = path.Size();
        for (Key const& key : path)
            hash = (hash ^ key.Index().slot) * 0x9E3779B97F4A7C15u ^ key.Index().generation;
        return hash;
    }
    std::vector<SelectionItem> const& items_;
    std::unordered_multimap<std::size_t, std::size_t> places_;
};

template <class T> void join(std::vector<T>& into, std::vector<T> const& more)
{
    for (T const& part : more)
        if (std::find(into.begin(), into.end(), part) == into.end()) into.push_back(part);
}

} // namespace

SelectionResults& SelectionResults::Reset()
{
    items_.clear();
    return *this;
}

SelectionResults& SelectionResults::Union(SelectionResults const& other)
{
    std::vector<SelectionItem> added;
    Places const places(items_);
    for (SelectionItem const& item : other.items_) {
        auto const same = places.find(item);
        if (!same) {
            added.push_back(item);
            continue;
        }
        SelectionParts& parts = items_[*same].parts_;
        join(parts.faces, item.parts_.faces);
        join(parts.edges, item.parts_.edges);
        join(parts.vertices, item.parts_.vertices);
    }
    items_.insert(items_.end(), added.begin(), added.end());
    return *this;
}

SelectionResults& SelectionResults::Intersect(SelectionResults const& other)
{
    Places const places(other.items_);
    std::erase_if(items_, [&](SelectionItem const& item) { return !places.find(item); });
    return *this;
}

SelectionResults& SelectionResults::Difference(SelectionResults const& other)
{
    if (&other == this) return Reset();
    Places const places(other.items_);
    std::erase_if(items_, [&](SelectionItem const& item) { return places.find(item).has_value(); });
    return *this;
}

bool SelectionResults::Contains(SelectionItem const& item) const
{
    return std::find(items_.begin(), items_.end(), item) != items_.end();
}

} // namespace HPS
