#include "contours.h"
#include <algorithm>
#include <cmath>
#include <optional>

namespace HPS::render
{
namespace
{

struct Corner {
    Point at;
    double value;
};

std::optional<double> valueOf(PolyhedronExtras const& extras, std::uint32_t vertex)
{
    std::size_t const at = vertex * extras.parameterWidth;
    bool const known = extras.parameterWidth > 0 && at < extras.vertexParameters.size() &&
                       (extras.hasParameters.empty() ||
                        (vertex < extras.hasParameters.size() && extras.hasParameters[vertex]));
    return known ? std::optional<double>(extras.vertexParameters[at]) : std::nullopt;
}

Point between(Corner const& a, Corner const& b, double level)
{
    double const t = std::clamp((level - a.value) / (b.value - a.value), 0.0, 1.0);
    auto mix = [&](float from, float to) { return float(from + (double(to) - from) * t); };
    return {mix(a.at.x, b.at.x), mix(a.at.y, b.at.y), mix(a.at.z, b.at.z)};
}

/// Where a level crosses a triangle whose corners are in the order of their values. A corner on the level
/// counts as above, so that neighbours agree.
void cut(Corner const (&c)[3], double level, std::uint32_t number, std::vector<ContourPiece>& out)
{
    if (!(c[0].value < level && level <= c[2].value)) return;
    Point const across = between(c[0], c[2], level);
    Point const other = c[1].value < level ? between(c[1], c[2], level) : between(c[0], c[1], level);
    if (!(across == other)) out.push_back({across, other, number});
}

} // namespace

std::vector<ContourPiece> findContours(ShellData const& shell, std::span<std::uint32_t const> triangles,
                                       ContourLineData const& contours, std::uint32_t wrap, std::size_t most)
{
    std::vector<ContourPiece> pieces;
    if (!shell.extras || !contours.positions) return pieces;
    auto const& [mode, positions] = *contours.positions;
    for (std::size_t t = 0; t + 2 < triangles.size() && pieces.size() < most; t += 3) {
        Corner corners[3];
        bool known = true;
        for (std::size_t i = 0; i < 3; ++i) {
            std::uint32_t const vertex = triangles[t + i];
            auto const value = vertex < shell.points.size() ? valueOf(*shell.extras, vertex) : std::nullopt;
            known = known && value && std::isfinite(*value);
            if (known) corners[i] = {shell.points[vertex], *value};
        }
        if (!known) continue;
        std::sort(std::begin(corners), std::end(corners),
                  [](Corner const& a, Corner const& b) { return a.value < b.value; });
        if (mode == ContourLine::Mode::Explicit) {
            for (std::size_t i = 0; i < positions.size(); ++i)
                cut(corners, positions[i], std::uint32_t(i) % wrap, pieces);
            continue;
        }
        double const interval = positions.empty() ? 1 : positions[0];
        double const offset = positions.size() < 2 ? 0 : positions[1];
        if (!(interval > 0)) continue;
        double const first = std::ceil((corners[0].value - offset) / interval);
        double const last = std::floor((corners[2].value - offset) / interval);
        if (last - first > double(most)) continue;
        for (double k = first; k <= last && pieces.size() < most; ++k) {
            double const turned = std::fmod(k, double(wrap));
            auto const number = std::uint32_t(turned < 0 ? turned + double(wrap) : turned);
            cut(corners, offset + k * interval, number, pieces);
        }
    }
    return pieces;
}

} // namespace HPS::render
