#pragma once
#include "BoxTree.h"
#include "EdgeFinder.h"
#include "drawn_shapes.h"
#include <memory>

namespace HPS::selection
{

/// What a geometry consists of for who searches it: triangles, pieces of lines, or points, and a hierarchy of
/// boxes over them once there are more than a few. The arrays of the geometry are used where they will do, so
/// that a shape must go when its geometry changes.
class PickShape
{
public:
    /// For those below, and for borrowing.
    PickShape() = default;
    PickShape(PickShape const&) = delete;
    PickShape& operator=(PickShape const&) = delete;

    /// Makes this the faces, or the lines, of a geometry that has so few that they cost nothing to prepare.
    /// False, leaving no elements, for any other geometry.
    bool borrowFaces(scene::GeometryRecord const& geometry);
    bool borrowLines(scene::GeometryRecord const& geometry);

    static std::unique_ptr<PickShape> facesOf(scene::GeometryRecord const& geometry,
                                              render::Fineness const& fineness);
    /// The edges of these faces that belong to one of the `kinds`, see render::EdgeKind.
    static std::unique_ptr<PickShape> edgesOf(scene::GeometryRecord const& geometry,
                                              render::Fineness const& fineness, std::uint32_t kinds,
                                              double hardAngle);
    static std::unique_ptr<PickShape> verticesOf(scene::GeometryRecord const& geometry,
                                                 render::Fineness const& fineness);
    static std::unique_ptr<PickShape> linesOf(scene::GeometryRecord const& geometry,
                                              render::Fineness const& fineness);

    std::uint32_t count() const { return count_; }
    unsigned cornersEach() const { return cornersEach_; }
    std::uint32_t cornerIndex(std::uint32_t element, unsigned corner) const
    {
        if (facelist_ != nullptr) return std::uint32_t(facelist_[std::size_t(4) * element + 1 + corner]);
        if (corners_.empty()) return element + corner;
        return corners_[std::size_t(cornersEach_) * element + corner];
    }
    Point const& corner(std::uint32_t element, unsigned corner) const
    {
        return points_[cornerIndex(element, corner)];
    }

    /// Of a triangle: the face of the geometry that it is part of.
    std::uint32_t faceOf(std::uint32_t triangle) const
    {
        return faces_.empty() ? triangle : faces_[triangle];
    }
    /// Of an edge: the normals of its faces if it shows from some sides only, else null.
    render::FoundEdge const* viewEdge(std::uint32_t edge) const
    {
        return viewEdges_.empty() ? nullptr : &viewEdges_[edge];
    }
    /// Of a triangle: true if the normals at its corners say that its front is the other side.
    bool isTurned(std::uint32_t triangle) const;
    /// True if faces, edges and vertices have numbers that the geometry's owner knows.
    bool isNumbered() const { return numbered_; }

    /// Null for few elements, which are looked at one by one.
    BoxTree const* tree() const { return tree_.empty() ? nullptr : &tree_; }
    Box boxOf(std::uint32_t element) const;
    /// Beyond what belongs to the geometry anyway.
    std::size_t bytes() const;

private:
    bool takeTriangles(ShellData const& shell);
    void takePoints(std::vector<Point> points);
    void addChain(std::span<Point const> chain);
    void makeTree();

    unsigned cornersEach_ = 3;
    std::uint32_t count_ = 0;
    bool numbered_ = false;
    Point const* points_ = nullptr;
    int const* facelist_ = nullptr; ///< the geometry's, of triangles alone
    ElementValues<Vector> const* normals_ = nullptr;
    std::vector<Point> ownPoints_;
    std::vector<std::uint32_t> corners_; ///< empty: they follow each other, or see `facelist_`
    std::vector<std::uint32_t> faces_;   ///< empty: each triangle is a face
    std::vector<render::FoundEdge> viewEdges_;
    BoxTree tree_;
};

} // namespace HPS::selection
