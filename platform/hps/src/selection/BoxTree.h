#pragma once
#include "in_parallel.h"
#include "linear.h"
#include <cstdint>
#include <span>

namespace HPS::selection
{

using render::Box;
using render::Vec3;

/// A hierarchy of boxes over numbered items. Items stand in the order of a space-filling curve; eight that
/// follow each other share a box, four boxes that follow each other share one of the next level, up to a
/// single box. So nothing points anywhere, and an item costs 8 bytes. Building is linear.
class BoxTree
{
public:
    /// boxOf(item) gives the box of an item, for items from 0 on; called from several threads.
    template <class BoxOf> void build(std::uint32_t count, BoxOf const& boxOf)
    {
        std::vector<Box> boxes(count);
        inParallel(count, [&](std::size_t begin, std::size_t end) {
            for (std::size_t i = begin; i < end; ++i) boxes[i] = boxOf(std::uint32_t(i));
        });
        arrange(boxes);
        fillLeaves([&](std::uint32_t item) -> Box const& { return boxes[item]; });
    }
    /// The same items have other boxes now. Right in any case; slow to search if all of them moved far.
    template <class BoxOf> void refit(BoxOf const& boxOf) { fillLeaves(boxOf); }

    bool empty() const { return order_.empty(); }
    std::size_t size() const { return order_.size(); }
    /// Around all items.
    Box const& bounds() const { return boxes_.back(); }
    std::size_t bytes() const
    {
        return order_.capacity() * sizeof order_[0] + boxes_.capacity() * sizeof boxes_[0];
    }

    /// enter(box, state) tells whether anything in the box matters and may change `state`, which then holds
    /// for all within; use(item, state) is called for the items of boxes that were entered. Of boxes side by
    /// side those with the lowest rank(box) come first.
    template <class State, class Enter, class Use, class Rank>
    void visit(State const& start, Enter const& enter, Use const& use, Rank const& rank) const
    {
        struct Step {
            std::uint32_t level, box;
            State state;
        };
        if (empty()) return;
        std::array<Step, 3 * maximalLevels + 2> open; // one of each level's boxes goes on to the next level
        std::size_t count = 0;
        open[count++] = {levels() - 1, 0, start};
        while (count > 0) {
            Step step = open[--count];
            if (!enter(boxes_[firstOf_[step.level] + step.box], step.state)) continue;
            if (step.level == 0) {
                std::uint32_t const end = std::min(std::uint32_t(order_.size()), (step.box + 1) * leafItems);
                for (std::uint32_t i = step.box * leafItems; i < end; ++i) use(order_[i], step.state);
                continue;
            }
            std::uint32_t const below = step.level - 1;
            std::uint32_t const end = std::min(boxesIn(below), (step.box + 1) * fanOut);
            std::array<std::pair<double, std::uint32_t>, fanOut> next;
            std::size_t found = 0;
            for (std::uint32_t i = step.box * fanOut; i < end; ++i)
                next[found++] = {rank(boxes_[firstOf_[below] + i]), i};
            std::sort(next.begin(), next.begin() + std::ptrdiff_t(found));
            while (found > 0) open[count++] = {below, next[--found].second, step.state};
        }
    }

    /// In the order in which the items lie along the curve.
    template <class State, class Enter, class Use>
    void visit(State const& start, Enter const& enter, Use const& use) const
    {
        visit(start, enter, use, [](Box const&) { return 0.0; });
    }

private:
    static constexpr std::uint32_t leafItems = 8, fanOut = 4;
    static constexpr std::size_t maximalLevels = 16;

    std::uint32_t levels() const { return std::uint32_t(firstOf_.size() - 1); }
    std::uint32_t boxesIn(std::uint32_t level) const { return firstOf_[level + 1] - firstOf_[level]; }
    /// Orders the items and makes room for boxes.
    void arrange(std::span<Box const> boxes);
    template <class BoxOf> void fillLeaves(BoxOf const& boxOf)
    {
        if (empty()) return;
        inParallel(boxesIn(0), [&](std::size_t begin, std::size_t end) {
            for (std::size_t leaf = begin; leaf < end; ++leaf) {
                Box box;
                std::size_t const last = std::min(order_.size(), (leaf + 1) * leafItems);
                for (std::size_t i = leaf * leafItems; i < last; ++i) box.add(boxOf(order_[i]));
                boxes_[leaf] = box;
            }
        });
        fillAbove();
    }
    void fillAbove();

    std::vector<std::uint32_t> order_;   ///< items
    std::vector<Box> boxes_;             ///< the leaves' first, the one around all last
    std::vector<std::uint32_t> firstOf_; ///< of each level, in `boxes_`, and their end
};

} // namespace HPS::selection
