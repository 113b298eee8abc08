// What a selection costs beside a look at everything: each triangle of each place where it is shown against
// the same ray.
//
//     pick_cost [instances [triangles of a part]]     a lattice of 20 parts; 10000 and 2000 if left out
//     pick_cost file                                  a model file
#include "CadDocument.h"
#include "PickScene.h"
#include "SceneDefaults.h"
#include "affine.h"
#include "geometry_records.h"
#include "lattice.h"
#include "walk.h"
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <hps/SelectionControl.h>
#include <random>
#include <set>

namespace
{

using namespace HPS;
using namespace HPS::scene;

constexpr int Width = 1280, Height = 720;

double milliseconds(std::function<void()> const& work)
{
    auto const start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

/// All shells where they are shown.
struct Shown {
    ShellData const* shell;
    render::Mat4 fromWorld;
};
struct Everything {
    std::vector<Shown> shells;
    std::size_t triangles = 0; ///< of all places
    std::size_t bytes = 0;     ///< of geometry, once
    std::size_t ownTriangles = 0;

    explicit Everything(SegmentKey const& top)
    {
        NetFold fold;
        std::set<ShellData const*> known;
        render::walk(fold, fold.root(), *store().resolve<SegmentRecord>(top),
                     [&](SegmentRecord const& segment, NetAttributes const& net) {
                         for (SlotIndex const slot : segment.geometry)
                             if (auto const* const shell = store().at<ShellRecord>(slot))
                                 add(shell->data, net, known);
                         return true;
                     });
    }
    void add(ShellData const& shell, NetAttributes const& net, std::set<ShellData const*>& known)
    {
        auto const back = selection::inverseOf(selection::wide(net.matrix));
        if (back) shells.push_back({&shell, *back});
        triangles += shell.facelist.size() / 4;
        if (!known.insert(&shell).second) return;
        ownTriangles += shell.facelist.size() / 4;
        bytes += shell.points.size() * sizeof(Point) + shell.facelist.size() * sizeof(int) +
                 shell.vertexNormals.values.size() * sizeof(Vector);
    }
    /// The least share of the ray at which a triangle is met.
    double nearest(selection::Vec3 const& origin, selection::Vec3 const& direction) const
    {
        double least = 1e300;
        for (Shown const& shown : shells) {
            auto const o = render::transformPoint(origin, shown.fromWorld);
            auto const d = selection::transformDirection(direction, shown.fromWorld);
            auto const& list = shown.shell->facelist;
            for (std::size_t i = 0; i + 3 < list.size(); i += 4) {
                auto at = [&](std::size_t k) {
                    return selection::wide(shown.shell->points[std::size_t(list[i + k])]);
                };
                auto const a = at(1), u = at(2) - a, v = at(3) - a, h = cross(d, v);
                double const determinant = dot(u, h);
                if (determinant == 0) continue;
                double const f = 1 / determinant;
                auto const from = o - a;
                double const s = f * dot(from, h);
                if (s < 0 || s > 1) continue;
                auto const g = cross(from, u);
                double const t = f * dot(d, g);
                if (t < 0 || s + t > 1) continue;
                least = std::min(least, f * dot(v, g));
            }
        }
        return least;
    }
};

struct Times {
    std::vector<double> all;
    void print(char const* what, double found)
    {
        std::sort(all.begin(), all.end());
        double sum = 0;
        for (double const t : all) sum += t;
        std::printf("%-44s median %8.4f  mean %8.4f  longest %8.4f ms, %.1f found\n", what,
                    all[all.size() / 2], sum / double(all.size()), all.back(), found / double(all.size()));
    }
};

void measure(Canvas const& canvas, Model const& model, std::vector<SegmentKey> places)
{
    Everything const everything(model.GetSegmentKey());
    SelectionControl const control = canvas.GetWindowKey().GetSelectionControl();
    SelectionOptionsKit one, all;
    one.SetLevel(Selection::Level::Entity);
    all.SetLevel(Selection::Level::Entity).SetRelatedLimit(2147483647).SetSorting(Selection::Sorting::Off);
    SelectionResults results;
    std::mt19937 random(2);
    std::uniform_real_distribution<float> across(-0.9f, 0.9f);

    std::printf("%zu triangles in %zu shells as shown, %zu of their own in %.1f MB\n", everything.triangles,
                everything.shells.size(), everything.ownTriangles, 1e-6 * double(everything.bytes));
    auto pick = [&](SelectionOptionsKit const& options) {
        return milliseconds([&] {
            control.SelectByPoint({across(random), across(random), 0}, options, results);
        });
    };
    double const first = milliseconds([&] { control.SelectByPoint({0, 0, 0}, one, results); });
    // What a pick does not come near has no hierarchy yet.
    double const rest = milliseconds([&] { control.SelectByArea({-1, 1, -1, 1}, all, results); });
    auto const& scene = selection::PickScene::instance();
    std::printf("first pick %.2f ms; the whole window after that %.2f ms, %zu found; structure %.2f MB of "
                "shapes, %.2f MB "
                "of segments\n",
                first, rest, results.GetCount(), 1e-6 * double(scene.shapes.bytes()),
                1e-6 * double(scene.index.bytes()));

    Times points, squares, large, moved, floor;
    double found[5]{};
    for (int i = 0; i < 1000; ++i) {
        points.all.push_back(pick(one));
        found[0] += double(results.GetCount());
        auto square = [&](float half) {
            float const x = across(random), y = across(random);
            Rectangle const area(x - half / Width, x + half / Width, y - half / Height, y + half / Height);
            return milliseconds([&] { control.SelectByArea(area, all, results); });
        };
        squares.all.push_back(square(9));
        found[1] += double(results.GetCount());
        if (i % 10 == 0) {
            large.all.push_back(square(200));
            found[2] += double(results.GetCount());
        }
        if (i % 10 == 0 && !places.empty()) {
            places[std::size_t(i) * 7 % places.size()].GetModellingMatrixControl().Translate(0.01, 0, 0);
            moved.all.push_back(pick(one));
            found[3] += double(results.GetCount());
        }
    }
    points.print("point, nearest", found[0]);
    squares.print("9 x 9 pixels, everything", found[1]);
    large.print("200 x 200 pixels, everything", found[2]);
    if (!moved.all.empty()) moved.print("point, after a part was moved", found[3]);

    CameraKit camera;
    canvas.GetFrontView().ShowCamera(camera);
    Point eye;
    camera.ShowPosition(eye);
    for (int i = 0; i < 5; ++i) {
        Point to;
        canvas.GetWindowKey().ConvertCoordinate(
            Coordinate::Space::Window, {across(random), across(random), 0}, Coordinate::Space::World, to);
        floor.all.push_back(milliseconds([&] {
            if (everything.nearest(selection::wide(eye), selection::wide(to - eye)) < 1e299) ++found[4];
        }));
    }
    floor.print("floor: every triangle, one ray", found[4]);
    std::printf("ratio of a point to the floor 1 : %.0f\n", floor.all[2] / points.all[500]);
}

} // namespace

int main(int argc, char** argv)
{
    World world;
    MoraCore::AViewTree tree;
    ZelCad::CadDocument document(&tree);
    Model model = Factory::CreateModel();
    std::vector<SegmentKey> places;
    if (argc > 1 && std::filesystem::exists(argv[1])) {
        if (!document.Open(std::filesystem::absolute(argv[1]).wstring().c_str())) return 1;
        model = document.GetModel();
    } else {
        int const instances = argc > 1 ? std::atoi(argv[1]) : 10000,
                  triangles = argc > 2 ? std::atoi(argv[2]) : 2000;
        if (instances < 1 || triangles < 1) return 1;
        places = bench::fillLattice(model, instances, triangles);
    }
    Canvas canvas = Factory::CreateOffScreenCanvas(Width, Height);
    View view = Factory::CreateView();
    canvas.AttachViewAsLayout(view);
    view.AttachModel(model);
    view.FitWorld();
    CameraKit camera;
    view.ShowCamera(camera);
    view.SetCamera(camera.SetProjection(Camera::Projection::Perspective));
    measure(canvas, model, places);
    return 0;
}
