#pragma once

#include "CadDocument.h"
#include "ZELRenderer.h"

#include <optional>

/// A plate: a body of one square face of side 2 in the plane y = 0, seen from the front (-y), two of its
/// edges and one vertex. Its ids count from `first`: body, face, edge, edge, vertex.
inline NarMetaInfra::BrepBody plate(NarMeta::Id first, std::array<float, 3> const& centre = {})
{
    auto const [x, y, z] = centre;
    float const points[] = {x - 1, y, z - 1, x + 1, y, z - 1, x + 1, y, z + 1, x - 1, y, z + 1};
    float const normals[] = {0, -1, 0, 0, -1, 0, 0, -1, 0, 0, -1, 0};
    std::uint32_t const triangles[] = {0, 1, 2, 0, 2, 3};
    NarMetaInfra::BrepBody body;
    body.id = first;
    body.AddFace(first + 1, points, normals, triangles);
    body.AddEdge(first + 2, std::span(points).first(6));
    body.AddEdge(first + 3, std::span(points).subspan(3, 6));
    body.AddVertex(first + 4, {x - 1, y, z - 1});
    return body;
}

inline NarMetaInfra::Matrix translation(float x, float y, float z)
{
    NarMetaInfra::Matrix matrix = NarMetaInfra::IdentityMatrix;
    matrix[12] = x;
    matrix[13] = y;
    matrix[14] = z;
    return matrix;
}

/// A document whose model is made by hand.
struct PlateDocument {
    HPS::World world;
    MoraCore::AViewTree view;
    ZelCad::CadDocument document{&view};
    NarMetaInfra::ZELProductStructure& model = *document.GetProductStructure();

    PlateDocument()
    {
        model.SetPID(L"plates");
        model.SetProductName(L"Plates");
    }

    std::shared_ptr<NarMetaInfra::ZELReference> part(std::wstring const& pid)
    {
        return model.AddReference(NarMetaInfra::ZELReference::Kind::Part, pid, pid);
    }

    HPS::SegmentKey instanceSegment(std::wstring const& pid)
    {
        HPS::Key key;
        document.GetRenderer()->GetObjectMapper()->Get(pid, key);
        return HPS::SegmentKey(key);
    }
};
