#include "geometry_records.h"
#include <algorithm>
#include <cmath>
#include <limits>

namespace HPS::scene
{
namespace
{

bool isFinite(Point const& p)
{
    return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z);
}

bool extentOf(std::span<Point const> points, SimpleCuboid& box)
{
    box = {};
    bool finite = true;
    for (auto const& p : points) {
        finite = finite && isFinite(p);
        box.Merge(p);
    }
    return finite;
}

// Counts the faces, or gives nothing if an index has no point or the list ends within a face. Faces of fewer
// than three points enclose nothing but do no harm: outlines that come in pieces consist of them.
std::optional<std::size_t> countFaces(std::span<int const> facelist, std::size_t pointCount)
{
    std::size_t faces = 0;
    for (std::size_t at = 0; at < facelist.size();) {
        auto const count = static_cast<long long>(facelist[at]);
        auto const length = static_cast<std::size_t>(count < 0 ? -count : count);
        if (length == 0 || length > facelist.size() - at - 1) return std::nullopt;
        for (auto const index : facelist.subspan(at + 1, length))
            if (index < 0 || static_cast<std::size_t>(index) >= pointCount) return std::nullopt;
        faces += count > 0;
        at += 1 + length;
    }
    return faces;
}

template <class T> bool fits(ElementValues<T> const& values, std::size_t elements)
{
    return values.values.size() <= elements;
}

} // namespace

bool check(ShellData const& data, SimpleCuboid& box)
{
    if (data.points.empty() || data.points.size() > static_cast<std::size_t>(std::numeric_limits<int>::max()))
        return false;
    auto const faces = countFaces(data.facelist, data.points.size());
    if (!faces || !extentOf(data.points, box) || !fits(data.vertexNormals, data.points.size())) return false;
    if (!std::all_of(data.vertexNormals.values.begin(), data.vertexNormals.values.end(),
                     [](Vector const& n) { return isFinite(Point(n)); }))
        return false;
    if (!data.colors) return true;
    auto const& colors = *data.colors;
    return fits(colors.vertexFaces, data.points.size()) && fits(colors.vertexEdges, data.points.size()) &&
           fits(colors.vertexMarkers, data.points.size()) && fits(colors.faces, *faces);
}

bool check(PointChain const& data, SimpleCuboid& box)
{
    return !data.points.empty() && extentOf(data.points, box);
}

bool check(MarkerData const& data)
{
    return isFinite(data.point);
}

bool check(TextData const& data)
{
    return isFinite(data.position) && (!data.modellingMatrix || data.modellingMatrix->IsFinite());
}

bool check(DistantLightData const& data)
{
    return isFinite(Point(data.direction)) && data.direction != Vector();
}

SimpleCuboid boxOf(GeometryRecord const& record)
{
    SimpleCuboid box;
    visitGeometry(record, [&]<class R>(R const& typed) {
        if constexpr (requires { typed.box; })
            box = typed.box;
        else if constexpr (std::is_same_v<R, MarkerRecord>)
            box.Merge(typed.data.point);
        else if constexpr (std::is_same_v<R, TextRecord>)
            box.Merge(typed.data.position);
    });
    return box;
}

} // namespace HPS::scene
