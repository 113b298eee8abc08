#include "ViewFrame.h"
#include "bounding.h"
#include "geometry_records.h"
#include "net_attributes.h"
#include <hps/KeyPath.h>

namespace HPS
{
using namespace scene;

namespace
{

using Space = Coordinate::Space;
using Triple = ViewFrame::Triple;

// The spaces in their order from the object to the screen; each is one step from its neighbours. The inner
// spaces branch off window space.
enum class Stage { Object, World, Camera, Window, Pixel };

Stage stageOf(Space space)
{
    switch (space) {
    case Space::Object:
        return Stage::Object;
    case Space::World:
        return Stage::World;
    case Space::Camera:
        return Stage::Camera;
    case Space::Window:
    case Space::InnerWindow:
        return Stage::Window;
    case Space::Pixel:
    case Space::InnerPixel:
        return Stage::Pixel;
    }
    return Stage::Object;
}

Triple mapped(MatrixKit const& matrix, Triple const& p)
{
    auto const q = matrix.Transform(Point(float(p[0]), float(p[1]), float(p[2])));
    return {q.x, q.y, q.z};
}

// What a path has to say about the way from its leaf to the screen.
class Conversion
{
public:
    // Nothing on the path may be stale.
    explicit Conversion(std::vector<SegmentRecord const*> const& rootFirst)
    {
        NetFold fold;
        auto net = fold.root();
        for (auto const* const segment : rootFirst) {
            net = fold.step(net, *segment);
            if (auto const* const found = store().at<WindowRecord>(segment->slot)) window_ = found;
        }
        toWorld_ = net.matrix;
        invertible_ = toWorld_.ShowInverse(toObject_);
        frame_.emplace(net.state->get<CameraData>(), window_ ? window_->width : 1,
                       window_ ? window_->height : 1);
    }

    bool convert(Triple& p, Space from, Space to) const
    {
        auto stage = static_cast<int>(stageOf(from));
        auto const wanted = static_cast<int>(stageOf(to));
        for (; stage < wanted; ++stage)
            if (!forth(static_cast<Stage>(stage), p)) return false;
        for (; stage > wanted; --stage)
            if (!back(static_cast<Stage>(stage), p)) return false;
        return true;
    }

private:
    bool forth(Stage stage, Triple& p) const
    {
        switch (stage) {
        case Stage::Object:
            p = mapped(toWorld_, p);
            return true;
        case Stage::World:
            p = frame_->toCamera(p);
            return true;
        case Stage::Camera:
            return window_ && frame_->toWindow(p);
        case Stage::Window:
            if (!window_) return false;
            p[0] = (p[0] + 1) / 2 * window_->width;
            p[1] = (1 - p[1]) / 2 * window_->height;
            return true;
        case Stage::Pixel:
            break;
        }
        return false;
    }
    bool back(Stage stage, Triple& p) const
    {
        switch (stage) {
        case Stage::Pixel:
            if (!window_) return false;
            p[0] = p[0] / window_->width * 2 - 1;
            p[1] = 1 - p[1] / window_->height * 2;
            return true;
        case Stage::Window:
            return window_ && frame_->fromWindow(p);
        case Stage::Camera:
            p = frame_->toWorld(p);
            return true;
        case Stage::World:
            if (invertible_) p = mapped(toObject_, p);
            return invertible_;
        case Stage::Object:
            break;
        }
        return false;
    }

    MatrixKit toWorld_, toObject_;
    bool invertible_ = false;
    WindowRecord const* window_ = nullptr;
    std::optional<ViewFrame> frame_;
};

std::optional<Conversion> conversionAlong(KeyPath const& path)
{
    auto const segments = segmentsOf(path.Keys());
    if (path.Empty() || !segments) return std::nullopt;
    return Conversion(*segments);
}

} // namespace

bool KeyPath::ConvertCoordinate(Coordinate::Space from, Point const& point, Coordinate::Space to,
                                Point& converted) const
{
    std::vector<Point> points;
    if (!ConvertCoordinate(from, std::vector<Point>{point}, to, points)) return false;
    converted = points.front();
    return true;
}

bool KeyPath::ConvertCoordinate(Coordinate::Space from, std::vector<Point> const& points,
                                Coordinate::Space to, std::vector<Point>& converted) const
{
    auto const conversion = conversionAlong(*this);
    if (!conversion) return false;
    std::vector<Point> result;
    result.reserve(points.size());
    for (auto const& point : points) {
        Triple p{point.x, point.y, point.z};
        if (!conversion->convert(p, from, to)) return false;
        result.emplace_back(float(p[0]), float(p[1]), float(p[2]));
    }
    converted = std::move(result);
    return true;
}

bool KeyPath::ComputeExtent(Rectangle& extent) const
{
    auto const conversion = conversionAlong(*this);
    SimpleCuboid const box = conversion ? leafBox(Front()) : SimpleCuboid();
    if (!box.IsValid()) return false;
    SimpleCuboid seen;
    for (auto const& corner : cornersOf(box)) {
        Triple p{corner.x, corner.y, corner.z};
        // What stands behind the eye is not seen.
        if (conversion->convert(p, Space::Object, Space::Window))
            seen.Merge(Point(float(p[0]), float(p[1]), 0));
    }
    if (!seen.IsValid()) return false;
    extent = {seen.min.x, seen.max.x, seen.min.y, seen.max.y};
    return true;
}

} // namespace HPS
