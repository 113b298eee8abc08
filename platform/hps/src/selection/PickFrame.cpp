#include "PickFrame.h"

namespace HPS::selection
{

using render::CutPlane;

namespace
{

/// Of the distance from eye to target: what is nearer to the eye is not seen.
constexpr double leastDepth = 1e-6;

} // namespace

PickFrame::PickFrame(render::Camera const& camera, PixelArea const& area)
    : area_(area),
      viewing_(camera, std::max(1, int(area.right - area.left)), std::max(1, int(area.bottom - area.top)),
               Box())
{
    Vec3 const away = viewing_.back * -1;
    depth_ = {away, viewing_.distance - dot(away, viewing_.target)};
}

double PickFrame::acrossOf(double x) const
{
    return ((x - area_.left) / (area_.right - area_.left) * 2 - 1) * viewing_.halfWidth;
}

double PickFrame::upwardsOf(double y) const
{
    return (1 - (y - area_.top) / (area_.bottom - area_.top) * 2) * viewing_.halfHeight;
}

std::vector<CutPlane> PickFrame::planes(PixelArea const& seen) const
{
    std::vector<CutPlane> planes;
    // In the view, what stands beyond `limit` along `axis` at the target's depth; the eye sees along straight
    // lines.
    auto side = [&](Vec3 const& axis, double limit) {
        CutPlane plane{axis, -limit};
        if (viewing_.perspective) plane = {axis + viewing_.back * (limit / viewing_.distance), -limit};
        double const unit = 1 / length(plane.normal);
        plane = {plane.normal * unit, plane.offset * unit};
        plane.offset -= dot(plane.normal, viewing_.target);
        planes.push_back(plane);
    };
    side(viewing_.right, acrossOf(seen.left));
    side(viewing_.right * -1, -acrossOf(seen.right));
    side(viewing_.up, upwardsOf(seen.bottom));
    side(viewing_.up * -1, -upwardsOf(seen.top));
    if (viewing_.perspective)
        planes.push_back({depth_.normal, depth_.offset - leastDepth * viewing_.distance});
    return planes;
}

Ray PickFrame::rayThrough(Pixel const& pixel) const
{
    Vec3 const at = viewing_.target + viewing_.right * acrossOf(pixel.x) + viewing_.up * upwardsOf(pixel.y);
    if (!viewing_.perspective) return {at, viewing_.back * -1, true};
    return {eye(), at - eye()};
}

std::optional<Pixel> PickFrame::pixelOf(Vec3 const& world) const
{
    Vec3 const p = viewing_.toView(world);
    double scale = 1;
    if (viewing_.perspective) {
        double const depth = viewing_.distance - p.z;
        if (!(depth >= 0.5 * leastDepth * viewing_.distance)) return std::nullopt;
        scale = viewing_.distance / depth;
    }
    double const x = p.x * scale / viewing_.halfWidth, y = p.y * scale / viewing_.halfHeight;
    return Pixel{area_.left + (x + 1) / 2 * (area_.right - area_.left),
                 area_.top + (1 - y) / 2 * (area_.bottom - area_.top)};
}

double PickFrame::worldPerPixel(double depth) const
{
    double const share = viewing_.perspective ? std::max(depth / viewing_.distance, leastDepth) : 1;
    return share / viewing_.scale;
}

} // namespace HPS::selection
