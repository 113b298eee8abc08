// The scene database: building a product of 10,000 instances of 500 parts with 20 faces each, asking what
// holds at every leaf, and one change.
#include "bounding.h"
#include "net_attributes.h"
#include <benchmark/benchmark.h>
#include <hps/hps.h>

using namespace HPS;
using namespace HPS::scene;

namespace
{

constexpr int instanceCount = 10'000;
constexpr int partCount = 500;
constexpr int facesPerPart = 20;

struct Product {
    SegmentKey root = Database::CreateRootSegment();
    std::vector<SegmentKey> instances;
    std::vector<SegmentKey> parts;

    Product()
    {
        auto library = root.Subsegment("library");
        for (int i = 0; i < partCount; ++i) {
            auto part = library.Subsegment(("part " + std::to_string(i)).c_str());
            for (int face = 0; face < facesPerPart; ++face) {
                auto color = part.Subsegment(("f" + std::to_string(face)).c_str());
                color.GetMaterialMappingControl().SetFaceColor(RGBAColor(float(face) / facesPerPart, 1, 0));
                color.InsertShell({{0, 0, 0}, {1, 0, 0}, {0, float(face + 1), 0}}, {3, 0, 1, 2});
            }
            parts.push_back(part);
        }
        auto model = root.Subsegment("model");
        for (int i = 0; i < instanceCount; ++i) {
            auto instance = model.Subsegment(("instance " + std::to_string(i)).c_str());
            instance.GetModellingMatrixControl().Translate(i % 22, i / 22 % 22, i / 484);
            instance.SetUserData(0, {2});
            instance.SetUserData(1, {0, 0, 0, 0, 0, 0, 39, 21});
            instance.IncludeSegment(parts[static_cast<std::size_t>(i % partCount)]);
            instances.push_back(instance);
        }
    }
    ~Product() { root.Delete(); }
};

// Visits everything below the model and counts the geometry.
std::size_t foldAll(NetFold& fold, SegmentRecord const& top, NetAttributes const& above)
{
    auto const net = fold.step(above, top);
    auto count = top.geometry.size();
    for (auto const slot : top.children) count += foldAll(fold, *store().at<SegmentRecord>(slot), net);
    for (auto const slot : top.includes)
        count += foldAll(fold, *store().at<SegmentRecord>(store().at<IncludeRecord>(slot)->target), net);
    return count;
}

SegmentRecord const& modelOf(Product& product)
{
    return *store().resolve<SegmentRecord>(product.root.Subsegment("model"));
}

void Build(benchmark::State& state)
{
    for (auto _ : state) {
        auto* const product = new Product;
        state.PauseTiming();
        delete product;
        state.ResumeTiming();
    }
}
BENCHMARK(Build)->Unit(benchmark::kMillisecond);

void Delete(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto* const product = new Product;
        state.ResumeTiming();
        delete product;
    }
}
BENCHMARK(Delete)->Unit(benchmark::kMillisecond);

void FoldFirst(benchmark::State& state)
{
    Product product;
    for (auto _ : state) {
        NetFold fold;
        state.counters["leaves"] = double(foldAll(fold, modelOf(product), fold.root()));
        state.counters["states"] = double(fold.stateCount());
    }
}
BENCHMARK(FoldFirst)->Unit(benchmark::kMillisecond);

void FoldAgain(benchmark::State& state)
{
    Product product;
    NetFold fold;
    for (auto _ : state) benchmark::DoNotOptimize(foldAll(fold, modelOf(product), fold.root()));
}
BENCHMARK(FoldAgain)->Unit(benchmark::kMillisecond);

void BoundsFirst(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto* const product = new Product;
        state.ResumeTiming();
        benchmark::DoNotOptimize(boundsOf(modelOf(*product)));
        state.PauseTiming();
        delete product;
        state.ResumeTiming();
    }
}
BENCHMARK(BoundsFirst)->Unit(benchmark::kMillisecond);

// The colour of one instance, with all that a consumer does to catch up with it.
void OneColor(benchmark::State& state)
{
    Product product;
    NetFold fold;
    auto const above = fold.step(fold.root(), modelOf(product));
    foldAll(fold, modelOf(product), fold.root());
    ChangeCursor cursor;
    std::vector<ChangeMark> marks;
    cursor.read(marks);
    std::size_t turn = 0;
    for (auto _ : state) {
        auto& instance = product.instances[turn++ * 97 % instanceCount];
        instance.GetMaterialMappingControl().SetFaceColor(RGBAColor(float(turn % 255) / 255, 0, 0));
        cursor.read(marks);
        for (auto const& mark : marks) foldAll(fold, *store().at<SegmentRecord>(mark.slot), above);
    }
}
BENCHMARK(OneColor)->Unit(benchmark::kMicrosecond);

void OneMatrixAndTheBounds(benchmark::State& state)
{
    Product product;
    auto const& model = modelOf(product);
    std::size_t turn = 0;
    for (auto _ : state) {
        product.instances[turn++ * 97 % instanceCount].GetModellingMatrixControl().Translate(1, 0, 0);
        benchmark::DoNotOptimize(boundsOf(model));
    }
}
BENCHMARK(OneMatrixAndTheBounds)->Unit(benchmark::kMicrosecond);

} // namespace
BENCHMARK_MAIN();
