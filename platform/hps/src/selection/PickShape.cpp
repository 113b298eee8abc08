#include "PickShape.h"
#include "Triangulator.h"
#include <numeric>

namespace HPS::selection
{

using namespace scene;
using render::FoundEdge;

namespace
{

constexpr std::uint32_t fewElements = 24;

bool isHidden(ShellData const& shell, std::uint32_t face)
{
    auto const* const visible = shell.extras ? &shell.extras->faceVisibilities : nullptr;
    return visible != nullptr && visible->IsSet(face) && visible->values[face] == 0;
}

bool hidesFaces(ShellData const& shell)
{
    return shell.extras && !shell.extras->faceVisibilities.Empty();
}

bool isOfTriangles(std::vector<int> const& facelist)
{
    if (facelist.size() % 4 != 0) return false;
    for (std::size_t i = 0; i < facelist.size(); i += 4)
        if (facelist[i] != 3) return false;
    return true;
}

} // namespace

// The points belong to the shape from now on.
void PickShape::takePoints(std::vector<Point> points)
{
    ownPoints_ = std::move(points);
    ownPoints_.shrink_to_fit();
    points_ = ownPoints_.data();
}

// As they stand in the shell's own list; false if there are others than triangles, or hidden ones.
bool PickShape::takeTriangles(ShellData const& shell)
{
    if (hidesFaces(shell) || !isOfTriangles(shell.facelist)) return false;
    points_ = shell.points.data();
    normals_ = shell.vertexNormals.Empty() ? nullptr : &shell.vertexNormals;
    facelist_ = shell.facelist.data();
    count_ = std::uint32_t(shell.facelist.size() / 4);
    numbered_ = true;
    return true;
}

bool PickShape::borrowFaces(GeometryRecord const& geometry)
{
    count_ = 0;
    if (geometry.type != Type::ShellKey) return false;
    ShellData const& shell = static_cast<ShellRecord const&>(geometry).data;
    return shell.facelist.size() <= std::size_t(4) * fewElements && takeTriangles(shell);
}

bool PickShape::borrowLines(GeometryRecord const& geometry)
{
    count_ = 0;
    if (geometry.type != Type::LineKey) return false;
    auto const& points = static_cast<LineRecord const&>(geometry).data.points;
    if (points.size() > fewElements || points.empty()) return false;
    cornersEach_ = 2;
    points_ = points.data();
    count_ = std::uint32_t(points.size() - 1);
    numbered_ = true;
    return true;
}

std::unique_ptr<PickShape> PickShape::facesOf(GeometryRecord const& geometry,
                                              render::Fineness const& fineness)
{
    std::unique_ptr<PickShape> shape(new PickShape);
    ShellData work;
    ShellData const* const shell = render::facesOf({&geometry, nullptr}, fineness, work);
    if (shell == nullptr) return shape;
    bool const borrowed = shell != &work;
    if (borrowed && shape->takeTriangles(*shell)) {
        shape->makeTree();
        return shape;
    }
    shape->numbered_ = borrowed || geometry.type == Type::MeshKey;
    if (borrowed) {
        shape->points_ = shell->points.data();
        if (!shell->vertexNormals.Empty()) shape->normals_ = &shell->vertexNormals;
    }
    static thread_local render::Triangulator triangulator;
    triangulator.run(shell->points, shell->facelist);
    auto const triangles = triangulator.triangles();
    auto const faces = triangulator.faces();
    shape->corners_.reserve(triangles.size());
    shape->faces_.reserve(faces.size());
    for (std::size_t i = 0; i < faces.size(); ++i) {
        if (isHidden(*shell, faces[i])) continue;
        shape->corners_.insert(shape->corners_.end(), triangles.begin() + std::ptrdiff_t(3 * i),
                               triangles.begin() + std::ptrdiff_t(3 * i + 3));
        shape->faces_.push_back(faces[i]);
    }
    shape->count_ = std::uint32_t(shape->faces_.size());
    if (!borrowed || !triangulator.blended().empty()) {
        std::vector<Point> points = borrowed ? shell->points : std::move(work.points);
        for (auto const& blended : triangulator.blended()) points.push_back(blended.at);
        shape->takePoints(std::move(points));
    }
    shape->makeTree();
    return shape;
}

std::unique_ptr<PickShape> PickShape::edgesOf(GeometryRecord const& geometry,
                                              render::Fineness const& fineness, std::uint32_t kinds,
                                              double hardAngle)
{
    std::unique_ptr<PickShape> shape(new PickShape);
    shape->cornersEach_ = 2;
    ShellData work;
    ShellData const* const shell = render::facesOf({&geometry, nullptr}, fineness, work);
    if (shell == nullptr) return shape;
    bool const cells = geometry.type == Type::MeshKey;
    std::vector<FoundEdge> edges = render::findEdges(*shell, kinds, hardAngle, cells);
    shape->numbered_ = shell != &work || cells;
    for (FoundEdge const& edge : edges) {
        shape->corners_.push_back(edge.from);
        shape->corners_.push_back(edge.to);
    }
    constexpr std::uint32_t fromSomeSides = render::SilhouetteEdge | render::NonCulledEdge;
    if ((kinds & fromSomeSides) != 0) shape->viewEdges_ = std::move(edges);
    shape->count_ = std::uint32_t(shape->corners_.size() / 2);
    if (shell == &work)
        shape->takePoints(std::move(work.points));
    else
        shape->points_ = shell->points.data();
    shape->makeTree();
    return shape;
}

std::unique_ptr<PickShape> PickShape::verticesOf(GeometryRecord const& geometry,
                                                 render::Fineness const& fineness)
{
    std::unique_ptr<PickShape> shape(new PickShape);
    shape->cornersEach_ = 1;
    ShellData work;
    ShellData const* const shell = render::facesOf({&geometry, nullptr}, fineness, work);
    if (shell == nullptr) return shape;
    shape->numbered_ = shell != &work || geometry.type == Type::MeshKey;
    shape->count_ = std::uint32_t(shell->points.size());
    if (auto const* const visible = shell->extras ? &shell->extras->vertexVisibilities : nullptr;
        visible != nullptr && !visible->Empty()) {
        for (std::uint32_t i = 0; i < shape->count_; ++i)
            if (!visible->IsSet(i) || visible->values[i] != 0) shape->corners_.push_back(i);
        shape->count_ = std::uint32_t(shape->corners_.size());
    }
    if (shell == &work)
        shape->takePoints(std::move(work.points));
    else
        shape->points_ = shell->points.data();
    shape->makeTree();
    return shape;
}

void PickShape::addChain(std::span<Point const> chain)
{
    auto const first = std::uint32_t(ownPoints_.size());
    ownPoints_.insert(ownPoints_.end(), chain.begin(), chain.end());
    for (std::uint32_t i = 0; i + 1 < chain.size(); ++i)
        corners_.insert(corners_.end(), {first + i, first + i + 1});
}

std::unique_ptr<PickShape> PickShape::linesOf(GeometryRecord const& geometry,
                                              render::Fineness const& fineness)
{
    std::unique_ptr<PickShape> shape(new PickShape);
    shape->cornersEach_ = 2;
    if (geometry.type == Type::LineKey) {
        auto const& points = static_cast<LineRecord const&>(geometry).data.points;
        shape->points_ = points.data();
        shape->count_ = points.empty() ? 0 : std::uint32_t(points.size() - 1);
        shape->numbered_ = true;
    } else {
        render::forEachChain({&geometry, nullptr}, fineness,
                             [&](std::span<Point const> chain) { shape->addChain(chain); });
        shape->takePoints(std::move(shape->ownPoints_));
        shape->count_ = std::uint32_t(shape->corners_.size() / 2);
    }
    shape->makeTree();
    return shape;
}

bool PickShape::isTurned(std::uint32_t triangle) const
{
    if (normals_ == nullptr) return false;
    Point const &a = corner(triangle, 0), &b = corner(triangle, 1), &c = corner(triangle, 2);
    Vector const front = (b - a).Cross(c - a);
    Vector sum;
    for (unsigned i = 0; i < 3; ++i)
        if (std::uint32_t const at = cornerIndex(triangle, i); normals_->IsSet(at))
            sum = sum + normals_->values[at];
    return front.Dot(sum) < 0;
}

Box PickShape::boxOf(std::uint32_t element) const
{
    Box box;
    for (unsigned i = 0; i < cornersEach_; ++i) {
        Point const& p = corner(element, i);
        box.add(p.x, p.y, p.z);
    }
    return box;
}

void PickShape::makeTree()
{
    if (count_ > fewElements) tree_.build(count_, [this](std::uint32_t element) { return boxOf(element); });
}

std::size_t PickShape::bytes() const
{
    return sizeof *this + tree_.bytes() + ownPoints_.capacity() * sizeof(Point) +
           (corners_.capacity() + faces_.capacity()) * sizeof(std::uint32_t) +
           viewEdges_.capacity() * sizeof(FoundEdge);
}

} // namespace HPS::selection
