// The road of a file, stage by stage: reading, scene graph and tree, first picture. On the project's own sample and on
// every model file under the folder that ZEL_BENCH_MODELS names.
#include "CadDocument.h"
#include "SceneDefaults.h"
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>
#include <memory>

namespace
{

namespace fs = std::filesystem;

// Set up once: the scene library's world stands as long as the process.
HPS::World& world()
{
    static HPS::World instance;
    return instance;
}

class Opened
{
public:
    explicit Opened(fs::path const& file) : Good(Document.Open(file.wstring().c_str())) {}

    MoraCore::AViewTree TreeView;
    ZelCad::CadDocument Document{&TreeView};
    bool Good;
};

void read(benchmark::State& state, fs::path const& file)
{
    for (auto _ : state) {
        Opened opened(file);
        if (!opened.Good) {
            state.SkipWithError("cannot be read");
            return;
        }
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(fs::file_size(file)));
}

void sceneAndTree(benchmark::State& state, fs::path const& file)
{
    Opened opened(file);
    if (!opened.Good) return state.SkipWithError("cannot be read");
    for (auto _ : state) opened.Document.Render(true);
    state.counters["scene_ms"] = 1e3 * opened.Document.GetSceneTime().count();
    state.counters["tree_ms"] = 1e3 * opened.Document.GetTreeTime().count();
}

void firstPicture(benchmark::State& state, fs::path const& file)
{
    Opened opened(file);
    if (!opened.Good) return state.SkipWithError("cannot be read");
    std::unique_ptr<ZELVizCore::RenderingOptions> const options(ZELVizCore::RenderingOptions::CreateDefault());
    HPS::Picture pixels;
    for (auto _ : state) {
        HPS::Canvas canvas = HPS::Factory::CreateOffScreenCanvas(1280, 720);
        HPS::View view = HPS::Factory::CreateView();
        canvas.AttachViewAsLayout(view);
        ZelVizBase::SceneDefaults::Setup(canvas, view, *options);
        view.AttachModel(opened.Document.GetModel());
        view.FitWorld();
        if (!canvas.Update() || !canvas.ReadPixels(pixels)) return state.SkipWithError("no graphics");
        view.Delete();
        canvas.Delete();
    }
}

bool isModel(fs::path const& file)
{
    static constexpr char const* SideFiles[] = {".bin", ".mtl", ".png", ".jpg", ".md"};
    for (char const* extension : SideFiles)
        if (file.extension() == extension) return false;
    return true;
}

void add(fs::path const& file)
{
    std::string const name = file.filename().string();
    benchmark::RegisterBenchmark(("read/" + name).c_str(), read, file)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(("scene_and_tree/" + name).c_str(), sceneAndTree, file)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(("first_picture/" + name).c_str(), firstPicture, file)
        ->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char** argv)
{
    world();
    add(fs::path(ZEL_SOURCE_DIR) / "samples" / "machine.zel_xml");
    if (char const* models = std::getenv("ZEL_BENCH_MODELS"))
        for (fs::directory_entry const& entry : fs::recursive_directory_iterator(models))
            if (entry.is_regular_file() && isModel(entry.path())) add(entry.path());
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
