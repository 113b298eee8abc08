#include "OutlineFiller.h"
#include <GL/glu.h>

namespace HPS::render
{
namespace
{

void* asData(std::size_t index)
{
    return reinterpret_cast<void*>(std::uintptr_t(index));
}

} // namespace

struct OutlineFillerCalls {
    static void vertex(void* data, void* filler)
    {
        auto& self = *static_cast<OutlineFiller*>(filler);
        self.mesh_->indices.push_back(std::uint32_t(reinterpret_cast<std::uintptr_t>(data)));
    }
    static void combine(GLdouble const at[3], void* const[4], GLfloat const[4], void** out, void* filler)
    {
        auto& self = *static_cast<OutlineFiller*>(filler);
        *out = asData(self.mesh_->corners.size());
        self.mesh_->corners.push_back({float(at[0]), float(at[1])});
    }
    // Asking for edge flags makes the tessellator give plain triangles, no strips and fans.
    static void edgeFlag(GLboolean, void*) {}
};

void FlatMesh::addQuad(std::array<Corner, 4> const& around)
{
    auto const first = std::uint32_t(corners.size());
    corners.insert(corners.end(), around.begin(), around.end());
    for (std::uint32_t i : {0u, 1u, 2u, 0u, 2u, 3u}) indices.push_back(first + i);
}

OutlineFiller::OutlineFiller() : tessellator_(gluNewTess())
{
    using Call = void (*)();
    gluTessCallback(tessellator_, GLU_TESS_VERTEX_DATA, Call(&OutlineFillerCalls::vertex));
    gluTessCallback(tessellator_, GLU_TESS_COMBINE_DATA, Call(&OutlineFillerCalls::combine));
    gluTessCallback(tessellator_, GLU_TESS_EDGE_FLAG_DATA, Call(&OutlineFillerCalls::edgeFlag));
    gluTessProperty(tessellator_, GLU_TESS_WINDING_RULE, GLU_TESS_WINDING_NONZERO);
    gluTessNormal(tessellator_, 0, 0, 1);
}

OutlineFiller::~OutlineFiller()
{
    gluDeleteTess(tessellator_);
}

void OutlineFiller::fill(std::span<Contour const> contours, FlatMesh& mesh)
{
    mesh_ = &mesh;
    std::size_t const indices = mesh.indices.size();
    gluTessBeginPolygon(tessellator_, this);
    for (Contour const& contour : contours) {
        if (contour.size() < 3) continue;
        gluTessBeginContour(tessellator_);
        for (FlatMesh::Corner const& corner : contour) {
            GLdouble at[3] = {corner.x, corner.y, 0};
            gluTessVertex(tessellator_, at, asData(mesh.corners.size()));
            mesh.corners.push_back(corner);
        }
        gluTessEndContour(tessellator_);
    }
    gluTessEndPolygon(tessellator_);
    // A tessellation that failed halfway leaves no whole number of triangles.
    mesh.indices.resize(indices + (mesh.indices.size() - indices) / 3 * 3);
    mesh_ = nullptr;
}

} // namespace HPS::render
