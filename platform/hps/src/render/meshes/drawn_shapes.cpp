#include "drawn_shapes.h"
#include "store.h"
#include <algorithm>
#include <numeric>

namespace HPS::render
{
namespace
{

using namespace scene;

void putLoop(ShellData& shell, std::vector<Point> points)
{
    if (points.size() > 1 && points.front() == points.back()) points.pop_back();
    shell.facelist.assign(points.size() + 1, int(points.size()));
    std::iota(shell.facelist.begin() + 1, shell.facelist.end(), 0);
    shell.points = std::move(points);
}

/// The surface's own coordinates, for textures, unless the shell brings some itself.
void putParameters(ShellData& shell, std::vector<float> parameters)
{
    if (parameters.empty() || (shell.extras && shell.extras->parameterWidth > 0)) return;
    PolyhedronExtras extras = shell.extras ? *shell.extras : PolyhedronExtras();
    extras.vertexParameters = std::move(parameters);
    extras.parameterWidth = 2;
    shell.extras = std::make_shared<PolyhedronExtras const>(std::move(extras));
}

void putFacets(ShellData& shell, Facets facets)
{
    shell.facelist.reserve(facets.triangles.size() / 3 * 4);
    for (std::size_t i = 0; i + 2 < facets.triangles.size(); i += 3) {
        shell.facelist.push_back(3);
        for (std::size_t k = 0; k < 3; ++k) shell.facelist.push_back(int(facets.triangles[i + k]));
    }
    shell.points = std::move(facets.points);
    shell.vertexNormals.values = std::move(facets.normals);
    putParameters(shell, std::move(facets.parameters));
}

void putMesh(ShellData& shell, MeshData const& mesh)
{
    static_cast<PolyhedronData&>(shell) = mesh;
    Facets facets = tessellate(mesh);
    if (shell.vertexNormals.Empty()) shell.vertexNormals.values = std::move(facets.normals);
    putParameters(shell, std::move(facets.parameters));
    for (std::size_t row = 0; row + 1 < mesh.rows; ++row)
        for (std::size_t column = 0; column + 1 < mesh.columns; ++column) {
            int const a = int(row * mesh.columns + column), d = a + int(mesh.columns);
            shell.facelist.insert(shell.facelist.end(), {4, a, a + 1, d + 1, d});
        }
}

void putCylinder(ShellData& shell, CylinderData cylinder, Fineness const& fineness)
{
    using enum Cylinder::Orientation;
    auto const turned = fineness.orientation;
    if (turned == InvertRadii || turned == InvertRadiiOnly || turned == InvertAll)
        std::reverse(cylinder.radii.begin(), cylinder.radii.end());
    ElementValues<RGBAColor> colours = cylinder.faceColors;
    bool const swapped = turned == InvertColors || turned == InvertColorsOnly || turned == InvertAll;
    putFacets(shell, tessellate(cylinder, fineness.cylinderFacets));
    if (colours.Empty()) return;
    // Rings follow the chain; a cap is a centre and a ring, the second end's first.
    auto all = std::make_shared<ShellColors>();
    std::size_t const ring = std::max(fineness.cylinderFacets, 3u) + 1, count = cylinder.points.size();
    bool const secondCap =
        cylinder.caps == Cylinder::Capping::Second || cylinder.caps == Cylinder::Capping::Both;
    for (std::size_t i = 0; i < shell.points.size(); ++i) {
        std::size_t at = i / ring;
        if (i >= ring * count) at = secondCap && i < ring * count + ring + 1 ? count - 1 : 0;
        if (swapped) at = count - 1 - at;
        if (colours.IsSet(at)) all->vertexFaces.SetRange(i, 1, &colours.values[at]);
    }
    shell.colors = std::move(all);
}

std::vector<Point> wedge(ArcPointsData const& arc, CurveLimits const& limits)
{
    std::vector<Point> points = tessellate(arc, limits);
    if (auto const sweep = sweepOf(arc))
        points.push_back({float(sweep->center[0]), float(sweep->center[1]), float(sweep->center[2])});
    return points;
}

/// The faces of a kind that is not kept as a shell; false if it has none.
bool makeFaces(GeometryRecord const& geometry, Fineness const& fineness, ShellData& shell)
{
    shell = {};
    bool known = true;
    visitGeometry(geometry, [&](auto const& record) {
        using Record = std::decay_t<decltype(record)>;
        if constexpr (std::is_same_v<Record, ShellRecord>)
            shell = record.data;
        else if constexpr (std::is_same_v<Record, PolygonRecord>)
            putLoop(shell, record.data.points);
        else if constexpr (std::is_same_v<Record, MeshRecord>)
            putMesh(shell, record.data);
        else if constexpr (std::is_same_v<Record, SphereRecord>)
            putFacets(shell, tessellate(record.data, fineness.sphereFacets));
        else if constexpr (std::is_same_v<Record, CylinderRecord>)
            putCylinder(shell, record.data, fineness);
        else if constexpr (std::is_same_v<Record, NURBSSurfaceRecord>)
            putFacets(shell, tessellate(record.data, fineness.surfaces));
        else if constexpr (std::is_same_v<Record, CircleRecord> || std::is_same_v<Record, EllipseRecord>)
            putLoop(shell, tessellate(sweepOf(record.data), fineness.curves));
        else if constexpr (std::is_same_v<Record, CircularWedgeRecord>)
            putLoop(shell, wedge(record.data, fineness.curves));
        else
            known = false;
    });
    return known;
}

/// Normals go by the cofactors, the transposed inverse times the determinant, which keep to the side from
/// which the corners run counter-clockwise.
Vector turned(Vector const& n, float const* m)
{
    auto cofactor = [&](int row, int column) {
        int const r1 = (row + 1) % 3, r2 = (row + 2) % 3, c1 = (column + 1) % 3, c2 = (column + 2) % 3;
        return m[r1 * 4 + c1] * m[r2 * 4 + c2] - m[r1 * 4 + c2] * m[r2 * 4 + c1];
    };
    auto part = [&](int column) {
        return n.x * cofactor(0, column) + n.y * cofactor(1, column) + n.z * cofactor(2, column);
    };
    return {part(0), part(1), part(2)};
}

} // namespace

Fineness finenessOf(CurveAttributeData const& curves, NURBSSurfaceAttributeData const& surfaces,
                    CylinderAttributeData const& cylinders, SphereAttributeData const& spheres)
{
    Fineness fineness;
    fineness.curves = CurveLimits(curves);
    fineness.surfaces = SurfaceLimits(surfaces);
    // Without an eye on the zoom a curve that is to follow the view is fine enough for a close one.
    if (curves.viewDependent.value_or(false) && fineness.curves.angle > 0) fineness.curves.angle /= 4;
    constexpr unsigned most = 2000;
    fineness.cylinderFacets = std::min(cylinders.tessellation.value_or(30), most);
    fineness.sphereFacets = std::min(spheres.tessellation.value_or(30), most);
    fineness.orientation = cylinders.orientation.value_or(Cylinder::Orientation::Default);
    return fineness;
}

DrawnAs drawnAs(Type kind)
{
    DrawnAs as;
    as.markers = kind == Type::MarkerKey;
    as.text = kind == Type::TextKey;
    as.scenery =
        kind == Type::DistantLightKey || kind == Type::SpotlightKey || kind == Type::CuttingSectionKey;
    as.chains = kind == Type::LineKey || kind == Type::NURBSCurveKey || kind == Type::CircularArcKey ||
                kind == Type::EllipticalArcKey || kind == Type::GridKey || kind == Type::InfiniteLineKey;
    as.faces = kind == Type::ShellKey || kind == Type::PolygonKey || kind == Type::MeshKey ||
               kind == Type::SphereKey || kind == Type::CylinderKey || kind == Type::NURBSSurfaceKey ||
               kind == Type::CircleKey || kind == Type::EllipseKey || kind == Type::CircularWedgeKey;
    as.curved = (as.chains && kind != Type::LineKey && kind != Type::InfiniteLineKey) ||
                (as.faces && kind != Type::ShellKey && kind != Type::PolygonKey && kind != Type::MeshKey);
    return as;
}

Shown shownBy(GeometryRecord const& geometry)
{
    if (geometry.type != Type::ReferenceKey) return {&geometry, nullptr};
    auto const& reference = static_cast<ReferenceRecord const&>(geometry).data;
    auto const* const target = store().resolve<GeometryRecord>(reference.target);
    if (target == nullptr || target->type == Type::ReferenceKey) return {};
    return {target, reference.modellingMatrix ? &*reference.modellingMatrix : nullptr};
}

ShellData const* facesOf(Shown const& shown, Fineness const& fineness, ShellData& work)
{
    if (shown.geometry == nullptr) return nullptr;
    if (shown.geometry->type == Type::ShellKey && shown.matrix == nullptr)
        return &static_cast<ShellRecord const*>(shown.geometry)->data;
    if (!makeFaces(*shown.geometry, fineness, work)) return nullptr;
    if (shown.matrix != nullptr) {
        for (Point& p : work.points) p = shown.matrix->Transform(p);
        for (Vector& n : work.vertexNormals.values) n = turned(n, shown.matrix->Data());
    }
    return &work;
}

void forEachChain(Shown const& shown, Fineness const& fineness,
                  std::function<void(std::span<Point const>)> const& use)
{
    if (shown.geometry == nullptr) return;
    std::vector<Point> moved;
    auto give = [&](std::vector<Point> const& points) {
        if (shown.matrix == nullptr) return use(points);
        moved.clear();
        for (Point const& p : points) moved.push_back(shown.matrix->Transform(p));
        use(moved);
    };
    visitGeometry(*shown.geometry, [&](auto const& record) {
        using Record = std::decay_t<decltype(record)>;
        if constexpr (std::is_same_v<Record, LineRecord>)
            give(record.data.points);
        else if constexpr (std::is_same_v<Record, NURBSCurveRecord> ||
                           std::is_same_v<Record, CircularArcRecord>)
            give(tessellate(record.data, fineness.curves));
        else if constexpr (std::is_same_v<Record, EllipticalArcRecord>)
            give(tessellate(sweepOf(record.data), fineness.curves));
        else if constexpr (std::is_same_v<Record, GridRecord>)
            for (auto const& line : tessellate(record.data, fineness.curves)) give(line);
    });
}

} // namespace HPS::render
