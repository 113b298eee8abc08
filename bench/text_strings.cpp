// Ten thousand texts of twelve characters: set, drawn for the first time, and drawn again with a camera that
// moves.
#include <benchmark/benchmark.h>
#include <hps/Factory.h>
#include <hps/hps.h>
#include <string>

using namespace HPS;

namespace
{

constexpr int count = 10'000, columns = 40;

struct Sheet {
    Canvas canvas = Factory::CreateOffScreenCanvas(1280, 720);
    View view = Factory::CreateView("view");
    Model model = Factory::CreateModel("model");

    explicit Sheet(bool same)
    {
        canvas.AttachViewAsLayout(view);
        view.AttachModel(model);
        for (int i = 0; i < count; ++i) {
            std::string text = same ? "Kugel 12,5H7" : "Nr " + std::to_string(100'000'000 + i);
            TextKit kit(Point(float(i % columns), float(i / columns) * 0.2f, 0), UTF8(text));
            kit.SetSize(0.12f, Text::SizeUnits::WorldSpace).SetTransform(Text::Transform::Transformable);
            model.GetSegmentKey().InsertText(kit);
        }
        look(0, 60);
    }
    ~Sheet()
    {
        canvas.Delete();
        view.Delete();
        model.Delete();
    }
    void look(float shift, float height)
    {
        CameraKit camera;
        camera.SetPosition({20 + shift, 25, 100}).SetTarget({20 + shift, 25, 0}).SetUpVector({0, 1, 0});
        camera.SetField(height * 16 / 9, height).SetProjection(Camera::Projection::Orthographic);
        view.SetCamera(camera);
    }
};

void firstPicture(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        Sheet sheet(state.range(0) != 0);
        state.ResumeTiming();
        sheet.canvas.Update();
    }
}

/// `height` in units of the world: 60 shows all strings at 1.4 pixels, 6 a tenth of them at 14.
void moving(benchmark::State& state)
{
    Sheet sheet(true);
    sheet.canvas.Update();
    float shift = 0;
    for (auto _ : state) {
        sheet.look(shift += 0.01f, float(state.range(0)));
        sheet.canvas.Update();
    }
    UpdateReport report;
    sheet.canvas.ShowUpdateReport(report);
    state.counters["triangles"] = double(report.triangles);
    state.counters["calls"] = double(report.drawCalls);
}

/// One text of all is written anew.
void oneChanged(benchmark::State& state)
{
    Sheet sheet(true);
    TextKey key = sheet.model.GetSegmentKey().Subsegment("own").InsertText({0, 0, 0}, "text");
    sheet.canvas.Update();
    int i = 0;
    for (auto _ : state) {
        TextKit kit(Point(0, 0, 0), UTF8(std::to_string(i++)));
        key.Consume(kit);
        sheet.canvas.Update();
    }
}

BENCHMARK(firstPicture)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(moving)->Arg(60)->Arg(20)->Arg(6)->Unit(benchmark::kMillisecond);
BENCHMARK(oneChanged)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
