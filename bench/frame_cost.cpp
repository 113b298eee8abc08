// What a frame costs beside the least that it could: the same triangles, from the same buffers and by the
// same program, as one indirect call that knows nothing of culling and order.
//
//     frame_cost [instances [triangles of a part]]     a lattice of 20 parts; 10000 and 2000 if left out
//     frame_cost file                                  a model file
#include "CadDocument.h"
#include "CallList.h"
#include "Device.h"
#include "ListBuffers.h"
#include "SceneCompiler.h"
#include "SceneDefaults.h"
#include "VisibleRecords.h"
#include "bindings.h"
#include "frame_block.h"
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <epoxy/gl.h>
#include <filesystem>
#include <fstream>
#include <hps/HighlightControl.h>
#include <memory>
#include <numbers>
#include <unistd.h>

namespace
{

using namespace HPS;

constexpr int Width = 1280, Height = 720, Frames = 24;

/// Runs from its making on.
class Watch
{
public:
    double milliseconds() const
    {
        return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start_).count();
    }

private:
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

/// Bytes of memory that the process has in use.
std::size_t residentBytes()
{
    std::size_t total = 0, resident = 0;
    std::ifstream("/proc/self/statm") >> total >> resident;
    return resident * std::size_t(sysconf(_SC_PAGESIZE));
}

ShellKit ball(int triangles)
{
    int const rows = std::max(3, int(std::sqrt(triangles / 4.0))), columns = rows * 2;
    std::vector<Point> points;
    std::vector<Vector> normals;
    std::vector<int> faces;
    for (int r = 0; r <= rows; ++r)
        for (int c = 0; c < columns; ++c) {
            double const polar = std::numbers::pi * r / rows, turn = 2 * std::numbers::pi * c / columns;
            Vector const n(float(std::sin(polar) * std::cos(turn)), float(std::cos(polar)),
                           float(std::sin(polar) * std::sin(turn)));
            normals.push_back(n);
            points.emplace_back(0.4f * n.x, 0.4f * n.y, 0.4f * n.z);
        }
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < columns; ++c) {
            int const a = r * columns + c, b = r * columns + (c + 1) % columns;
            if (r > 0) faces.insert(faces.end(), {3, a, b, a + columns});
            if (r + 1 < rows) faces.insert(faces.end(), {3, b, b + columns, a + columns});
        }
    ShellKit kit;
    kit.SetPoints(points).SetFacelist(faces).SetVertexNormalsByRange(0, normals);
    return kit;
}

void fillLattice(Model const& model, int instances, int triangles)
{
    constexpr int Parts = 20;
    std::vector<SegmentKey> parts;
    for (int i = 0; i < Parts; ++i) {
        parts.push_back(model.GetLibraryKey().Subsegment("part " + std::to_string(i)));
        parts.back().InsertShell(ball(triangles));
        parts.back().GetMaterialMappingControl().SetFaceColor(RGBAColor(0.3f + 0.03f * float(i), 0.5f, 0.6f));
    }
    int const side = int(std::ceil(std::cbrt(instances)));
    for (int i = 0; i < instances; ++i) {
        SegmentKey place = model.GetSegmentKey().Subsegment();
        place.IncludeSegment(parts[std::size_t(i % Parts)]);
        place.GetModellingMatrixControl().Translate(i % side, i / side % side, i / side / side);
    }
}

struct Times {
    std::vector<double> all;
    double median()
    {
        std::sort(all.begin(), all.end());
        return all[all.size() / 2];
    }
};

void turn(View& view, int step)
{
    CameraKit camera;
    view.GetSegmentKey().ShowCamera(camera);
    Point position, target;
    camera.ShowPosition(position);
    camera.ShowTarget(target);
    double const a = 0.05, c = std::cos(a), s = std::sin(a) * (step < Frames / 2 ? 1 : -1);
    Vector const v(position.x - target.x, position.y - target.y, position.z - target.z);
    camera.SetPosition(
        Point(float(target.x + c * v.x - s * v.y), float(target.y + s * v.x + c * v.y), position.z));
    view.SetCamera(camera);
}

/// All records of a list as they are, by pipeline and mesh.
class Floor
{
public:
    explicit Floor(render::DrawList const& list) : list_(list)
    {
        buffers_.upload(list);
        std::vector<std::uint32_t> order;
        for (std::uint32_t i = 0; i < list.records.size(); ++i)
            if (!list.records[i].gone()) order.push_back(i);
        std::stable_sort(order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) {
            return list.records[a].pipeline < list.records[b].pipeline;
        });
        for (std::uint32_t i : order)
            calls_.push(list.records[i].pipeline, buffers_.instances(), list.records[i].range, i);
    }
    void draw(render::Target const& target, render::Scene const& scene)
    {
        render::FrameCounts counts;
        render::Viewing const viewing(scene.camera, target.width(), target.height(), list_.bounds);
        auto const block = render::frameBlock(viewing, target.width(), target.height());
        frame_.fill(std::span(&block, 1));
        glBindBufferBase(GL_UNIFORM_BUFFER, render::FrameBinding, frame_.name());
        buffers_.bindMaterials();
        target.bind();
        glDepthMask(GL_TRUE);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        glEnable(GL_DEPTH_TEST);
        calls_.submit({target, list_, scene, viewing, true, buffers_.instances(), counts});
        target.resolve();
    }

private:
    render::DrawList const& list_;
    render::ListBuffers buffers_;
    render::CallList calls_;
    render::Buffer frame_;
};

void measure(Model const& model)
{
    Canvas canvas = Factory::CreateOffScreenCanvas(Width, Height);
    View view = Factory::CreateView();
    canvas.AttachViewAsLayout(view);
    std::unique_ptr<ZELVizCore::RenderingOptions> const options(
        ZELVizCore::RenderingOptions::CreateDefault());
    ZelVizBase::SceneDefaults::Setup(canvas, view, *options);
    view.GetSegmentKey().GetVisibilityControl().SetShadows(false); // the floor has none
    view.AttachModel(model);
    view.FitWorld();
    std::size_t const before = residentBytes();
    Watch first;
    if (!canvas.Update()) {
        UTF8 cause;
        canvas.ShowFailure(cause);
        std::printf("no picture: %s\n", cause.GetBytes());
        return;
    }
    UpdateReport report;
    canvas.ShowUpdateReport(report);
    std::printf("first frame            %9.2f ms (device %.1f, list and meshes %.1f, drawing %.1f)\n",
                first.milliseconds(), report.startMilliseconds, report.compileMilliseconds,
                report.drawMilliseconds);
    std::printf("triangles, records     %9llu, %u\n", static_cast<unsigned long long>(report.triangles),
                report.records);
    std::printf("memory for it          %9.1f MB\n", double(residentBytes() - before) / 1e6);

    Times frames, compile;
    for (int i = 0; i < Frames; ++i) {
        turn(view, i);
        Watch one;
        canvas.Update();
        frames.all.push_back(one.milliseconds());
        canvas.ShowUpdateReport(report);
        compile.all.push_back(report.compileMilliseconds);
    }

    render::SceneCompiler compiler;
    KeyPath const path = SprocketPath(canvas, canvas.GetAttachedLayout(), view).GetKeyPath();
    std::vector<KeyIndex> keys;
    for (Key const& key : path.Keys()) keys.insert(keys.begin(), key.Index());
    compiler.update(keys, true);
    render::Scene const& scene = compiler.scene();
    render::Target target;
    target.resize(Width, Height, 4);
    Floor floor(compiler.list());
    floor.draw(target, scene);
    Times least, choose;
    render::VisibleRecords visible;
    for (int i = 0; i < Frames; ++i) {
        turn(view, i);
        compiler.update(keys, false);
        Watch one;
        floor.draw(target, scene);
        least.all.push_back(one.milliseconds());
        render::FrameCounts counts;
        render::Viewing const viewing(scene.camera, Width, Height, compiler.list().bounds);
        Watch cpu;
        visible.choose({target, compiler.list(), scene, viewing, true, 0, counts});
        render::CallList calls;
        for (render::RecordRun const& run : visible.opaque())
            calls.push(compiler.list().records[run.first].pipeline, 0,
                       compiler.list().records[run.first].range, run.first, run.count);
        choose.all.push_back(cpu.milliseconds());
    }
    double const frame = frames.median(), floorTime = least.median();
    std::printf("frame of an orbit      %9.2f ms\n", frame);
    std::printf("floor                  %9.2f ms, ratio %.3f\n", floorTime, frame / floorTime);
    std::printf("list after a camera    %9.3f ms\n", compile.median());
    std::printf("culling and commands   %9.3f ms\n", choose.median());

    SegmentKeyArray children;
    if (model.GetSegmentKey().ShowSubsegments(children)) {
        Times colour;
        for (int i = 0; i < Frames; ++i) {
            children[std::size_t(i) % children.size()].GetMaterialMappingControl().SetFaceColor(
                RGBAColor(0.04f * float(i), 0, 0));
            Watch one;
            compiler.update(keys, false);
            colour.all.push_back(one.milliseconds());
        }
        std::printf("list after a colour    %9.3f ms\n", colour.median());
        canvas.GetWindowKey().GetHighlightControl().Highlight(children.front(),
                                                              HighlightOptionsKit::GetDefault());
        Watch one;
        compiler.update(keys, false);
        std::printf("list after a highlight %9.3f ms\n", one.milliseconds());
    }
    canvas.Delete();
    view.Delete();
}

} // namespace

int main(int argc, char** argv)
{
    World world;
    std::string const argument = argc > 1 ? argv[1] : "10000";
    if (argument.find_first_not_of("0123456789") != std::string::npos) {
        MoraCore::AViewTree tree;
        ZelCad::CadDocument document(&tree);
        if (!document.Open(std::filesystem::path(argument).wstring().c_str())) {
            std::printf("%s cannot be read\n", argument.c_str());
            return 1;
        }
        document.Render(true);
        measure(document.GetModel());
        return 0;
    }
    Model const model = Factory::CreateModel("lattice");
    fillLattice(model, std::atoi(argument.c_str()), argc > 2 ? std::atoi(argv[2]) : 2000);
    measure(model);
}
