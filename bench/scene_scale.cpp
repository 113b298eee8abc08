// The scene database against a plain array of the same records, up to a million of them. "ratio" is how many
// times the array's time the database takes.
#include "side_by_side.h"
#include <algorithm>
#include <optional>

using namespace bench;
using namespace HPS;
using namespace HPS::scene;

namespace
{

struct Leaf {
    NetStatePointer state;
    MatrixKit matrix;
    SlotIndex segment;
};
struct PlainLeaf {
    RGBAColor color;
    MatrixKit matrix;
    std::size_t part;
};

// Lists every segment with geometry below `top`, with what holds there.
void flatten(NetFold& fold, SegmentRecord const& top, NetAttributes const& above, std::vector<Leaf>& leaves)
{
    auto const& all = store();
    auto const net = fold.step(above, top);
    if (!top.geometry.empty()) leaves.push_back({net.state, net.matrix, top.slot});
    for (auto const slot : top.children) flatten(fold, *all.at<SegmentRecord>(slot), net, leaves);
    for (auto const slot : top.includes)
        flatten(fold, *all.at<SegmentRecord>(all.at<IncludeRecord>(slot)->target), net, leaves);
}

PlainLeaf flatten(PlainInstance const& instance)
{
    return {instance.color.value_or(RGBAColor(0, 0, 0)), instance.matrix * MatrixKit(), instance.part};
}

void flatten(PlainModel const& model, std::vector<PlainLeaf>& leaves)
{
    for (auto const& instance : model) leaves.push_back(flatten(instance));
}

std::size_t countOf(benchmark::State const& state)
{
    return static_cast<std::size_t>(state.range(0));
}

void Create(benchmark::State& state)
{
    SideBySide sides(state);
    for (auto _ : state) {
        WideModel wide(0);
        PlainModel plain;
        sides.turn([&] { wide.addInstances(countOf(state)); }, [&] { plain = plainModel(countOf(state)); });
    }
}

void ColorAll(benchmark::State& state)
{
    WideModel wide(countOf(state));
    auto plain = plainModel(countOf(state));
    SideBySide sides(state);
    for (auto _ : state)
        sides.turn([&] { wide.colorAll(); },
                   [&] {
                       for (std::size_t i = 0; i < plain.size(); ++i) plain[i].color = colorOf(i);
                       benchmark::ClobberMemory();
                   });
}

// By a consumer that starts, and by one that has done it before.
template <bool again> void Flatten(benchmark::State& state)
{
    WideModel wide(countOf(state));
    wide.colorAll();
    auto plain = plainModel(countOf(state));
    std::vector<Leaf> leaves;
    std::vector<PlainLeaf> plainLeaves;
    NetFold kept;
    if (again) flatten(kept, wide.record(), kept.root(), leaves);
    SideBySide sides(state);
    for (auto _ : state) {
        NetFold fresh;
        auto& fold = again ? kept : fresh;
        leaves.clear();
        plainLeaves.clear();
        sides.turn([&] { flatten(fold, wide.record(), fold.root(), leaves); },
                   [&] { flatten(plain, plainLeaves); });
    }
    state.counters["leaves"] = static_cast<double>(leaves.size());
}

// The colour of one instance, with all that a consumer does to catch up with it.
void OneColor(benchmark::State& state)
{
    WideModel wide(countOf(state));
    auto plain = plainModel(countOf(state));
    std::vector<Leaf> leaves;
    NetFold fold;
    auto const above = fold.step(fold.root(), wide.record());
    flatten(fold, wide.record(), fold.root(), leaves);
    ChangeCursor cursor;
    std::vector<ChangeMark> marks;
    cursor.read(marks);
    std::size_t turn = 0;
    SideBySide sides(state);
    for (auto _ : state) {
        auto const i = ++turn * 7919 % wide.instances.size();
        leaves.clear();
        sides.turn(
            [&] {
                wide.instances[i].GetMaterialMappingControl().SetFaceColor(colorOf(turn));
                cursor.read(marks);
                for (auto const& mark : marks)
                    flatten(fold, *store().at<SegmentRecord>(mark.slot), above, leaves);
            },
            [&] {
                plain[i].color = colorOf(turn);
                benchmark::DoNotOptimize(flatten(plain[i]));
            });
    }
}

// One of the instances goes and another comes.
void DeleteOne(benchmark::State& state)
{
    WideModel wide(countOf(state));
    auto plain = plainModel(countOf(state));
    std::size_t turn = 0;
    SideBySide sides(state);
    for (auto _ : state) {
        auto const i = ++turn * 7919 % wide.instances.size();
        sides.turn([&] { wide.instances[i].Delete(); },
                   [&] {
                       // Deletion by a flag: moving the rest down would be the model's size.
                       plain[i] = {};
                       benchmark::ClobberMemory();
                   });
        wide.instances[i] = wide.model.Subsegment(instanceName(i).c_str());
        wide.instances[i].IncludeSegment(wide.parts[0]);
    }
}

void FindIncludes(benchmark::State& state)
{
    WideModel wide(countOf(state));
    auto plain = plainModel(countOf(state));
    SearchResults results;
    std::vector<std::size_t> found;
    SideBySide sides(state);
    for (auto _ : state)
        sides.turn([&] { wide.root.Find(Search::Type::Includes, Search::Space::Subsegments, results); },
                   [&] {
                       found.clear();
                       for (std::size_t i = 0; i < plain.size(); ++i)
                           if (plain[i].part < partCount) found.push_back(i);
                       benchmark::DoNotOptimize(found.data());
                   });
    state.counters["found"] = static_cast<double>(results.GetCount());
}

void FindByName(benchmark::State& state)
{
    WideModel wide(countOf(state));
    auto const plain = plainModel(countOf(state));
    std::size_t turn = 0;
    SideBySide sides(state);
    for (auto _ : state) {
        auto const name = instanceName(++turn * 7919 % plain.size());
        sides.turn([&] { benchmark::DoNotOptimize(wide.model.Subsegment(name.c_str(), false)); },
                   [&] {
                       benchmark::DoNotOptimize(std::find_if(plain.begin(), plain.end(),
                                                             [&](auto const& p) { return p.name == name; }));
                   });
    }
}

void Flush(benchmark::State& state)
{
    SideBySide sides(state);
    for (auto _ : state) {
        WideModel wide(countOf(state));
        auto plain = plainModel(countOf(state));
        sides.turn([&] { wide.model.Flush(Search::Type::Everything, Search::Space::Subsegments); },
                   [&] {
                       plain.clear();
                       benchmark::ClobberMemory();
                   });
    }
}

constexpr int few = 1'000, middle = 100'000, many = 1'000'000;
BENCHMARK(Create)->Arg(many)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(ColorAll)->Arg(many)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Flatten<false>)->Arg(middle)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Flatten<true>)->Arg(middle)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(OneColor)->Arg(few)->Arg(middle)->Arg(many)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(DeleteOne)->Arg(few)->Arg(middle)->Arg(many)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(FindIncludes)->Arg(many)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(FindByName)->Arg(few)->Arg(many)->Iterations(500)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(Flush)->Arg(many)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
BENCHMARK_MAIN();
