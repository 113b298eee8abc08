// What trims leave of a surface's facets.
#pragma once
#include "tessellation_surfaces.h"
#include <array>
#include <hps/TrimKit.h>
#include <span>

namespace HPS::scene
{

// Cuts facets along outlines in the parameters of their surface. New corners lie on the facets, so that what
// is cut meets what is not.
class Trimmer
{
public:
    // Outlines of more than `budget` points, or finer than `deviation` in parameters, are thinned; zero
    // stands for no limit. `fineness` halvings of a facet's sides decide how small a detail is seen.
    Trimmer(std::vector<TrimKit> const& trims, std::size_t budget, double deviation, int fineness);

    // Adds to `facets` the part of a facet that belongs to the surface after all trims. `corners` are points
    // of `facets`, `places` their parameters.
    void add(Facets& facets, std::array<std::uint32_t, 3> const& corners,
             std::array<std::array<double, 2>, 3> const& places) const;

private:
    struct Place {
        double u, v;
    };
    struct Outline {
        bool keeps;
        std::vector<Place> points;
    };
    struct Segment {
        Place from, to;
    };
    struct Corner {
        Place at;
        std::array<double, 3> weights; // of the facet's corners
    };
    struct Facet {
        Facets& facets;
        std::array<std::uint32_t, 3> corners;
    };
    bool belongs(Place p) const;
    void cut(Facet const& facet, std::array<Corner, 3> const& corners, std::span<Segment const> near,
             int depth) const;
    void clip(Facet const& facet, std::array<Corner, 3> const& corners) const;
    Corner border(Corner const& inside, Corner const& outside) const;
    static void emit(Facet const& facet, Corner const& a, Corner const& b, Corner const& c);

    std::vector<Outline> outlines_;
    std::vector<Segment> segments_;
    int fineness_;
};

} // namespace HPS::scene
