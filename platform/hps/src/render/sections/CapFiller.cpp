#include "CapFiller.h"
#include <GL/glu.h>
#include <deque>

namespace HPS::render
{
namespace
{

/// Coordinates in the plane, and the way back.
struct Axes {
    Vec3 origin, u, v;
    Axes(CutPlane const& plane, Vec3 const& at)
    {
        Vec3 const n = normalised(plane.normal, {0, 0, 1});
        Vec3 const some = std::abs(n.x) < 0.6 ? Vec3{1, 0, 0} : Vec3{0, 1, 0};
        u = normalised(cross(some, n), {1, 0, 0});
        v = cross(n, u);
        origin = at;
    }
    Vec3 flat(Vec3 const& p) const { return {dot(p - origin, u), dot(p - origin, v), 0}; }
    Vec3 back(Vec3 const& p) const { return origin + u * p.x + v * p.y; }
};

struct Job {
    std::deque<Vec3> points; ///< in the plane; addresses stay
    std::vector<Vec3> corners;
};

void vertex(void* data, void* job)
{
    static_cast<Job*>(job)->corners.push_back(*static_cast<Vec3*>(data));
}
void combine(GLdouble const at[3], void* const*, GLfloat const*, void** out, void* job)
{
    auto& points = static_cast<Job*>(job)->points;
    points.push_back({at[0], at[1], 0});
    *out = &points.back();
}
// Asking for edge flags makes the tessellator give plain triangles, no strips and fans.
void edgeFlag(GLboolean, void*) {}

using Callback = void (*)();

} // namespace

CapFiller::CapFiller() : tessellator_(gluNewTess())
{
    gluTessCallback(tessellator_, GLU_TESS_VERTEX_DATA, reinterpret_cast<Callback>(vertex));
    gluTessCallback(tessellator_, GLU_TESS_COMBINE_DATA, reinterpret_cast<Callback>(combine));
    gluTessCallback(tessellator_, GLU_TESS_EDGE_FLAG_DATA, reinterpret_cast<Callback>(edgeFlag));
    gluTessNormal(tessellator_, 0, 0, 1);
}

CapFiller::~CapFiller()
{
    gluDeleteTess(tessellator_);
}

std::vector<Vec3> CapFiller::fill(Outline const& outline, CutPlane const& plane)
{
    if (!outline.anySolid()) return {};
    Axes const axes(plane, outline.points.front());
    Job job;
    gluTessProperty(tessellator_, GLU_TESS_WINDING_RULE,
                    outline.oriented ? GLU_TESS_WINDING_NONZERO : GLU_TESS_WINDING_ODD);
    gluTessBeginPolygon(tessellator_, &job);
    for (Outline::Chain const& chain : outline.chains) {
        if (!chain.solid) continue;
        gluTessBeginContour(tessellator_);
        for (std::uint32_t i = 0; i < chain.count; ++i) {
            job.points.push_back(axes.flat(outline.points[chain.first + i]));
            Vec3& p = job.points.back();
            gluTessVertex(tessellator_, &p.x, &p);
        }
        gluTessEndContour(tessellator_);
    }
    gluTessEndPolygon(tessellator_);
    job.corners.resize(job.corners.size() / 3 * 3);
    for (Vec3& corner : job.corners) corner = axes.back(corner);
    return std::move(job.corners);
}

double areaOf(std::vector<Vec3> const& triangles)
{
    double area = 0;
    for (std::size_t i = 0; i + 2 < triangles.size(); i += 3)
        area += 0.5 * length(cross(triangles[i + 1] - triangles[i], triangles[i + 2] - triangles[i]));
    return area;
}

} // namespace HPS::render
