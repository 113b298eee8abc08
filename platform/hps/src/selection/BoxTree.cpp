#include "BoxTree.h"
#include <numeric>

namespace HPS::selection
{
namespace
{

constexpr unsigned axisBits = 10;

/// Two zeros between any two of the lowest ten bits.
std::uint32_t spread(std::uint32_t v)
{
    v = (v | v << 16) & 0x030000FF;
    v = (v | v << 8) & 0x0300F00F;
    v = (v | v << 4) & 0x030C30C3;
    return (v | v << 2) & 0x09249249;
}

/// The place on the curve in the upper half, the item in the lower.
using Entry = std::uint64_t;

std::vector<Entry> placesOnCurve(std::span<Box const> boxes)
{
    Box around; // of the middles
    for (Box const& box : boxes)
        if (!box.empty()) {
            Vec3 const middle = box.centre();
            around.add(float(middle.x), float(middle.y), float(middle.z));
        }
    std::array<double, 3> scale{};
    constexpr double cells = (1u << axisBits) - 1;
    for (std::size_t i = 0; i < 3; ++i)
        if (double const length = double(around.high[i]) - around.low[i]; length > 0)
            scale[i] = cells / length;

    std::vector<Entry> entries(boxes.size());
    inParallel(boxes.size(), [&](std::size_t begin, std::size_t end) {
        for (std::size_t i = begin; i < end; ++i) {
            std::uint32_t place = 0;
            if (!boxes[i].empty()) {
                Vec3 const middle = boxes[i].centre();
                auto cell = [&](double at, std::size_t axis) {
                    double const scaled = (at - around.low[axis]) * scale[axis];
                    return spread(std::uint32_t(std::clamp(scaled, 0.0, cells)));
                };
                place = cell(middle.x, 0) | cell(middle.y, 1) << 1 | cell(middle.z, 2) << 2;
            }
            entries[i] = Entry(place) << 32 | i;
        }
    });
    return entries;
}

void sortByPlace(std::vector<Entry>& entries)
{
    constexpr std::size_t worthCounting = 4096;
    if (entries.size() < worthCounting) return std::sort(entries.begin(), entries.end());
    std::vector<Entry> other(entries.size());
    for (unsigned shift = 32; shift < 32 + 3 * axisBits; shift += axisBits) {
        auto digit = [&](Entry e) { return std::size_t(e >> shift) & ((1u << axisBits) - 1); };
        std::vector<std::size_t> next((1u << axisBits) + 1);
        for (Entry const e : entries) ++next[digit(e) + 1];
        std::partial_sum(next.begin(), next.end(), next.begin());
        for (Entry const e : entries) other[next[digit(e)]++] = e;
        entries.swap(other);
    }
}

} // namespace

void BoxTree::arrange(std::span<Box const> boxes)
{
    std::vector<Entry> entries = placesOnCurve(boxes);
    sortByPlace(entries);
    order_.resize(entries.size());
    std::transform(entries.begin(), entries.end(), order_.begin(), [](Entry e) { return std::uint32_t(e); });

    firstOf_.assign(1, 0);
    std::uint32_t total = 0;
    for (auto count = std::uint32_t((order_.size() + leafItems - 1) / leafItems); count > 0;
         count = count == 1 ? 0 : (count + fanOut - 1) / fanOut)
        firstOf_.push_back(total += count);
    boxes_.assign(total, Box());
    boxes_.shrink_to_fit();
}

void BoxTree::fillAbove()
{
    for (std::uint32_t level = 1; level < levels(); ++level)
        for (std::uint32_t i = 0; i < boxesIn(level); ++i) {
            Box box;
            std::uint32_t const end = std::min(boxesIn(level - 1), (i + 1) * fanOut);
            for (std::uint32_t below = i * fanOut; below < end; ++below)
                box.add(boxes_[firstOf_[level - 1] + below]);
            boxes_[firstOf_[level] + i] = box;
        }
}

} // namespace HPS::selection
