#include "highlights.h"
#include <algorithm>
#include <hps/WindowKey.h>

namespace HPS::scene
{
namespace
{

// Of the windows that ever had one. A window is not told when it goes: its entry is left to the next search
// for room.
std::map<KeyIndex, Highlights>& allHighlights()
{
    static auto& all = *new std::map<KeyIndex, Highlights>; // as the store, never destroyed
    return all;
}

Highlights* editableHighlights(KeyIndex window)
{
    if (!store().resolve<WindowRecord>(window)) return nullptr;
    auto& all = allHighlights();
    if (auto const found = all.find(window); found != all.end()) return &found->second;
    std::erase_if(all, [](auto const& entry) { return !store().resolve<WindowRecord>(entry.first); });
    return &all[window];
}

std::vector<KeyIndex> rootFirst(std::span<Key const> leafFirst)
{
    std::vector<KeyIndex> path;
    for (auto at = leafFirst.size(); at-- > 0;)
        if (path.empty() || !(path.back() == leafFirst[at].Index())) path.push_back(leafFirst[at].Index());
    return path;
}

std::size_t hashOf(std::vector<KeyIndex> const& path)
{
    std::size_t hash = path.size();
    for (auto const& key : path) {
        hash = (hash ^ key.slot ^ (std::size_t(key.generation) << 32)) * 0x9E3779B97F4A7C15u;
        hash ^= hash >> 29;
    }
    return hash;
}

bool isOf(Highlight const& highlight, std::vector<KeyIndex> const& path, std::size_t hash)
{
    return highlight.pathHash == hash && highlight.path == path;
}

bool lives(std::vector<KeyIndex> const& path)
{
    return std::all_of(path.begin(), path.end(), [](KeyIndex key) { return store().resolve(key); });
}

// Whether `options` has everything that is set in `wanted`.
bool agrees(HighlightOptionsData const& options, HighlightOptionsData const& wanted)
{
    bool all = true;
    forEachAspect<HighlightOptionsData>([&](auto const& aspect) {
        auto const& value = aspect.get(wanted);
        all = all && (!value || value == aspect.get(options));
    });
    return all;
}

template <class F> void eraseIf(KeyIndex window, F&& f)
{
    if (auto* const highlights = editableHighlights(window); highlights && std::erase_if(*highlights, f) != 0)
        store().changes.mark(window.slot, Change::Highlight);
}

// What a highlight without a style looks like.
std::span<KitPointer const> ownLook()
{
    static auto const& look = *new std::vector<KitPointer>([] {
        RGBAColor const color(1, 0.55f, 0, 1);
        MaterialMappingKit material;
        material.SetFaceColor(color).SetEdgeColor(color).SetVertexColor(color);
        material.SetLineColor(color).SetMarkerColor(color).SetTextColor(color);
        return std::vector<KitPointer>{
            std::make_shared<KitBlockOf<MaterialMappingData> const>(material.data())};
    }());
    return look;
}

} // namespace

Highlights const& highlightsOf(KeyIndex window)
{
    static Highlights const none;
    auto const found = allHighlights().find(window);
    return found == allHighlights().end() || !store().resolve<WindowRecord>(window) ? none : found->second;
}

bool isHighlighted(KeyIndex window, std::span<Key const> leafFirst)
{
    auto const path = rootFirst(leafFirst);
    auto const hash = hashOf(path);
    auto const& all = highlightsOf(window);
    return std::any_of(all.begin(), all.end(),
                       [&](Highlight const& highlight) { return isOf(highlight, path, hash); });
}

HighlightWalk::HighlightWalk(Highlights const& highlights) : nodes_(1), places_(1)
{
    places_[0].reached = {0};
    known_.emplace(places_[0].reached, 0);
    for (std::uint32_t i = 0; i < highlights.size(); ++i) {
        if (!lives(highlights[i].path)) continue;
        std::uint32_t node = 0;
        for (auto const& key : highlights[i].path) {
            auto const [next, isNew] =
                nodes_[node].next.try_emplace(key.slot, static_cast<std::uint32_t>(nodes_.size()));
            node = next->second;
            if (isNew) nodes_.emplace_back();
            if (key.slot >= mentioned_.size()) mentioned_.resize(key.slot + 1);
            mentioned_[key.slot] = true;
        }
        nodes_[node].ending.push_back(i);
    }
}

HighlightWalk::Place HighlightWalk::find(Place above, SlotIndex below)
{
    auto reached = places_[above].reached;
    for (auto const node : places_[above].reached)
        if (auto const next = nodes_[node].next.find(below); next != nodes_[node].next.end())
            reached.push_back(next->second);
    if (reached.size() == places_[above].reached.size()) return above;
    std::sort(reached.begin(), reached.end());
    reached.erase(std::unique(reached.begin(), reached.end()), reached.end());

    auto const [place, isNew] = known_.try_emplace(reached, static_cast<Place>(places_.size()));
    if (isNew) {
        PlaceEntry entry;
        for (auto const node : reached)
            entry.holding.insert(entry.holding.end(), nodes_[node].ending.begin(), nodes_[node].ending.end());
        std::sort(entry.holding.begin(), entry.holding.end());
        entry.reached = std::move(reached);
        places_.push_back(std::move(entry));
    }
    return place->second;
}

NetStatePointer highlighted(NetFold& fold, NetStatePointer state, Highlights const& highlights,
                            std::span<std::uint32_t const> holding)
{
    for (auto const number : holding) {
        auto const& options = highlights[number].options;
        bool styled = false;
        for (auto const* const name : {&options.secondaryStyleName, &options.styleName})
            if (auto const* const source = *name ? findStyle(state->portfolios, (*name)->Str()) : nullptr) {
                state = fold.overlay(state, *source);
                styled = true;
            }
        if (!styled) state = fold.overlay(state, ownLook());
    }
    return state;
}

} // namespace HPS::scene

namespace HPS
{
using namespace scene;

HighlightControl& HighlightControl::Highlight(KeyPathArray const& paths, HighlightOptionsKit const& options,
                                              bool removeExisting)
{
    auto* const highlights = editableHighlights(window_.Index());
    if (!highlights) return *this;
    Highlights added;
    for (auto const& keyPath : paths) {
        auto path = rootFirst(keyPath.Keys());
        if (path.empty() || !lives(path)) continue;
        auto const hash = hashOf(path);
        added.push_back({std::move(path), options.data(), hash});
    }
    if (added.empty()) return *this;

    auto const byHash = [](auto const& a, auto const& b) { return a.pathHash < b.pathHash; };
    std::sort(added.begin(), added.end(), byHash);
    std::erase_if(*highlights, [&](auto const& old) {
        if (removeExisting || !lives(old.path)) return true;
        auto const [first, last] = std::equal_range(added.begin(), added.end(), old, byHash);
        return old.options == options.data() &&
               std::any_of(first, last, [&](auto const& same) { return same.path == old.path; });
    });
    for (auto& highlight : added)
        if (highlights->empty() || !isOf(highlights->back(), highlight.path, highlight.pathHash) ||
            !(highlights->back().options == highlight.options))
            highlights->push_back(std::move(highlight));
    store().changes.mark(window_.Index().slot, Change::Highlight);
    return *this;
}

HighlightControl& HighlightControl::Unhighlight(KeyPathArray const& paths, HighlightOptionsKit const& options)
{
    for (auto const& keyPath : paths) {
        auto const path = rootFirst(keyPath.Keys());
        auto const hash = hashOf(path);
        eraseIf(window_.Index(), [&](auto const& highlight) {
            return isOf(highlight, path, hash) && agrees(highlight.options, options.data());
        });
    }
    return *this;
}

HighlightControl& HighlightControl::Unhighlight(HighlightOptionsKit const& options)
{
    eraseIf(window_.Index(),
            [&](auto const& highlight) { return agrees(highlight.options, options.data()); });
    return *this;
}

HighlightControl& HighlightControl::UnhighlightEverything()
{
    return Unhighlight(HighlightOptionsKit());
}

bool HighlightControl::ShowHighlight(KeyPath const& path, std::vector<HighlightOptionsKit>& options) const
{
    options.clear();
    auto const& highlights = highlightsOf(window_.Index());
    auto const keys = rootFirst(path.Keys());
    if (highlights.empty() || !lives(keys)) return false;
    HighlightWalk walk(highlights);
    auto place = walk.root();
    for (auto const& key : keys) place = walk.step(place, key.slot);
    for (auto const number : walk.at(place)) {
        options.emplace_back();
        options.back().edit([&](HighlightOptionsData& data) { data = highlights[number].options; });
    }
    return !options.empty();
}

bool HighlightControl::ShowHighlightedPaths(KeyPathArray& paths) const
{
    paths.clear();
    for (auto const& highlight : highlightsOf(window_.Index())) {
        if (!lives(highlight.path)) continue;
        KeyArray keys;
        for (auto at = highlight.path.size(); at-- > 0;) keys.emplace_back(highlight.path[at]);
        paths.emplace_back(std::move(keys));
    }
    return !paths.empty();
}

} // namespace HPS
