#include "Probe.h"

namespace HPS::selection
{
namespace
{

double distance(Pixel const& a, Pixel const& b)
{
    return std::hypot(a.x - b.x, a.y - b.y);
}

/// Share of the way from `a` to `b` where the line comes nearest to `p`.
double nearestShare(Pixel const& a, Pixel const& b, Pixel const& p)
{
    double const x = b.x - a.x, y = b.y - a.y, square = x * x + y * y;
    return square > 0 ? std::clamp(((p.x - a.x) * x + (p.y - a.y) * y) / square, 0.0, 1.0) : 0;
}

bool surrounds(std::span<Pixel const> polygon, Pixel const& p)
{
    bool inside = false;
    for (std::size_t i = 0, k = polygon.size() - 1; i < polygon.size(); k = i++) {
        Pixel const &a = polygon[i], &b = polygon[k];
        if ((a.y > p.y) != (b.y > p.y) && p.x < (b.x - a.x) * (p.y - a.y) / (b.y - a.y) + a.x)
            inside = !inside;
    }
    return inside;
}

} // namespace

Probe Probe::atPixel(PickFrame const& frame, Pixel const& pixel)
{
    Probe probe(frame);
    probe.ray_ = frame.rayThrough(pixel);
    probe.centre_ = pixel;
    probe.area_ = PixelArea{pixel.x, pixel.y, pixel.x, pixel.y};
    return probe;
}

Probe Probe::ofArea(PickFrame const& frame, PixelArea const& area)
{
    Probe probe(frame);
    probe.area_ = area;
    probe.centre_ = area.middle();
    return probe;
}

Probe Probe::alongRay(PickFrame const& frame, Ray const& ray, bool seen)
{
    Probe probe(frame);
    Vec3 const direction = normalised(ray.direction, {0, 0, -1});
    probe.ray_ = Ray{ray.origin, direction, false};
    probe.depth_ = {direction, -dot(direction, ray.origin)};
    probe.alongRay_ = true;
    probe.depthOfTarget_ = frame.depthAtTarget();
    double const pixel = frame.worldPerPixel(probe.depthOfTarget_);
    Vec3 const some = std::abs(direction.z) < 0.9 ? Vec3{0, 0, 1} : Vec3{0, 1, 0};
    probe.across_ = normalised(cross(some, direction), {1, 0, 0}) * pixel;
    probe.upwards_ = cross(direction, probe.across_);
    if (seen) probe.fixed_ = frame.planes(frame.area());
    probe.fixed_.push_back(probe.depth_);
    return probe;
}

Probe Probe::ofVolume(PickFrame const& frame, std::vector<CutPlane> planes, bool seen)
{
    Probe probe(frame);
    probe.fixed_ = std::move(planes);
    probe.centre_ = frame.area().middle();
    if (seen)
        for (CutPlane const& plane : frame.planes(frame.area())) probe.fixed_.push_back(plane);
    return probe;
}

std::vector<CutPlane> Probe::makePlanes(double reach) const
{
    std::vector<CutPlane> planes;
    if (area_) planes = frame_->planes(area_->widened(reach));
    if (alongRay_)
        for (Vec3 const& side : {across_, across_ * -1, upwards_, upwards_ * -1}) {
            double const pixel = length(side);
            Vec3 const normal = side * (1 / pixel);
            planes.push_back({normal, reach * pixel - dot(normal, ray_->origin)});
        }
    planes.insert(planes.end(), fixed_.begin(), fixed_.end());
    return planes;
}

std::vector<CutPlane> const& Probe::planes(double reach) const
{
    auto const [found, isNew] = byReach_.try_emplace(reach);
    if (isNew) found->second = makePlanes(reach);
    return found->second;
}

bool Probe::isSeen(Vec3 const& onRay) const
{
    return std::all_of(fixed_.begin(), fixed_.end(),
                       [&](CutPlane const& plane) { return plane.at(onRay) >= 0; });
}

// As pixels; for a ray in the world as its pixels, with the ray in the middle.
std::optional<Pixel> Probe::seenFromHere(Vec3 const& world) const
{
    if (!alongRay_) return frame_->pixelOf(world);
    Vec3 const from = world - ray_->origin;
    double const square = dot(across_, across_);
    return Pixel{dot(from, across_) / square, dot(from, upwards_) / square};
}

double Probe::distanceOf(std::span<Vec3 const> corners) const
{
    std::array<Pixel, Convex::most> pixels;
    std::size_t count = 0;
    for (Vec3 const& corner : corners)
        if (auto const pixel = seenFromHere(corner)) pixels[count++] = *pixel;
    if (count == 0) return std::numeric_limits<double>::max();
    if (count > 2 && surrounds({pixels.data(), count}, centre_)) return 0;
    double least = distance(pixels[0], centre_);
    for (std::size_t i = 0; i + 1 < count + (count > 2 ? 1 : 0); ++i) {
        Pixel const &a = pixels[i], &b = pixels[(i + 1) % count];
        double const share = nearestShare(a, b, centre_);
        least = std::min(least, distance({a.x + (b.x - a.x) * share, a.y + (b.y - a.y) * share}, centre_));
    }
    return least;
}

Vec3 Probe::placeOn(std::span<Vec3 const> corners) const
{
    if (ray_ && corners.size() == 2) {
        auto const a = seenFromHere(corners[0]), b = seenFromHere(corners[1]);
        if (a && b) {
            double share = nearestShare(*a, *b, centre_);
            // Equal steps on the screen are no equal steps in space where there is a perspective.
            if (!alongRay_ && frame_->perspective()) {
                double const from = depth_.at(corners[0]), to = depth_.at(corners[1]);
                double const scale = to + share * (from - to);
                if (scale > 0) share = share * from / scale;
            }
            return corners[0] + (corners[1] - corners[0]) * share;
        }
    }
    Vec3 first = corners[0];
    double least = depth_.at(first);
    for (Vec3 const& corner : corners)
        if (double const depth = depth_.at(corner); depth < least) least = depth, first = corner;
    return first;
}

} // namespace HPS::selection
