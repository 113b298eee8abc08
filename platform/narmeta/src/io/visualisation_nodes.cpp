#include "visualisation_nodes.h"

namespace NarMetaInfra
{
namespace
{
using namespace NarMetaVisu;

std::shared_ptr<Attributes> attributesOf(std::optional<Colour> const& colour,
                                         std::optional<unsigned short> const& alpha)
{
    if (!colour && !alpha) return nullptr;
    auto attributes = std::make_shared<Attributes>();
    attributes->SetColour(colour);
    attributes->SetAlphaColor(alpha);
    return attributes;
}

template <typename Value> std::vector<Value> copied(std::span<Value const> values)
{
    return {values.begin(), values.end()};
}

std::shared_ptr<FaceRep> faceRep(BrepBody const& body, BrepFace const& face, FaceSurfaces const& surfaces)
{
    auto rep = std::make_shared<FaceRep>(copied(body.PointsOf(face)), copied(body.NormalsOf(face)));
    std::vector<int> indices;
    auto const triangles = body.TrianglesOf(face);
    indices.reserve(triangles.size());
    for (auto const point : triangles) indices.push_back(static_cast<int>(point * 3));
    rep->AddPolygon(PolygonRep(VisuPolygonType::Triangles, std::move(indices)));
    bool const own = face.colour || face.alpha;
    auto attributes = own ? attributesOf(face.colour, face.alpha) : attributesOf(body.colour, body.alpha);
    if (auto const surface = surfaces.find(face.id); surface != surfaces.end()) {
        rep->SetTextureCoordinates(surface->second.textureCoordinates);
        if (!attributes) attributes = std::make_shared<Attributes>();
        if (surface->second.material) attributes->AddMaterial(surface->second.material);
    }
    rep->SetAttributes(std::move(attributes));
    return rep;
}

std::shared_ptr<EdgeRep> edgeRep(BrepBody const& body, BrepEdge const& edge)
{
    auto rep = std::make_shared<EdgeRep>(copied(body.PointsOf(edge)));
    rep->SetAttributes(attributesOf(edge.colour, std::nullopt));
    return rep;
}

std::shared_ptr<Node> nodeOf(BrepBody const& body, FaceSurfaces const& surfaces)
{
    auto node = std::make_shared<Node>(NodeType::Geometry);
    if (!body.faces.empty()) {
        auto mesh = std::make_shared<MeshRep>(body.id, body.name);
        for (auto const& face : body.faces) mesh->AddFace(faceRep(body, face, surfaces));
        for (auto const& edge : body.edges) mesh->AddEdge(edgeRep(body, edge));
        node->SetMesh(std::move(mesh));
    } else if (!body.edges.empty()) {
        auto wire = std::make_shared<WireRep>(body.id, body.name);
        for (auto const& edge : body.edges) wire->AddEdge(edgeRep(body, edge));
        node->SetWire(std::move(wire));
    } else {
        std::vector<float> points;
        points.reserve(3 * body.vertices.size());
        for (auto const& vertex : body.vertices)
            points.insert(points.end(), vertex.point.begin(), vertex.point.end());
        auto set = std::make_shared<PointSetRep>(body.id, body.name);
        set->AddPoints(std::make_shared<PointsRep>(std::move(points)));
        node->SetPointSet(std::move(set));
    }
    return node;
}
} // namespace

void makeGraphical(ZELReference& reference, std::vector<BrepBody> bodies, FaceSurfaces const& surfaces)
{
    reference.SetGraphical(true);
    auto root = std::make_shared<Node>(NodeType::Root);
    for (auto& body : bodies) {
        if (!body.hidden) root->AddChild(nodeOf(body, surfaces));
        body = BrepBody(); // one body at a time stands in memory twice
    }
    std::wstring pid;
    if (root->GetChildNodes().empty() || !reference.GetPID(pid)) return;
    auto container = std::make_shared<SGContainer>();
    container->AddRootNode(pid, std::move(root));
    reference.SetSG(std::move(container));
}
} // namespace NarMetaInfra
