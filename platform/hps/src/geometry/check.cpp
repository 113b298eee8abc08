// What the database takes: every number finite, and the shape as its kind asks for.
#include "geometry_records.h"
#include "kit_values.h"
#include "store.h"
#include "tessellation_nurbs.h"
#include <algorithm>
#include <cmath>
#include <limits>

namespace HPS::scene
{
namespace
{

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

template <class... T> bool fit(std::size_t elements, ElementValues<T> const&... values)
{
    return ((values.values.size() <= elements) && ...);
}

bool valuesFit(PolyhedronData const& data, std::size_t faces)
{
    auto const vertices = data.points.size();
    if (!fit(vertices, data.vertexNormals)) return false;
    if (data.colors) {
        auto const& c = *data.colors;
        if (!fit(vertices, c.vertexFaces, c.vertexEdges, c.vertexMarkers, c.vertexFaceIndices,
                 c.vertexEdgeIndices, c.vertexMarkerIndices) ||
            !fit(faces, c.faces, c.faceIndices))
            return false;
    }
    if (!data.extras) return true;
    auto const& e = *data.extras;
    return fit(vertices, e.vertexVisibilities) && fit(faces, e.faceNormals, e.faceVisibilities) &&
           e.parameterWidth <= 3 && e.vertexParameters.size() <= vertices * e.parameterWidth;
}

bool isDirection(Vector const& v)
{
    return v != Vector();
}
bool areApart(Point const& a, Point const& b)
{
    return !(a == b);
}

// The shape, with numbers known to be finite.
bool isValid(ShellData const& data)
{
    if (data.points.empty() || data.points.size() > static_cast<std::size_t>(std::numeric_limits<int>::max()))
        return false;
    auto const faces = countFaces(data.facelist, data.points.size());
    return faces && valuesFit(data, *faces);
}
bool isValid(MeshData const& data)
{
    return data.rows > 1 && data.columns > 1 && data.points.size() / data.rows == data.columns &&
           data.points.size() % data.rows == 0 && valuesFit(data, (data.rows - 1) * (data.columns - 1));
}
bool isValid(PointChain const& data)
{
    return !data.points.empty();
}
bool isValid(MarkerData const&)
{
    return true;
}
bool isValid(TextData const&)
{
    return true;
}
bool isValid(DistantLightData const& data)
{
    return isDirection(data.direction);
}
bool isValid(SpotlightData const& data)
{
    return areApart(data.position, data.target) && data.outerCone > 0 && data.innerCone >= 0 &&
           data.concentration >= 0;
}
bool isValid(GridData const& data)
{
    constexpr int most = 10'000; // lines in a direction: more would only fill the screen
    return data.firstCount > 0 && data.secondCount > 0 && data.firstCount <= most &&
           data.secondCount <= most && areApart(data.origin, data.firstPoint) &&
           areApart(data.origin, data.secondPoint);
}
bool areWeights(std::vector<float> const& weights, std::size_t points)
{
    return (weights.empty() || weights.size() == points) &&
           std::all_of(weights.begin(), weights.end(), [](float w) { return w > 0; });
}
bool isValid(NURBSCurveData const& data)
{
    return areValidKnots(data.degree, data.points.size(), data.knots) &&
           areWeights(data.weights, data.points.size()) && data.start >= 0 && data.start <= data.end &&
           data.end <= 1;
}
bool isValid(NURBSSurfaceData const& data)
{
    return areValidKnots(data.uDegree, data.uCount, data.uKnots) &&
           areValidKnots(data.vDegree, data.vCount, data.vKnots) &&
           data.points.size() / data.uCount == data.vCount && data.points.size() % data.uCount == 0 &&
           areWeights(data.weights, data.points.size()) &&
           std::all_of(data.trims.begin(), data.trims.end(),
                       [](TrimKit const& trim) { return trim.data().points.size() >= 3; });
}
bool isValid(CylinderData const& data)
{
    auto const count = data.points.size();
    if (count < 2 || !(data.radii.size() == 1 || data.radii.size() == count)) return false;
    bool const positive = std::all_of(data.radii.begin(), data.radii.end(), [](float r) { return r >= 0; }) &&
                          std::any_of(data.radii.begin(), data.radii.end(), [](float r) { return r > 0; });
    return positive && fit(count, data.faceColors, data.edgeColors) &&
           std::adjacent_find(data.points.begin(), data.points.end()) == data.points.end();
}
bool isValid(SphereData const& data)
{
    return data.radius > 0 && isDirection(data.vertical);
}
bool isValid(CircleData const& data)
{
    return data.radius > 0 && isDirection(data.normal);
}
bool isValid(ArcPointsData const& data)
{
    return areApart(data.start, data.middle) && areApart(data.middle, data.end) &&
           areApart(data.start, data.end);
}
bool isValid(EllipseData const& data)
{
    return areApart(data.center, data.major) && areApart(data.center, data.minor);
}
bool isValid(EllipticalArcData const& data)
{
    // No more than a turn, at places that a number of this size can tell apart.
    return areApart(data.center, data.major) && areApart(data.center, data.minor) && data.start != data.end &&
           std::abs(data.end - data.start) <= 1 && std::abs(data.start) <= 1000;
}
bool isValid(InfiniteLineData const& data)
{
    return areApart(data.first, data.second);
}
bool isValid(CuttingSectionData const& data)
{
    return !data.planes.empty() && data.scale > 0 &&
           std::all_of(data.planes.begin(), data.planes.end(), [](Plane const& plane) {
               return isDirection({plane.a, plane.b, plane.c});
           });
}
bool isValid(ReferenceData const& data)
{
    auto const* const target = store().resolve<GeometryRecord>(data.target);
    return target && target->type != HPS::Type::ReferenceKey;
}

template <class Data> SimpleCuboid extentOfPoints(Data const& data)
{
    SimpleCuboid box;
    for (auto const& p : data.points) box.Merge(p);
    return box;
}

template <class Record> SimpleCuboid extent(typename Record::Data const& data)
{
    if constexpr (std::is_same_v<Record, CircularWedgeRecord>)
        return wedgeExtentOf(data);
    else if constexpr (std::is_same_v<Record, MarkerRecord>)
        return {data.point, data.point};
    else if constexpr (std::is_same_v<Record, TextRecord>)
        return {data.position, data.position};
    else if constexpr (requires { sweepOf(data).center; })
        return extentOf(sweepOf(data));
    else if constexpr (requires { extentOf(data); })
        return extentOf(data);
    else if constexpr (requires { data.points; })
        return extentOfPoints(data);
    else
        return {}; // without a place, or, for a reference, with that of another
}

// What a reference shows, moved to where it shows it. The target may be gone.
SimpleCuboid targetBox(ReferenceData const& data)
{
    auto const* const target = store().resolve<GeometryRecord>(data.target);
    if (!target || target->type == HPS::Type::ReferenceKey) return {};
    auto const box = boxOf(*target);
    if (!data.modellingMatrix || !box.IsValid()) return box;
    SimpleCuboid moved;
    for (unsigned corner = 0; corner < 8; ++corner)
        moved.Merge(data.modellingMatrix->Transform(Point(corner & 1 ? box.max.x : box.min.x,
                                                          corner & 2 ? box.max.y : box.min.y,
                                                          corner & 4 ? box.max.z : box.min.z)));
    return moved;
}

} // namespace

template <class Record> bool check(typename Record::Data const& data, SimpleCuboid& box)
{
    if (!isFinite(data) || !isValid(data)) return false;
    box = extent<Record>(data);
    return true;
}
#define HPS_CHECK(Name) template bool check<Name##Record>(Name##Record::Data const&, SimpleCuboid&);
HPS_GEOMETRY_KINDS(HPS_CHECK)
#undef HPS_CHECK

SimpleCuboid boxOf(GeometryRecord const& record)
{
    SimpleCuboid box;
    visitGeometry(record, [&]<class R>(R const& typed) {
        if constexpr (std::is_same_v<R, ReferenceRecord>)
            box = targetBox(typed.data);
        else
            box = typed.box;
    });
    return box;
}

} // namespace HPS::scene
