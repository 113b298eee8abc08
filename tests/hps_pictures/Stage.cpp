#include "Stage.h"
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

using namespace HPS;

Stage::Stage(int width, int height)
    : canvas(Factory::CreateOffScreenCanvas(width, height)),
      view(Factory::CreateView("view")),
      model(Factory::CreateModel("model"))
{
    canvas.AttachViewAsLayout(view);
    view.AttachModel(model);
    viewSegment().GetVisibilityControl().SetEdges(false).SetMarkers(false);
    background({0.12f, 0.12f, 0.16f}, {0.12f, 0.12f, 0.16f});
    look({0, 0, 10});
}

Stage::~Stage()
{
    canvas.Delete();
    view.Delete();
    model.Delete();
}

KeyPath Stage::path(SegmentKey const& to) const
{
    KeyPath path = SprocketPath(canvas, canvas.GetAttachedLayout(), view, model).GetKeyPath();
    if (!(to == root())) path.PushFront(to);
    return path;
}

void Stage::look(Point const& position, float height, bool perspective)
{
    int pixelsWide = 0, pixelsHigh = 0;
    canvas.ShowSize(pixelsWide, pixelsHigh);
    CameraKit camera;
    camera.SetPosition(position).SetTarget({0, 0, 0}).SetUpVector({0, 1, 0});
    camera.SetField(height * float(pixelsWide) / float(pixelsHigh), height);
    camera.SetProjection(perspective ? Camera::Projection::Perspective : Camera::Projection::Orthographic);
    view.SetCamera(camera);
}

void Stage::light()
{
    DistantLightKit light;
    light.SetDirection({0.5f, -0.6f, -1}).SetCameraRelative(true).SetColor(RGBAColor(0.6f, 0.6f, 0.6f));
    viewSegment().InsertDistantLight(light);
}

void Stage::background(RGBAColor const& top, RGBAColor const& bottom)
{
    window().GetMaterialMappingControl().SetWindowColor(top).SetWindowContrastColor(bottom);
}

QImage Stage::picture(Window::UpdateType type)
{
    UTF8 cause;
    EXPECT_TRUE(canvas.Update(type)) << (canvas.ShowFailure(cause) ? cause.GetBytes() : "");
    Picture pixels;
    EXPECT_TRUE(canvas.ReadPixels(pixels));
    return QImage(pixels.pixels.data(), pixels.width, pixels.height, pixels.width * 4,
                  QImage::Format_RGBA8888)
        .convertToFormat(QImage::Format_RGB888);
}

UpdateReport Stage::report() const
{
    UpdateReport report;
    canvas.ShowUpdateReport(report);
    return report;
}

bool Stage::has(std::string_view word) const
{
    return std::find(arguments.begin(), arguments.end(), word) != arguments.end();
}

std::string Stage::value(std::string_view name) const
{
    for (std::string_view argument : arguments)
        if (argument.starts_with(name) && argument.substr(name.size()).starts_with('='))
            return std::string(argument.substr(name.size() + 1));
    return {};
}

ShellKey insertRectangle(SegmentKey segment, Point const& c, float width, float height)
{
    float const x = width / 2, y = height / 2;
    return segment.InsertShell(
        {{c.x - x, c.y - y, c.z}, {c.x + x, c.y - y, c.z}, {c.x + x, c.y + y, c.z}, {c.x - x, c.y + y, c.z}},
        {4, 0, 1, 2, 3});
}

ShellKey insertBox(SegmentKey segment, Point const& low, Point const& high)
{
    std::vector<Point> corners;
    for (int i = 0; i < 8; ++i)
        corners.emplace_back((i & 1) != 0 ? high.x : low.x, (i & 2) != 0 ? high.y : low.y,
                             (i & 4) != 0 ? high.z : low.z);
    return segment.InsertShell(
        corners, {4, 0, 2, 3, 1, 4, 4, 5, 7, 6, 4, 0, 1, 5, 4, 4, 2, 6, 7, 3, 4, 0, 4, 6, 2, 4, 1, 3, 7, 5});
}

ShellKey insertBall(SegmentKey segment, Point const& centre, float radius, int steps)
{
    std::vector<Point> points;
    std::vector<Vector> normals;
    std::vector<int> faces;
    int const rows = steps / 2;
    for (int row = 0; row <= rows; ++row)
        for (int i = 0; i < steps; ++i) {
            float const polar = std::numbers::pi_v<float> * float(row) / float(rows);
            float const turn = 2 * std::numbers::pi_v<float> * float(i) / float(steps);
            Vector const n(std::sin(polar) * std::cos(turn), std::cos(polar),
                           std::sin(polar) * std::sin(turn));
            normals.push_back(n);
            points.emplace_back(centre.x + radius * n.x, centre.y + radius * n.y, centre.z + radius * n.z);
        }
    for (int row = 0; row < rows; ++row)
        for (int i = 0; i < steps; ++i) {
            int const a = row * steps + i, b = row * steps + (i + 1) % steps;
            if (row > 0) faces.insert(faces.end(), {3, a, b, a + steps});
            if (row + 1 < rows) faces.insert(faces.end(), {3, b, b + steps, a + steps});
        }
    ShellKit kit;
    kit.SetPoints(points).SetFacelist(faces).SetVertexNormalsByRange(0, normals);
    return segment.InsertShell(kit);
}

namespace
{

std::vector<NamedScene>& scenes()
{
    static std::vector<NamedScene> all;
    return all;
}

} // namespace

SceneTable::SceneTable(std::initializer_list<NamedScene> some)
{
    scenes().insert(scenes().end(), some);
}

NamedScene const* SceneTable::find(std::string_view name)
{
    auto const found =
        std::find_if(scenes().begin(), scenes().end(), [&](NamedScene const& s) { return s.name == name; });
    return found != scenes().end() ? &*found : nullptr;
}
