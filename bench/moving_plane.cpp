// A cutting plane that moves through an assembly, step by step: what a step costs with caps and outlines, and
// without. The model is the largest file under the folder that ZEL_BENCH_MODELS names, or the project's own
// sample.
#include "CadDocument.h"
#include "SceneDefaults.h"
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>

namespace
{

namespace fs = std::filesystem;

fs::path largestModel()
{
    fs::path best = ZEL_SOURCE_DIR "/samples/machine.zel_xml";
    char const* const folder = std::getenv("ZEL_BENCH_MODELS");
    if (folder == nullptr) return best;
    std::uintmax_t size = 0;
    for (fs::directory_entry const& entry : fs::recursive_directory_iterator(folder)) {
        std::string const extension = entry.path().extension();
        if (extension != ".step" && extension != ".stp" && extension != ".STEP") continue;
        if (entry.file_size() > size) {
            size = entry.file_size();
            best = entry.path();
        }
    }
    return best;
}

struct Shown {
    Shown()
    {
        Good = Document.Open(largestModel().wstring().c_str());
        Options.reset(ZELVizCore::RenderingOptions::CreateDefault());
        Canvas.AttachViewAsLayout(View);
        ZelVizBase::SceneDefaults::Setup(Canvas, View, *Options);
        View.AttachModel(Document.GetModel());
        View.FitWorld();
        HPS::SimpleSphere sphere;
        Good = Good && View.GetSegmentKey().GetBoundingControl().ShowVolume(sphere, Box);
    }

    HPS::World World;
    MoraCore::AViewTree TreeView;
    ZelCad::CadDocument Document{&TreeView};
    HPS::Canvas Canvas = HPS::Factory::CreateOffScreenCanvas(1280, 720);
    HPS::View View = HPS::Factory::CreateView();
    std::unique_ptr<ZELVizCore::RenderingOptions> Options;
    HPS::SimpleCuboid Box;
    bool Good = false;
};

Shown& shown()
{
    static Shown instance;
    return instance;
}

void moves(benchmark::State& state, bool caps)
{
    Shown& scene = shown();
    if (!scene.Good) return state.SkipWithError("no model");
    HPS::SegmentKey segment = scene.View.GetModelIncludeKey();
    segment.GetVisibilityControl().SetCutGeometry(caps);
    HPS::CuttingSectionKey section = segment.InsertCuttingSection(HPS::Plane(1, 0, 0, 0));
    double compile = 0, draw = 0;
    int step = 0;
    for (auto _ : state) {
        float const share = static_cast<float>(step++ % 64 + 1) / 65;
        float const at = scene.Box.min.x + share * (scene.Box.max.x - scene.Box.min.x);
        section.SetPlanes(HPS::Plane(1, 0, 0, -at));
        if (!scene.Canvas.Update()) return state.SkipWithError("no graphics");
        HPS::UpdateReport report;
        scene.Canvas.ShowUpdateReport(report);
        compile += report.compileMilliseconds;
        draw += report.drawMilliseconds;
    }
    state.counters["cut_ms"] = compile / static_cast<double>(state.iterations());
    state.counters["draw_ms"] = draw / static_cast<double>(state.iterations());
    section.Delete();
}

BENCHMARK_CAPTURE(moves, WithCaps, true)->Unit(benchmark::kMillisecond)->Iterations(128);
BENCHMARK_CAPTURE(moves, WithoutCaps, false)->Unit(benchmark::kMillisecond)->Iterations(128);

} // namespace

BENCHMARK_MAIN();
