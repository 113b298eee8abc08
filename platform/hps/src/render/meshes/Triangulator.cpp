#include "Triangulator.h"
#include "linear.h"
#include <GL/glu.h>

namespace HPS::render
{
namespace
{

/// Newell's normal: its length is twice the face's area, its direction the best for a face that is not quite
/// flat.
Vec3 newell(std::span<Point const> points, std::span<int const> corners)
{
    Vec3 sum;
    Vec3 const origin = vec(points[std::size_t(corners[0])]);
    for (std::size_t i = 0; i < corners.size(); ++i)
        sum = sum + cross(vec(points[std::size_t(corners[i])]) - origin,
                          vec(points[std::size_t(corners[(i + 1) % corners.size()])]) - origin);
    return sum;
}

void* asData(std::uint32_t index)
{
    return reinterpret_cast<void*>(std::uintptr_t(index));
}
std::uint32_t asIndex(void* data)
{
    return std::uint32_t(reinterpret_cast<std::uintptr_t>(data));
}

} // namespace

/// What the tessellator calls back.
struct TessellatorCalls {
    static void vertex(void* data, void* triangulator)
    {
        static_cast<Triangulator*>(triangulator)->triangles_.push_back(asIndex(data));
    }
    static void combine(GLdouble const at[3], void* const data[4], GLfloat const weights[4], void** out,
                        void* triangulator)
    {
        auto& self = *static_cast<Triangulator*>(triangulator);
        BlendedPoint blended{Point(float(at[0]), float(at[1]), float(at[2])), {}, {}};
        std::uint32_t const first = asIndex(data[0]);
        for (std::size_t i = 0; i < 4; ++i) {
            bool const counts = weights[i] > 0;
            blended.sources[i] = counts ? asIndex(data[i]) : first;
            blended.weights[i] = counts ? weights[i] : 0;
        }
        *out = asData(std::uint32_t(self.points_.size() + self.blended_.size()));
        self.blended_.push_back(blended);
    }
    // Asking for edge flags makes the tessellator give plain triangles, no strips and fans.
    static void edgeFlag(GLboolean, void*) {}
};

Triangulator::Triangulator() = default;

Triangulator::~Triangulator()
{
    if (tessellator_ != nullptr) gluDeleteTess(tessellator_);
}

bool Triangulator::run(std::span<Point const> points, std::span<int const> facelist)
{
    points_ = points;
    triangles_.clear();
    faces_.clear();
    blended_.clear();
    face_ = 0;

    auto const size = facelist.size();
    auto valid = [&](std::size_t at) { // a number and its corners
        auto const wide = std::int64_t(facelist[at]);
        auto const count = std::size_t(wide < 0 ? -wide : wide);
        if (count >= size - at) return false;
        for (int index : facelist.subspan(at + 1, count)) {
            if (index < 0 || std::size_t(index) >= points.size()) return false;
            Point const& p = points[std::size_t(index)];
            if (!std::isfinite(p.x) || !std::isfinite(p.y) || !std::isfinite(p.z)) return false;
        }
        return true;
    };
    for (std::size_t at = 0; at < size;) {
        if (facelist[at] < 0 || !valid(at)) return false;
        auto const corners = facelist.subspan(at + 1, std::size_t(facelist[at]));
        at += 1 + corners.size();
        std::size_t const holes = at;
        while (at < size && facelist[at] < 0) {
            if (!valid(at)) return false;
            at += 1 + std::size_t(-std::int64_t(facelist[at]));
        }
        if (corners.size() >= 3) addFace(corners, facelist.subspan(holes, at - holes));
        faces_.resize(triangles_.size() / 3, face_);
        ++face_;
    }
    return true;
}

void Triangulator::addFace(std::span<int const> corners, std::span<int const> holes)
{
    if (holes.empty() && corners.size() == 3) {
        for (int corner : corners) triangles_.push_back(std::uint32_t(corner));
        return;
    }
    Vec3 const normal = newell(points_, corners);
    if (holes.empty() && addFan(corners, {normal.x, normal.y, normal.z})) return;
    tessellate(corners, holes, {normal.x, normal.y, normal.z});
}

// A fan is right if every corner lies further round, seen from the first one, and within half a turn in all.
bool Triangulator::addFan(std::span<int const> corners, std::array<double, 3> const& n)
{
    Vec3 const normal{n[0], n[1], n[2]};
    Vec3 const origin = vec(points_[std::size_t(corners[0])]);
    auto arm = [&](std::size_t i) { return vec(points_[std::size_t(corners[i])]) - origin; };
    for (std::size_t i = 1; i + 1 < corners.size(); ++i)
        if (dot(cross(arm(i), arm(i + 1)), normal) <= 0 || dot(cross(arm(1), arm(i + 1)), normal) < 0)
            return false;
    for (std::size_t i = 1; i + 1 < corners.size(); ++i)
        for (int corner : {corners[0], corners[i], corners[i + 1]})
            triangles_.push_back(std::uint32_t(corner));
    return true;
}

void Triangulator::tessellate(std::span<int const> corners, std::span<int const> holes,
                              std::array<double, 3> const& normal)
{
    if (tessellator_ == nullptr) {
        using Call = void (*)();
        tessellator_ = gluNewTess();
        gluTessCallback(tessellator_, GLU_TESS_VERTEX_DATA,
                        reinterpret_cast<Call>(&TessellatorCalls::vertex));
        gluTessCallback(tessellator_, GLU_TESS_COMBINE_DATA,
                        reinterpret_cast<Call>(&TessellatorCalls::combine));
        gluTessCallback(tessellator_, GLU_TESS_EDGE_FLAG_DATA,
                        reinterpret_cast<Call>(&TessellatorCalls::edgeFlag));
        gluTessProperty(tessellator_, GLU_TESS_WINDING_RULE, GLU_TESS_WINDING_ODD);
    }
    auto contour = [&](std::span<int const> loop) {
        gluTessBeginContour(tessellator_);
        for (int corner : loop) {
            Point const& p = points_[std::size_t(corner)];
            GLdouble at[3] = {p.x, p.y, p.z}; // copied by the call
            gluTessVertex(tessellator_, at, asData(std::uint32_t(corner)));
        }
        gluTessEndContour(tessellator_);
    };
    std::size_t const before = triangles_.size();
    // A zero normal makes the tessellator find one of its own.
    gluTessNormal(tessellator_, normal[0], normal[1], normal[2]);
    gluTessBeginPolygon(tessellator_, this);
    contour(corners);
    for (std::size_t at = 0; at < holes.size();) {
        auto const count = std::size_t(-std::int64_t(holes[at]));
        contour(holes.subspan(at + 1, count));
        at += 1 + count;
    }
    gluTessEndPolygon(tessellator_);
    // Ended early by an error, the tessellator may leave a triangle unfinished.
    triangles_.resize(before + (triangles_.size() - before) / 3 * 3);
}

} // namespace HPS::render
