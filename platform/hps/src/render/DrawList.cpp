#include "DrawList.h"
#include <algorithm>
#include <atomic>
#include <numeric>
#include <tuple>

namespace HPS::render
{

void DrawList::clear()
{
    records.clear();
    instances.clear();
    bounds = {};
}

void DrawList::add(Pipeline pipeline, MeshRange const& range, Box const& local, Mat4 const& matrix,
                   Instance instance)
{
    if (range.indexCount == 0) return;
    for (int out = 0; out < 3; ++out)
        for (int in = 0; in < 4; ++in) instance.rows[out][in] = float(matrix[in * 4 + out]);
    // Winding matters only where a side is culled; elsewhere the bit would split calls for nothing.
    pipeline.mirrored =
        (pipeline.cullBack || pipeline.cullFront || pipeline.closed) && determinant3(matrix) < 0;
    Box const world = transformed(local, matrix);
    if (!world.drawable()) return;
    bounds.add(world);
    records.push_back({pipeline, range, world});
    instances.push_back(instance);
}

void DrawList::finish()
{
    static std::atomic<std::uint64_t> versions{0};
    version = ++versions;

    std::vector<std::uint32_t> order(records.size());
    std::iota(order.begin(), order.end(), 0u);
    auto key = [&](std::uint32_t i) {
        return std::make_tuple(records[i].pipeline, records[i].range.baseVertex, records[i].range.firstIndex,
                               i);
    };
    auto before = [&](std::uint32_t a, std::uint32_t b) { return key(a) < key(b); };
    if (std::is_sorted(order.begin(), order.end(), before)) return;
    std::sort(order.begin(), order.end(), before);
    std::vector<Record> sortedRecords(records.size());
    std::vector<Instance> sortedInstances(records.size());
    for (std::size_t i = 0; i < order.size(); ++i) {
        sortedRecords[i] = records[order[i]];
        sortedInstances[i] = instances[order[i]];
    }
    records.swap(sortedRecords);
    instances.swap(sortedInstances);
}

} // namespace HPS::render
