#include "WindowSearch.h"
#include <hps/SelectionControl.h>

namespace HPS
{

using namespace selection;

namespace
{

/// From window space.
Pixel pixelAt(PixelArea const& window, double x, double y)
{
    return {window.left + (x + 1) / 2 * (window.right - window.left),
            window.top + (1 - y) / 2 * (window.bottom - window.top)};
}

bool contains(PixelArea const& area, Pixel const& pixel)
{
    return pixel.x >= area.left && pixel.x <= area.right && pixel.y >= area.top && pixel.y <= area.bottom;
}

template <class... T> bool areFinite(T... numbers)
{
    return (std::isfinite(numbers) && ...);
}

/// A window that is gone has nothing; neither has a place that is none.
std::size_t nothing(SelectionResults& results)
{
    results.Reset();
    return 0;
}

} // namespace

std::size_t SelectionControl::SelectByPoint(Point const& place, SelectionOptionsKit const& options,
                                            SelectionResults& results) const
{
    WindowSearch search(window_, options);
    if (!search.area() || !areFinite(place.x, place.y)) return nothing(results);
    Pixel const pixel = pixelAt(*search.area(), place.x, place.y);
    return search.run(
        [&](PickFrame const& frame) -> std::optional<Probe> {
            if (!contains(frame.area(), pixel)) return std::nullopt;
            return Probe::atPixel(frame, pixel);
        },
        results);
}

std::size_t SelectionControl::SelectByArea(Rectangle const& area, SelectionOptionsKit const& options,
                                           SelectionResults& results) const
{
    WindowSearch search(window_, options);
    if (!search.area() || !areFinite(area.left, area.right, area.bottom, area.top)) return nothing(results);
    Pixel const a = pixelAt(*search.area(), area.left, area.top),
                b = pixelAt(*search.area(), area.right, area.bottom);
    PixelArea const asked{std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
    bool const seenOnly = search.options().respectFrustum;
    return search.run(
        [&](PickFrame const& frame) -> std::optional<Probe> {
            PixelArea const within = asked.within(frame.area());
            bool const isOutside = within.right < within.left || within.bottom < within.top;
            if (isOutside && seenOnly) return std::nullopt;
            return Probe::ofArea(frame, seenOnly ? within : asked);
        },
        results);
}

std::size_t SelectionControl::SelectByRay(Point const& origin, Vector const& direction,
                                          SelectionOptionsKit const& options, SelectionResults& results) const
{
    WindowSearch search(window_, options);
    Ray const ray{wide(origin), wide(direction)};
    double const way = length(ray.direction);
    if (!search.area() || !areFinite(origin.x, origin.y, origin.z, way) || way == 0) return nothing(results);
    return search.run(
        [&](PickFrame const& frame) -> std::optional<Probe> {
            return Probe::alongRay(frame, ray, search.options().respectFrustum);
        },
        results);
}

std::size_t SelectionControl::SelectByVolume(SimpleCuboid const& box, SelectionOptionsKit const& options,
                                             SelectionResults& results) const
{
    if (!box.IsValid()) return nothing(results);
    return SelectByVolume({{1, 0, 0, -box.max.x},
                           {-1, 0, 0, box.min.x},
                           {0, 1, 0, -box.max.y},
                           {0, -1, 0, box.min.y},
                           {0, 0, 1, -box.max.z},
                           {0, 0, -1, box.min.z}},
                          options, results);
}

std::size_t SelectionControl::SelectByVolume(std::vector<Plane> const& planes,
                                             SelectionOptionsKit const& options,
                                             SelectionResults& results) const
{
    constexpr std::size_t most = 32;
    WindowSearch search(window_, options);
    std::vector<CutPlane> inside;
    for (Plane const& plane : planes) {
        if (!areFinite(plane.a, plane.b, plane.c, plane.d)) return nothing(results);
        inside.push_back({{-double(plane.a), -double(plane.b), -double(plane.c)}, -double(plane.d)});
    }
    if (planes.size() > most) detail::refuse("A volume for a selection has at most 32 planes.");
    if (!search.area() || planes.size() > most) return nothing(results);
    return search.run(
        [&](PickFrame const& frame) -> std::optional<Probe> {
            return Probe::ofVolume(frame, inside, search.options().respectFrustum);
        },
        results);
}

} // namespace HPS
