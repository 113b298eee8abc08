#include "ViewFrame.h"
#include "bounding.h"
#include "geometry_records.h"
#include "net_attributes.h"
#include <algorithm>
#include <hps/KeyPath.h>

namespace HPS
{
using namespace scene;

namespace
{

using Space = Coordinate::Space;
using Triple = ViewFrame::Triple;

// The spaces in their order from the object to the screen; each is one step from its neighbours.
constexpr std::array order{Space::Object,     Space::World, Space::Camera, Space::InnerWindow,
                           Space::InnerPixel, Space::Pixel, Space::Window};

std::size_t stageOf(Space space)
{
    return static_cast<std::size_t>(std::find(order.begin(), order.end(), space) - order.begin());
}

// A part of a window in pixels from its top left corner.
struct Area {
    double left, top, width, height;

    void toWindow(Triple& p) const
    {
        p[0] = p[0] / width * 2 - 1;
        p[1] = 1 - p[1] / height * 2;
    }
    void toPixel(Triple& p) const
    {
        p[0] = (p[0] + 1) / 2 * width;
        p[1] = (1 - p[1]) / 2 * height;
    }
    // The part of this one that a subwindow takes; at least a pixel.
    Area inner(Rectangle const& position, IntRectangle const& offsets) const
    {
        Triple corner{position.left, position.top, 0}, opposite{position.right, position.bottom, 0};
        toPixel(corner);
        toPixel(opposite);
        // Offsets count upwards.
        double const x = corner[0] + offsets.left, y = corner[1] - offsets.top;
        return {left + x, top + y, std::max(1.0, opposite[0] + offsets.right - x),
                std::max(1.0, opposite[1] - offsets.bottom - y)};
    }
};

Triple mapped(MatrixKit const& matrix, Triple const& p)
{
    auto const q = matrix.Transform(Point(float(p[0]), float(p[1]), float(p[2])));
    return {q.x, q.y, q.z};
}

// What a path has to say about the way from its leaf to the screen.
class Conversion
{
public:
    explicit Conversion(std::vector<SegmentRecord const*> const& rootFirst)
    {
        NetFold fold;
        auto net = fold.root();
        for (auto const* const segment : rootFirst) {
            net = fold.step(net, *segment);
            if (auto const* const found = store().at<WindowRecord>(segment->slot)) {
                window_ = {0, 0, double(found->width), double(found->height)};
                inner_ = window_;
            } else if (auto const& data = valuesOf<SubwindowData>(segment->kit(KitKind::Subwindow)).subwindow;
                       inner_ && data) {
                inner_ = inner_->inner(std::get<0>(*data), std::get<1>(*data));
            }
        }
        toWorld_ = net.matrix;
        invertible_ = toWorld_.ShowInverse(toObject_);
        auto const area = inner_.value_or(Area{0, 0, 1, 1});
        frame_.emplace(net.state->get<CameraData>(), area.width, area.height);
    }

    bool convert(Triple& p, Space from, Space to) const
    {
        auto stage = stageOf(from);
        auto const wanted = stageOf(to);
        if (!window_ && std::max(stage, wanted) > stageOf(Space::Camera)) return false;
        for (; stage < wanted; ++stage)
            if (!forth(order[stage], p)) return false;
        for (; stage > wanted; --stage)
            if (!back(order[stage], p)) return false;
        return true;
    }

private:
    // To the next space.
    bool forth(Space space, Triple& p) const
    {
        switch (space) {
        case Space::Object:
            p = mapped(toWorld_, p);
            return true;
        case Space::World:
            p = frame_->toCamera(p);
            return true;
        case Space::Camera:
            return frame_->toWindow(p);
        case Space::InnerWindow:
            inner_->toPixel(p);
            return true;
        case Space::InnerPixel:
            p[0] += inner_->left;
            p[1] += inner_->top;
            return true;
        case Space::Pixel:
            window_->toWindow(p);
            return true;
        case Space::Window:
            break;
        }
        return false;
    }
    // To the one before.
    bool back(Space space, Triple& p) const
    {
        switch (space) {
        case Space::Window:
            window_->toPixel(p);
            return true;
        case Space::Pixel:
            p[0] -= inner_->left;
            p[1] -= inner_->top;
            return true;
        case Space::InnerPixel:
            inner_->toWindow(p);
            return true;
        case Space::InnerWindow:
            return frame_->fromWindow(p);
        case Space::Camera:
            p = frame_->toWorld(p);
            return true;
        case Space::World:
            if (invertible_) p = mapped(toObject_, p);
            return invertible_;
        case Space::Object:
            break;
        }
        return false;
    }

    MatrixKit toWorld_, toObject_;
    bool invertible_ = false;
    std::optional<Area> window_, inner_; // the window, and the part of it that the leaf is shown in
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
