// Meshes, wires, edges and point sets of one representation as geometry.

#include "ZELRenderer.h"

#include "line_attributes.h"
#include "model_color.h"
#include "text.h"

#include <numeric>

namespace ZelVizBase
{

using NarMetaVisu::Attributes;
using NarMetaVisu::EdgeRep;
using NarMetaVisu::FaceRep;
using NarMetaVisu::MeshRep;
using NarMetaVisu::Node;
using NarMetaVisu::PointSetRep;
using NarMetaVisu::PointsRep;
using NarMetaVisu::PolygonRep;
using NarMetaVisu::VisuEdgeLineType;
using NarMetaVisu::VisuPolygonType;
using NarMetaVisu::WireRep;

namespace
{

constexpr auto diffuse = HPS::Material::Color::Channel::DiffuseColor;

std::vector<HPS::Point> toPoints(std::vector<float> const& xyz)
{
    std::vector<HPS::Point> points;
    points.reserve(xyz.size() / 3 + 1); // one more for a closed outline
    for (size_t i = 0; i + 2 < xyz.size(); i += 3) points.emplace_back(xyz[i], xyz[i + 1], xyz[i + 2]);
    return points;
}

/// Takes point and normal of each corner out of the flat arrays. An index is the offset of an x. False if one
/// lies outside them.
bool unfold(std::vector<int> const& offsets, std::vector<float> const& xyz, std::vector<float> const& normals,
            std::vector<HPS::Point>& cornerPoints, std::vector<HPS::Vector>& cornerNormals)
{
    cornerPoints.reserve(offsets.size());
    cornerNormals.reserve(offsets.size());
    for (int const offset : offsets) {
        auto const o = static_cast<size_t>(offset);
        if (offset < 0 || o + 2 >= xyz.size()) return false;
        cornerPoints.emplace_back(xyz[o], xyz[o + 1], xyz[o + 2]);
        cornerNormals.emplace_back(normals[o], normals[o + 1], normals[o + 2]);
    }
    return true;
}

HPS::SegmentKey indexedSegment(HPS::SegmentKey& parent, char const* prefix, size_t index)
{
    return parent.Subsegment((prefix + std::to_string(index)).c_str(), true);
}

HPS::ShellKit insertShell(HPS::SegmentKey& segment, std::vector<HPS::Point> const& points,
                          std::vector<HPS::Vector> const& normals, std::vector<int> const& facelist)
{
    HPS::ShellKit kit;
    kit.SetPoints(points);
    kit.SetFacelist(facelist);
    kit.SetVertexNormalsByRange(0, normals);
    segment.InsertShell(kit);
    return kit;
}

} // namespace

void ZELRenderer::insert(HPS::SegmentKey& segment, std::shared_ptr<Node> const& node,
                         std::shared_ptr<MeshRep> const& mesh)
{
    insertEdges(segment, node, mesh->GetEdges());
    for (std::shared_ptr<FaceRep> const& face : mesh->GetFaces()) {
        ModelColor color;
        bool hasMaterial = false;
        int materialIndex = 0;
        std::shared_ptr<Attributes> attributes;
        if (node->GetFaceAttributes(face, attributes) && attributes) {
            color.ReadRgb(*face, node);
            color.ReadAlpha(*face, node);
            auto const materials = attributes->GetMaterials();
            if (!materials.empty() && materials.front()) {
                auto const found = MaterialIndex.find(narrow(materials.front()->GetMaterialName()));
                hasMaterial = found != MaterialIndex.end();
                if (hasMaterial) materialIndex = found->second;
            }
        }
        HPS::SegmentKey target =
            hasMaterial ? getFaceMaterialSegment(segment, materialIndex)
            : !color.HasRgb && !color.HasAlpha
                ? getNoColorSegment(segment)
                : getFaceColorSegment(segment, color.Red, color.Green, color.Blue, color.Alpha);
        insert(target, node, face, hasMaterial);
    }
}

void ZELRenderer::insert(HPS::SegmentKey& segment, std::shared_ptr<Node> const&,
                         std::shared_ptr<FaceRep> const& face, bool)
{
    std::vector<float> const& xyz = face->GetPoints();
    std::vector<float> const& normals = face->GetNormals();
    if (xyz.size() != normals.size()) return;
    for (PolygonRep& polygon : face->GetPolygons()) {
        if (polygon.GetPolygonType() == VisuPolygonType::PolygonLoops) {
            insertPolygonLoops(segment, polygon.GetPolyLoops());
            continue;
        }
        std::vector<int> const& offsets = polygon.GetIndices();
        std::vector<HPS::Point> cornerPoints;
        std::vector<HPS::Vector> cornerNormals;
        if (!unfold(offsets, xyz, normals, cornerPoints, cornerNormals)) {
            ++Left.BrokenPolygons;
            continue;
        }
        std::vector<int> indices(offsets.size());
        std::iota(indices.begin(), indices.end(), 0);
        if (polygon.GetPolygonType() == VisuPolygonType::TriangleStrip)
            insertShellTriangleStrip(segment, cornerPoints, cornerNormals, indices);
        else if (polygon.GetPolygonType() == VisuPolygonType::TriangleFan)
            insertShellTriangleFan(segment, cornerPoints, cornerNormals, indices);
        else
            insertShellTriangles(segment, cornerPoints, cornerNormals, indices);
    }
}

HPS::ShellKit ZELRenderer::insertShellTriangles(HPS::SegmentKey& segment,
                                                std::vector<HPS::Point> const& points,
                                                std::vector<HPS::Vector> const& normals,
                                                std::vector<int> const& indices)
{
    std::vector<int> facelist;
    facelist.reserve(indices.size() + indices.size() / 3);
    for (size_t i = 0; i + 2 < indices.size(); i += 3)
        facelist.insert(facelist.end(), {3, indices[i], indices[i + 1], indices[i + 2]});
    return insertShell(segment, points, normals, facelist);
}

HPS::ShellKit ZELRenderer::insertShellTriangles(HPS::SegmentKey& segment,
                                                std::vector<HPS::Point> const& points,
                                                std::vector<HPS::Vector> const& normals,
                                                std::vector<int> const& indices, std::vector<float> const&)
{
    return insertShellTriangles(segment, points, normals, indices);
}

HPS::ShellKit ZELRenderer::insertShellTriangleStrip(HPS::SegmentKey& segment,
                                                    std::vector<HPS::Point> const& points,
                                                    std::vector<HPS::Vector> const& normals,
                                                    std::vector<int> const& indices)
{
    if (indices.size() < 3) return {};
    std::vector<int> facelist;
    facelist.reserve(4 * (indices.size() - 2));
    for (size_t t = 0; t + 2 < indices.size(); ++t) {
        // Every second triangle of a strip runs the other way round.
        size_t const odd = t % 2;
        facelist.insert(facelist.end(), {3, indices[t + odd], indices[t + 1 - odd], indices[t + 2]});
    }
    return insertShell(segment, points, normals, facelist);
}

HPS::ShellKit ZELRenderer::insertShellTriangleFan(HPS::SegmentKey& segment,
                                                  std::vector<HPS::Point> const& points,
                                                  std::vector<HPS::Vector> const& normals,
                                                  std::vector<int> const& indices)
{
    if (indices.size() < 3) return {};
    std::vector<int> facelist;
    facelist.reserve(4 * (indices.size() - 2));
    for (size_t t = 0; t + 2 < indices.size(); ++t)
        facelist.insert(facelist.end(), {3, indices[0], indices[t + 1], indices[t + 2]});
    return insertShell(segment, points, normals, facelist);
}

void ZELRenderer::insert(HPS::SegmentKey& segment, std::shared_ptr<Node> const& node,
                         std::shared_ptr<WireRep> const& wire)
{
    if (segment.Type() == HPS::Type::None || !wire->HasData()) return;
    insertEdges(segment, node, wire->GetEdges());
}

void ZELRenderer::insertEdges(HPS::SegmentKey& segment, std::shared_ptr<Node> const& node,
                              std::vector<std::shared_ptr<EdgeRep>> const& edges)
{
    for (size_t i = 0; i < edges.size(); ++i) {
        HPS::SegmentKey target = indexedSegment(segment, "Ed_", i);
        insert(target, node, edges[i]);
    }
}

void ZELRenderer::insert(HPS::SegmentKey& segment, std::shared_ptr<Node> const& node,
                         std::shared_ptr<EdgeRep> const& edge)
{
    ModelColor color;
    std::shared_ptr<Attributes> attributes;
    if (node->GetEdgeAttributes(edge, attributes) && attributes) {
        color.ReadRgb(*edge, node);
        color.ReadAlpha(*edge, node);
        setLineAttributes(segment, *attributes);
    }
    VisuEdgeLineType const type = edge->GetLineType();
    HPS::MaterialMappingControl mapping = segment.GetMaterialMappingControl();
    if (color.HasRgb) {
        HPS::RGBAColor const opaque = color.Opaque();
        if (type == VisuEdgeLineType::Closed)
            mapping.SetEdgeColor(opaque, diffuse);
        else
            mapping.SetLineColor(opaque);
        if (type == VisuEdgeLineType::ClosedFilled) {
            mapping.SetFaceColor(opaque, diffuse);
            mapping.SetEdgeColor(opaque, diffuse);
        }
    }
    if (color.HasAlpha) {
        float const alpha = ModelColor::Unit(color.Alpha);
        mapping.SetLineAlpha(alpha);
        if (type == VisuEdgeLineType::ClosedFilled) {
            mapping.SetFaceAlpha(alpha);
            mapping.SetEdgeAlpha(alpha);
        }
    }

    std::vector<HPS::Point> points = toPoints(edge->GetPoints());
    if (points.empty()) return;
    bool const filled = type == VisuEdgeLineType::ClosedFilled;
    if (type == VisuEdgeLineType::Open) {
        segment.InsertLine(points);
    } else if (filled || type == VisuEdgeLineType::Closed) {
        points.push_back(points.front());
        segment.GetVisibilityControl().SetFaces(filled).SetEdges(!filled).SetLines(!filled);
        segment.InsertPolygon(points);
    }
}

void ZELRenderer::insert(HPS::SegmentKey& segment, std::shared_ptr<Node> const&,
                         std::shared_ptr<PointSetRep> const& pointSet)
{
    segment.SetVisibility(HPS::VisibilityKit().SetMarkers(true));
    size_t index = 0;
    for (std::shared_ptr<PointsRep> const& list : pointSet->GetPoints()) {
        HPS::SegmentKey target = indexedSegment(segment, "PSet_", index++);
        std::string const glyph = mapMarkerStyleToGlyphName(list->GetMarkerStyle());
        target.GetMarkerAttributeControl()
            .SetSymbol(glyph.c_str())
            .SetSize(2.0F, HPS::Marker::SizeUnits::Points)
            .SetDrawingPreference(HPS::Marker::DrawingPreference::Fastest);
        ModelColor color;
        color.ReadRgb(*list);
        color.ReadAlpha(*list);
        // Without its own alpha a point list is opaque, which is what an absent channel holds.
        if (color.HasRgb)
            target.GetMaterialMappingControl().SetMarkerColor(color.HasAlpha ? color.Rgba() : color.Opaque());
        for (HPS::Point const& point : toPoints(list->GetPoints())) target.InsertMarker(point);
    }
}

} // namespace ZelVizBase
