// What transparency, shadows and effects cost in a picture of 1280x720: 25 balls of 384 triangles each on a
// floor, four samples a pixel. Each figure is a whole picture; the difference to the plain one is the effect.
#include <benchmark/benchmark.h>
#include <cmath>
#include <hps/Factory.h>
#include <hps/WindowKey.h>
#include <hps/hps.h>
#include <numbers>

using namespace HPS;

namespace
{

struct Scene {
    Canvas canvas = Factory::CreateOffScreenCanvas(1280, 720);
    View view = Factory::CreateView("view");
    Model model = Factory::CreateModel("model");
    SegmentKey balls = model.GetSegmentKey().Subsegment("balls");

    Scene()
    {
        canvas.AttachViewAsLayout(view);
        view.AttachModel(model);
        view.GetSegmentKey().GetVisibilityControl().SetEdges(false);
        DistantLightKit light;
        light.SetDirection({0.5f, -0.4f, -1}).SetColor(RGBAColor(0.6f, 0.6f, 0.6f));
        view.GetSegmentKey().InsertDistantLight(light);
        CameraKit camera;
        camera.SetPosition({4, -6, 8}).SetTarget({0, 0, 0}).SetUpVector({0, 0, 1}).SetField(16, 9);
        camera.SetProjection(Camera::Projection::Orthographic);
        view.SetCamera(camera);
        for (int i = 0; i < 25; ++i) addBall(float(i % 5) * 1.6f - 3.2f, float(i / 5) * 1.6f - 3.2f);
        SegmentKey floor = model.GetSegmentKey().Subsegment("floor");
        floor.InsertShell({{-5, -5, -0.8f}, {5, -5, -0.8f}, {5, 5, -0.8f}, {-5, 5, -0.8f}}, {4, 0, 1, 2, 3});
    }
    ~Scene()
    {
        canvas.Delete();
        view.Delete();
        model.Delete();
    }

    void addBall(float x, float y)
    {
        constexpr int steps = 16, rows = 13;
        std::vector<Point> points;
        std::vector<int> faces;
        for (int row = 0; row < rows; ++row)
            for (int i = 0; i < steps; ++i) {
                float const polar = std::numbers::pi_v<float> * float(row) / float(rows - 1);
                float const turn = 2 * std::numbers::pi_v<float> * float(i) / float(steps);
                points.emplace_back(x + 0.7f * std::sin(polar) * std::cos(turn),
                                    y + 0.7f * std::sin(polar) * std::sin(turn), 0.7f * std::cos(polar));
                if (row + 1 == rows) continue;
                int const a = row * steps + i, b = row * steps + (i + 1) % steps;
                faces.insert(faces.end(), {3, a, a + steps, b, 3, b, a + steps, b + steps});
            }
        balls.InsertShell(points, faces);
    }

    WindowKey window() const { return canvas.GetWindowKey(); }
    VisualEffectsControl visual() const { return view.GetSegmentKey().GetVisualEffectsControl(); }
    void see(float alpha)
    {
        balls.GetMaterialMappingControl().SetFaceColor(RGBAColor(0.4f, 0.6f, 0.9f, alpha));
    }
    void order(Transparency::Algorithm algorithm, Transparency::Preference preference)
    {
        see(0.5f);
        auto control = view.GetSegmentKey().GetTransparencyControl();
        control.SetAlgorithm(algorithm).SetDepthPeelingLayers(3).SetDepthPeelingPreference(preference);
    }
    void effects(PostProcessEffectsKit const& kit) { window().SetPostProcessEffects(kit); }
};

struct Case {
    char const* name;
    void (*set)(Scene& scene);
};

using Algorithm = Transparency::Algorithm;
constexpr auto nicest = Transparency::Preference::Nicest, fastest = Transparency::Preference::Fastest;

Case const cases[] = {
    {"plain", [](Scene&) {}},
    {"transparent, by objects", [](Scene& s) { s.order(Algorithm::Painters, nicest); }},
    {"transparent, by triangles", [](Scene& s) { s.order(Algorithm::ZSortFastest, nicest); }},
    {"transparent, by split triangles", [](Scene& s) { s.order(Algorithm::ZSortNicest, nicest); }},
    {"transparent, 3 layers, a pixel", [](Scene& s) { s.order(Algorithm::DepthPeeling, fastest); }},
    {"transparent, 3 layers, a sample", [](Scene& s) { s.order(Algorithm::DepthPeeling, nicest); }},
    {"transparent, weighted", [](Scene& s) { s.order(Algorithm::WeightedBlended, nicest); }},
    {"screen door",
     [](Scene& s) {
         s.see(0.5f);
         s.view.GetSegmentKey().GetTransparencyControl().SetMethod(Transparency::Method::ScreenDoor);
     }},
    {"shadow maps, 1 sample", [](Scene& s) { s.visual().SetShadowMaps(true, 1, 2048); }},
    {"shadow maps, 16 samples", [](Scene& s) { s.visual().SetShadowMaps(true, 16, 2048); }},
    {"plane shadow", [](Scene& s) { s.view.SetSimpleShadow(true); }},
    {"reflection",
     [](Scene& s) {
         s.visual().SetSimpleReflection(true, 0.5f, 1).SetSimpleReflectionPlane(Plane(0, 0, 1, 0.8f));
     }},
    {"ambient occlusion", [](Scene& s) { s.effects(PostProcessEffectsKit().SetAmbientOcclusion(true)); }},
    {"ambient occlusion, fastest",
     [](Scene& s) {
         s.effects(PostProcessEffectsKit().SetAmbientOcclusion(
             true, 1, PostProcessEffects::AmbientOcclusion::Quality::Fastest));
     }},
    {"bloom", [](Scene& s) { s.effects(PostProcessEffectsKit().SetBloom(true)); }},
    {"bloom, star",
     [](Scene& s) {
         s.effects(PostProcessEffectsKit().SetBloom(true, 1, 5, PostProcessEffects::Bloom::Shape::Star));
     }},
    {"depth of field", [](Scene& s) { s.effects(PostProcessEffectsKit().SetDepthOfField(true)); }},
    {"silhouettes", [](Scene& s) { s.effects(PostProcessEffectsKit().SetSilhouetteEdges(true)); }},
    {"silhouettes, heavy",
     [](Scene& s) { s.effects(PostProcessEffectsKit().SetSilhouetteEdges(true, 1, true)); }},
    {"eye dome", [](Scene& s) { s.effects(PostProcessEffectsKit().SetEyeDomeLighting(true)); }},
};

// The camera moves, so that nothing but what the scene alone decides is kept from picture to picture.
void picture(benchmark::State& state, Case const& what)
{
    Scene scene;
    what.set(scene);
    scene.canvas.Update(Window::UpdateType::Refresh);
    float x = 4;
    for (auto _ : state) {
        CameraKit camera;
        scene.view.ShowCamera(camera);
        scene.view.SetCamera(camera.SetPosition({x += 0.01f, -6, 8}));
        scene.canvas.Update(Window::UpdateType::Refresh);
    }
}

} // namespace

int main(int count, char** arguments)
{
    for (Case const& what : cases)
        benchmark::RegisterBenchmark(what.name, [&](benchmark::State& state) { picture(state, what); })
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
    benchmark::Initialize(&count, arguments);
    benchmark::RunSpecifiedBenchmarks();
}
