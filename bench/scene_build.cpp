// From a model in memory to segments and tree: 20 parts of 30 faces each, placed up to 10,000 times.

#include "CadDocument.h"

#include <benchmark/benchmark.h>

namespace
{

constexpr int Parts = 20;
constexpr int FacesPerPart = 30;

/// A strip of squares, each a face of its own with its four edges.
NarMetaInfra::BrepBody stripBody(NarMeta::Id id)
{
    NarMetaInfra::BrepBody body;
    body.id = id;
    for (int i = 0; i < FacesPerPart; ++i) {
        auto const x = static_cast<float>(i);
        float const points[] = {x, 0, 0, x + 1, 0, 0, x + 1, 1, 0, x, 1, 0, x, 0, 0};
        float const normals[] = {0, 0, 1, 0, 0, 1, 0, 0, 1, 0, 0, 1};
        std::uint32_t const triangles[] = {0, 1, 2, 0, 2, 3};
        body.AddFace(++id, std::span(points).first(12), normals, triangles);
        for (std::size_t edge = 0; edge < 4; ++edge)
            body.AddEdge(++id, std::span(points).subspan(3 * edge, 6));
    }
    return body;
}

void fill(NarMetaInfra::ZELProductStructure& model, int instances)
{
    model.SetPID(L"bench");
    std::vector<std::shared_ptr<NarMetaInfra::ZELReference>> parts;
    for (int i = 0; i < Parts; ++i) {
        parts.push_back(
            model.AddReference(NarMetaInfra::ZELReference::Kind::Part, L"part" + std::to_wstring(i)));
        parts.back()->AddBody(stripBody(NarMeta::FirstObjectId * static_cast<NarMeta::Id>(i + 2)));
    }
    for (int i = 0; i < instances; ++i) {
        NarMetaInfra::Matrix matrix = NarMetaInfra::IdentityMatrix;
        matrix[12] = static_cast<float>(i);
        model.AddRootInstance(parts[static_cast<std::size_t>(i % Parts)], L"instance" + std::to_wstring(i))
            ->SetTransform(matrix);
    }
}

void buildSceneAndTree(benchmark::State& state)
{
    HPS::World const world;
    MoraCore::AViewTree view;
    ZelCad::CadDocument document(&view);
    fill(*document.GetProductStructure(), static_cast<int>(state.range(0)));
    document.Render(false);
    double scene = 0;
    double tree = 0;
    for (auto _ : state) {
        document.Render(true);
        scene += document.GetSceneTime().count();
        tree += document.GetTreeTime().count();
    }
    state.counters["scene_ms"] = benchmark::Counter(1000 * scene, benchmark::Counter::kAvgIterations);
    state.counters["tree_ms"] = benchmark::Counter(1000 * tree, benchmark::Counter::kAvgIterations);
}
BENCHMARK(buildSceneAndTree)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

} // namespace
BENCHMARK_MAIN();
