#pragma once
#include "cut_planes.h"
#include <array>
#include <cstdint>

namespace HPS::render
{

/// Triangles made ready to be cut by many planes, one after the other: corners at one place are one corner,
/// it is known which parts bound a volume, and a hierarchy of boxes leads to what a plane meets.
class CutMesh
{
public:
    using Position = std::array<float, 3>;

    CutMesh() = default;
    /// Three indices a triangle. Rims of openings are joined over gaps of up to `tolerance`, in the units of
    /// the points; what comes from rounding is joined in any case.
    CutMesh(std::vector<Position> points, std::vector<std::uint32_t> triangles, double tolerance = 0);

    bool empty() const { return triangles_.empty(); }
    std::size_t triangleCount() const { return triangles_.size(); }
    Box const& box() const { return boxes_.empty() ? none_ : boxes_.back(); }
    Vec3 point(std::uint32_t corner) const
    {
        Position const& p = points_[corner];
        return {p[0], p[1], p[2]};
    }

    using Triangle = std::array<std::uint32_t, 3>;
    /// Calls use(triangle) for all triangles that reach within `margin` (in values of the plane) of `plane`,
    /// and for some of their neighbours.
    template <class F> void near(CutPlane const& plane, double margin, F&& use) const
    {
        if (!levels_.empty()) visit(levels_.size() - 1, 0, plane, margin, use);
    }

    /// True if the part that the corner belongs to bounds a volume.
    bool closed(std::uint32_t corner) const { return (parts_[corner] & Closed) != 0; }
    /// True if its triangles also run the same way round, seen from outside, everywhere.
    bool oriented(std::uint32_t corner) const { return (parts_[corner] & Oriented) != 0; }
    /// Of which parts there are none without a volume.
    bool allClosed() const { return allClosed_; }

private:
    enum Part : std::uint8_t { Closed = 1, Oriented = 2 };
    static constexpr std::size_t width = 8; ///< children of a node

    void weld();
    void joinRims(double tolerance);
    void findParts();
    void buildHierarchy();
    Box boxOf(Triangle const& triangle) const;
    static bool reaches(Box const& box, CutPlane const& plane, double margin);

    template <class F>
    void visit(std::size_t level, std::size_t node, CutPlane const& plane, double margin, F&& use) const
    {
        if (!reaches(boxes_[levels_[level] + node], plane, margin)) return;
        std::size_t const count = level == 0 ? triangles_.size() : levels_[level] - levels_[level - 1];
        std::size_t const first = node * width, last = std::min(first + width, count);
        for (std::size_t i = first; i < last; ++i)
            if (level == 0)
                use(triangles_[i]);
            else
                visit(level - 1, i, plane, margin, use);
    }

    std::vector<Position> points_;
    std::vector<Triangle> triangles_; ///< those near each other stand together
    std::vector<std::uint8_t> parts_; ///< by corner: bits of `Part`
    std::vector<Box> boxes_;          ///< level by level, the root last
    std::vector<std::size_t> levels_; ///< where each level begins in `boxes_`
    Box none_;
    bool allClosed_ = true;
};

} // namespace HPS::render
