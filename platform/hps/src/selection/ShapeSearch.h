#pragma once
#include "LocalProbe.h"

namespace HPS::selection
{

/// What was met of one kind of parts of one geometry.
struct Meeting {
    bool any = false;
    Vec3 place; ///< in the world
    double depth = std::numeric_limits<double>::max();
    double distance = std::numeric_limits<double>::max(); ///< pixels; 0 unless it was asked for
    /// Depths and numbers of the elements, if they were asked for; one may stand there more than once.
    std::vector<std::pair<double, std::uint32_t>> elements;
};

struct MeetingWishes {
    bool nearestToCentre = false; ///< the nearest to the place asked about counts, not the one in front
    bool elements = false;        ///< all of them
};

/// Looks for what a probe meets of one geometry.
class ShapeSearch
{
public:
    /// `within` has entered the geometry's coordinates.
    ShapeSearch(LocalProbe const& within, MeetingWishes const& wishes) : local_(within), wishes_(wishes) {}

    struct FaceCulling {
        bool back = false;
        std::optional<PickLook::VectorCulling> vector;
    };
    Meeting faces(PickShape const& triangles, FaceCulling const& culling) const;
    /// Pieces of lines, or points, that reach so many pixels around themselves.
    Meeting strokes(PickShape const& shape, double reach) const;
    Meeting point(Vec3 const& place, double reach) const;
    /// A straight line through both, or from the first on.
    Meeting endlessLine(Vec3 const& first, Vec3 const& second, bool ray, double reach) const;
    /// In the world, as are the sections of `within` for this.
    Meeting polygon(std::span<Vec3 const> corners) const;

private:
    template <class Enter, class Use>
    void forEach(PickShape const& shape, Enter const& enter, Use const& use) const;
    void meet(Meeting& meeting, std::uint32_t element, std::span<Vec3 const> corners,
              std::vector<CutPlane> const& planes, PlaneMask mask, double reach) const;
    void add(Meeting& meeting, std::uint32_t element, std::span<Vec3 const> corners, double reach) const;
    bool isLeftOut(PickShape const& triangles, std::uint32_t triangle, FaceCulling const& culling) const;
    bool isUnseen(render::FoundEdge const& edge, Vec3 const& place) const;
    /// Nothing behind this can matter any more.
    double bound(Meeting const& meeting) const;

    LocalProbe const& local_;
    MeetingWishes wishes_;
    mutable std::array<Vec3, Convex::most> inWorld_; ///< work space
};

} // namespace HPS::selection
