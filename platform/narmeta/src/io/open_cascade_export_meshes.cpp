// The model's triangles as the kernel's.
#include "open_cascade_export_document.h"

#include <narmeta/visu/Node.h>

#include <cmath>
#include <span>

namespace NarMetaInfra
{
namespace
{
using namespace NarMetaVisu;

gp_Pnt placed(float const* p, Matrix const& m)
{
    auto const at = [&](std::size_t k) {
        return p[0] * m[k] + p[1] * m[4 + k] + p[2] * m[8 + k] + m[12 + k];
    };
    return {at(0), at(1), at(2)};
}

// Normals go with the transposed inverse; its factor does not matter.
gp_Dir turned(float const* n, Matrix const& m)
{
    auto const cofactor = [&](std::size_t row, std::size_t column) {
        auto const r1 = (row + 1) % 3, r2 = (row + 2) % 3, c1 = (column + 1) % 3, c2 = (column + 2) % 3;
        return double(m[4 * r1 + c1]) * m[4 * r2 + c2] - double(m[4 * r1 + c2]) * m[4 * r2 + c1];
    };
    gp_XYZ sum;
    for (std::size_t k = 0; k < 3; ++k)
        sum.SetCoord(static_cast<int>(k) + 1,
                     n[0] * cofactor(0, k) + n[1] * cofactor(1, k) + n[2] * cofactor(2, k));
    return sum.Modulus() > 0.0 ? gp_Dir(sum) : gp_Dir(0, 0, 1);
}

bool isMirror(Matrix const& m)
{
    return m[0] * (m[5] * m[10] - m[6] * m[9]) - m[1] * (m[4] * m[10] - m[6] * m[8]) +
               m[2] * (m[4] * m[9] - m[5] * m[8]) <
           0;
}

Handle(Poly_Triangulation) triangulation(std::span<float const> points, std::span<float const> normals,
                                         std::vector<std::uint32_t> const& corners, Matrix const& bake)
{
    auto const count = static_cast<Standard_Integer>(points.size() / 3);
    Handle(Poly_Triangulation) made = new Poly_Triangulation(
        count, static_cast<Standard_Integer>(corners.size() / 3), false, normals.size() == points.size());
    for (Standard_Integer i = 0; i < count; ++i) {
        made->SetNode(i + 1, placed(&points[3 * static_cast<std::size_t>(i)], bake));
        if (made->HasNormals())
            made->SetNormal(i + 1, turned(&normals[3 * static_cast<std::size_t>(i)], bake));
    }
    bool const flips = isMirror(bake);
    for (std::size_t t = 0; t + 2 < corners.size(); t += 3) {
        auto const a = static_cast<int>(corners[t]) + 1, b = static_cast<int>(corners[t + 1]) + 1,
                   c = static_cast<int>(corners[t + 2]) + 1;
        made->SetTriangle(static_cast<int>(t / 3) + 1,
                          flips ? Poly_Triangle(a, c, b) : Poly_Triangle(a, b, c));
    }
    return made;
}

std::vector<std::uint32_t> cornersOf(FaceRep const& face)
{
    std::vector<std::uint32_t> corners;
    for (auto const& polygon : face.GetPolygons()) {
        auto const& indices = polygon.GetIndices();
        auto const at = [&](std::size_t i) { return static_cast<std::uint32_t>(indices[i] / 3); };
        auto const add = [&](std::size_t a, std::size_t b, std::size_t c) {
            for (auto const i : {a, b, c}) corners.push_back(at(i));
        };
        switch (polygon.GetPolygonType()) {
        case VisuPolygonType::Triangles:
            for (std::size_t i = 0; i + 2 < indices.size(); i += 3) add(i, i + 1, i + 2);
            break;
        case VisuPolygonType::TriangleStrip:
            for (std::size_t i = 0; i + 2 < indices.size(); ++i)
                i % 2 ? add(i + 1, i, i + 2) : add(i, i + 1, i + 2);
            break;
        case VisuPolygonType::TriangleFan:
            for (std::size_t i = 1; i + 1 < indices.size(); ++i) add(0, i, i + 1);
            break;
        case VisuPolygonType::PolygonLoops:
            break;
        }
    }
    return corners;
}

void addNode(Node const& node, Matrix const& outer, std::vector<ExportMesh>& meshes)
{
    if (node.GetType() == NodeType::Annotations || node.GetType() == NodeType::Drawing) return;
    auto const matrix = node.GetMatrix() ? combined(*node.GetMatrix(), outer) : outer;
    if (node.GetMesh()) {
        for (auto const& face : node.GetMesh()->GetFaces()) {
            auto const corners = cornersOf(*face);
            if (corners.empty()) continue;
            ExportMesh mesh{triangulation(face->GetPoints(), face->GetNormals(), corners, matrix), {}, {}};
            if (auto const* const look = node.FindAttributes(*face)) {
                mesh.colour = look->GetColour();
                mesh.alpha = look->GetAlpha();
            }
            meshes.push_back(std::move(mesh));
        }
    }
    for (auto const& child : node.GetChildNodes()) addNode(*child, matrix, meshes);
}
} // namespace

std::vector<ExportMesh> exportMeshes(ZELReference const& reference, Matrix const& bake)
{
    std::vector<ExportMesh> meshes;
    for (auto const& body : reference.GetBodies()) {
        if (body.hidden) continue;
        for (auto const& face : body.faces) {
            auto const corners = body.TrianglesOf(face);
            ExportMesh mesh{triangulation(body.PointsOf(face), body.NormalsOf(face),
                                          {corners.begin(), corners.end()}, bake),
                            face.colour ? face.colour : body.colour, face.alpha ? face.alpha : body.alpha};
            meshes.push_back(std::move(mesh));
        }
    }
    std::wstring pid;
    std::vector<std::shared_ptr<Node>> roots;
    if (reference.GetSG() && reference.GetPID(pid)) reference.GetSG()->GetRootNodes(pid, roots);
    for (auto const& root : roots) addNode(*root, bake, meshes);
    return meshes;
}
} // namespace NarMetaInfra
