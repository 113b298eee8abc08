// What is highlighted on a window and how: for those who draw it or list it. Every change leaves a mark
// Change::Highlight on the window's slot.
#pragma once
#include "net_attributes.h"
#include <hps/HighlightOptionsKit.h>
#include <map>

namespace HPS::scene
{

struct Highlight {
    std::vector<KeyIndex> path; // from the root's end down to what is highlighted, no key twice in a row
    HighlightOptionsData options;
    std::size_t pathHash;
};

// The highlights of one window, the topmost last. Some may name what is gone; those hold nowhere.
using Highlights = std::vector<Highlight>;

// Empty for what is no window. Valid until the next write.
Highlights const& highlightsOf(KeyIndex window);

// True if one of the highlights is of this very path, given as a key path is: the leaf first.
bool isHighlighted(KeyIndex window, std::span<Key const> leafFirst);

// Follows highlights down a scene. A place stands for all that matters about the way to it, so that where
// nothing is highlighted all of the scene is one place. Made once for a walk; the scene stays as it is
// meanwhile.
class HighlightWalk
{
public:
    using Place = std::uint32_t;
    explicit HighlightWalk(Highlights const& highlights);

    Place root() const { return 0; }
    // From a place to the segment, include or geometry below it.
    Place step(Place above, SlotIndex below)
    {
        return below < mentioned_.size() && mentioned_[below] ? find(above, below) : above;
    }
    // The highlights that hold at a place and all below it, by number, the topmost last.
    std::span<std::uint32_t const> at(Place place) const { return places_[place].holding; }

private:
    // Paths that begin alike share nodes. A node is reached once its keys were met in their order.
    struct Node {
        std::map<SlotIndex, std::uint32_t> next;
        std::vector<std::uint32_t> ending; // highlights
    };
    struct PlaceEntry {
        std::vector<std::uint32_t> reached; // nodes, sorted
        std::vector<std::uint32_t> holding;
    };
    Place find(Place above, SlotIndex below);

    std::vector<Node> nodes_;
    std::vector<PlaceEntry> places_;
    std::map<std::vector<std::uint32_t>, Place> known_; // by what is reached
    std::vector<bool> mentioned_;                       // by slot: part of some path
};

// A state with highlights laid over it, the lowest first. Names are looked up in the portfolios in reach; a
// highlight without a style, or whose style is not to be found, takes a look of the library's own.
NetStatePointer highlighted(NetFold& fold, NetStatePointer state, Highlights const& highlights,
                            std::span<std::uint32_t const> holding);

} // namespace HPS::scene
