#include "DrawList.h"
#include <algorithm>
#include <atomic>
#include <cassert>
#include <cstring>
#include <tuple>

namespace HPS::render
{
namespace
{

constexpr std::uint32_t none = ~0u;
constexpr std::uint32_t largestGroup = 64;
/// A frame sorts its groups, so that there are no more than some such number of them.
constexpr std::uint32_t groupsWanted = 512;

std::uint64_t nextVersion()
{
    static std::atomic<std::uint64_t> versions{0};
    return ++versions;
}

bool same(Instance const& a, Instance const& b)
{
    return std::memcmp(&a, &b, sizeof a) == 0; // has no gaps
}

bool same(MeshRange const& a, MeshRange const& b)
{
    return a.firstIndex == b.firstIndex && a.indexCount == b.indexCount && a.baseVertex == b.baseVertex;
}

bool same(Record const& a, Record const& b)
{
    return same(a.range, b.range) && a.pipeline == b.pipeline && a.role == b.role &&
           a.world.low == b.world.low && a.world.high == b.world.high && a.reach == b.reach &&
           a.from == b.from && a.to == b.to && same(a.fine, b.fine);
}

/// The bits of a number below 2^16, two places apart.
std::uint64_t spread(std::uint64_t bits)
{
    bits = (bits | bits << 16) & 0x00FF0000FF0000FF;
    bits = (bits | bits << 8) & 0x00F00F00F00F00F00F;
    bits = (bits | bits << 4) & 0x30C30C30C30C30C3;
    return (bits | bits << 2) & 0x9249249249249249;
}

/// Where along a curve through `bounds` a point lies, such that near numbers mean near points: 48 bits.
std::uint64_t placeOf(Vec3 const& p, Box const& bounds)
{
    auto cell = [&](double value, std::size_t axis) {
        double const extent = double(bounds.high[axis]) - bounds.low[axis];
        double const share = extent > 0 ? (value - bounds.low[axis]) / extent : 0;
        return spread(std::uint64_t(std::clamp(share, 0.0, 1.0) * 65535.0));
    };
    return cell(p.x, 0) | cell(p.y, 1) << 1 | cell(p.z, 2) << 2;
}

} // namespace

void DrawList::clear()
{
    *this = {};
}

void DrawList::open(std::uint32_t owner, Placing const& with)
{
    placing = with;
    manner = {};
    assert(owner_ == none && "DrawList::open: another owner is open");
    owner_ = owner;
    openRecords_.clear();
    openInstances_.clear();
    if (owner >= firstOf_.size())
        firstOf_.resize(std::max<std::size_t>(owner + 1, firstOf_.size() * 2), none);
}

void DrawList::add(Pipeline pipeline, MeshRange const& range, Box const& local, Mat4 const& matrix,
                   Instance instance, float reach)
{
    if (range.indexCount == 0) return;
    for (int out = 0; out < 3; ++out)
        for (int in = 0; in < 4; ++in) instance.rows[out][in] = float(matrix[in * 4 + out]);
    // Winding matters only where a side is culled; elsewhere the bit would split calls for nothing.
    pipeline.mirrored =
        (pipeline.cullBack || pipeline.cullFront || pipeline.closed) && determinant3(matrix) < 0;
    Record record{};
    record.pipeline = pipeline;
    record.range = range;
    record.world = transformed(local, matrix);
    record.reach = reach;
    add(record, instance);
}

void DrawList::add(Record record, Instance const& instance)
{
    if (record.range.indexCount == 0 || !record.world.drawable()) return;
    record.pipeline.placing = placing;
    manner.apply(record);
    // What has width is made of triangles, which alone can be moved away.
    if (record.pipeline.primitive == Primitive::ThinLines && placing.displacement != 0)
        record.pipeline.primitive = Primitive::Lines;
    record.owner = owner_;
    hasStrokes = hasStrokes || record.pipeline.primitive == Primitive::Strokes;
    if (owner_ == none) {
        append(record, instance);
    } else {
        openRecords_.push_back(record);
        openInstances_.push_back(instance);
    }
}

void DrawList::close()
{
    std::uint32_t const owner = owner_;
    owner_ = none;
    // Old and new are paired in their order: mostly the same parts with other values.
    std::size_t next = 0;
    std::uint32_t last = none;
    auto follow = [&](std::uint32_t at) { (last == none ? firstOf_[owner] : records[last].next) = at; };
    for (std::uint32_t at = firstOf_[owner]; at != none;) {
        std::uint32_t const after = records[at].next;
        if (next < openRecords_.size() && records[at].pipeline == openRecords_[next].pipeline) {
            overwrite(at, openRecords_[next], openInstances_[next]);
            ++next;
            last = at;
        } else {
            follow(after);
            drop(at);
        }
        at = after;
    }
    for (; next < openRecords_.size(); ++next) {
        std::uint32_t const at = append(openRecords_[next], openInstances_[next]);
        follow(at);
        last = at;
    }
}

void DrawList::drop(std::uint32_t at)
{
    records[at].range.indexCount = 0;
    records[at].world = {};
    records[at].next = none;
    ++gone_;
    touch(at);
}

std::uint32_t DrawList::append(Record const& record, Instance const& instance)
{
    auto const at = std::uint32_t(records.size());
    records.push_back(record);
    instances.push_back(instance);
    changed_.push_back(at);
    return at;
}

void DrawList::overwrite(std::uint32_t at, Record const& record, Instance const& instance)
{
    bool const sameRecord = same(records[at], record);
    if (sameRecord && same(instances[at], instance)) return;
    instances[at] = instance;
    changed_.push_back(at);
    if (sameRecord) return;
    records[at].range = record.range;
    records[at].world = record.world;
    records[at].reach = record.reach;
    records[at].from = record.from;
    records[at].to = record.to;
    records[at].fine = record.fine;
    records[at].role = record.role;
    touch(at);
}

// What a group knows of its records may no longer hold.
void DrawList::touch(std::uint32_t at)
{
    if (at < groupOf_.size())
        stale_.push_back(groupOf_[at]);
    else
        changed_.push_back(at);
}

void DrawList::finish()
{
    if (changed_.empty() && stale_.empty() && version != 0) return;
    version = nextVersion();
    std::size_t const late = records.size() - sortedCount_;
    std::size_t const bearable = 64 + sortedCount_ / 4;
    if (sorted == 0 || late > bearable || gone_ > bearable) {
        sort();
    } else {
        std::size_t const known = ranks_.size();
        for (auto at = std::uint32_t(groupOf_.size()); at < records.size(); ++at) {
            auto const rank = ranks_.try_emplace(records[at].pipeline).first;
            groupOf_.push_back(std::uint32_t(groups.size()));
            stale_.push_back(groupOf_.back());
            groups.push_back({at, 1, rank->second, 0, {}, 0});
        }
        if (ranks_.size() != known) rank();
        runs.resize(records.size());
        std::sort(stale_.begin(), stale_.end());
        stale_.erase(std::unique(stale_.begin(), stale_.end()), stale_.end());
        for (std::uint32_t group : stale_) makeGroup(groups[group]);
        for (std::uint32_t at : changed_) patches.emplace_back(version, at);
        if (patches.size() > records.size() / 2) {
            sorted = version;
            patches.clear();
        }
    }
    stale_.clear();
    changed_.clear();
    bounds = {};
    for (RecordGroup const& group : groups)
        if (!group.box.empty()) bounds.add(group.box);
}

// Numbers the pipelines in the order of drawing.
void DrawList::rank()
{
    std::uint32_t next = 0;
    for (auto& [pipeline, number] : ranks_) number = next++;
    for (RecordGroup& group : groups) group.pipeline = ranks_.at(records[group.first].pipeline);
}

void DrawList::sort()
{
    std::vector<std::uint32_t> order;
    order.reserve(records.size());
    Box all;
    for (std::uint32_t i = 0; i < records.size(); ++i)
        if (!records[i].gone()) {
            order.push_back(i);
            all.add(records[i].world);
        }
    ranks_.clear();
    groups.clear();
    for (std::uint32_t i : order) ranks_.try_emplace(records[i].pipeline);
    rank();

    struct Key {
        std::uint64_t place; ///< below the pipeline's rank
        std::uint32_t record;
    };
    auto const groupSize =
        std::clamp(std::uint32_t(order.size()) / groupsWanted, std::uint32_t(1), largestGroup);
    std::vector<Key> keys;
    keys.reserve(order.size());
    for (std::uint32_t i : order) {
        // Letters hide little and are many: side by side equal ones make one command.
        bool const byPlace = groupSize > 1 && records[i].pipeline.primitive != Primitive::Glyphs;
        std::uint64_t const place = byPlace ? placeOf(records[i].world.centre(), all) : 0;
        keys.push_back({std::uint64_t(ranks_.at(records[i].pipeline)) << 48 | place, i});
    }
    auto byMesh = [&](Key const& a, Key const& b) {
        auto key = [&](Key const& k) {
            MeshRange const& range = records[k.record].range;
            return std::tuple(range.baseVertex, range.firstIndex, k.record);
        };
        return key(a) < key(b);
    };
    std::sort(keys.begin(), keys.end(), [&](Key const& a, Key const& b) {
        return a.place != b.place ? a.place < b.place : byMesh(a, b);
    });

    groups.clear();
    groupOf_.resize(keys.size());
    for (std::size_t first = 0; first < keys.size();) {
        std::uint64_t const pipeline = keys[first].place >> 48;
        std::size_t last = first;
        while (last < keys.size() && last - first < groupSize && keys[last].place >> 48 == pipeline) ++last;
        std::sort(keys.begin() + std::ptrdiff_t(first), keys.begin() + std::ptrdiff_t(last), byMesh);
        std::fill(groupOf_.begin() + std::ptrdiff_t(first), groupOf_.begin() + std::ptrdiff_t(last),
                  std::uint32_t(groups.size()));
        groups.push_back(
            {std::uint32_t(first), std::uint32_t(last - first), std::uint32_t(pipeline), 0, {}, 0});
        first = last;
    }
    for (std::size_t i = 0; i < keys.size(); ++i) order[i] = keys[i].record;
    reorder(order);
    runs.resize(records.size());
    for (RecordGroup& group : groups) makeGroup(group);
    sorted = version;
    patches.clear();
}

// Puts record order[i] in place i; those not named go.
void DrawList::reorder(std::vector<std::uint32_t> const& order)
{
    std::vector<std::uint32_t> placeOf(records.size(), none);
    std::vector<Record> newRecords(order.size());
    std::vector<Instance> newInstances(order.size());
    for (std::uint32_t i = 0; i < order.size(); ++i) {
        placeOf[order[i]] = i;
        newRecords[i] = records[order[i]];
        newInstances[i] = instances[order[i]];
    }
    for (std::uint32_t& first : firstOf_)
        if (first != none) first = placeOf[first];
    for (Record& record : newRecords)
        if (record.next != none) record.next = placeOf[record.next];
    records.swap(newRecords);
    instances.swap(newInstances);
    sortedCount_ = std::uint32_t(records.size());
    gone_ = 0;
}

void DrawList::makeGroup(RecordGroup& group)
{
    group.box = {};
    group.smallest = std::numeric_limits<float>::max();
    group.runs = 0;
    group.single = false;
    for (std::uint32_t i = group.first; i < group.first + group.count; ++i) {
        Record const& record = records[i];
        if (record.gone()) continue;
        group.box.add(record.world);
        group.single = group.single || record.single();
        group.smallest = std::min(group.smallest, float(record.world.diagonal()));
        if (group.runs > 0) {
            RecordRun& last = runs[group.first + group.runs - 1];
            if (last.first + last.count == i && same(records[last.first].range, record.range)) {
                ++last.count;
                continue;
            }
        }
        runs[group.first + group.runs++] = {i, 1};
    }
}

} // namespace HPS::render
