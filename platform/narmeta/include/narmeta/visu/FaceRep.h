#pragma once

#include <narmeta/visu/PolygonRep.h>

namespace NarMetaVisu
{

/// A face of a mesh: flat points and normals of equal length, and polygons that index both.
class FaceRep
{
public:
    explicit FaceRep(std::vector<float> points = {}, std::vector<float> normals = {})
        : points_(std::move(points)), normals_(std::move(normals))
    {
    }

    std::vector<float> const& GetPoints() const { return points_; }
    std::vector<float> const& GetNormals() const { return normals_; }

    /// u, v in a row, one pair per point, v upwards; empty if the face carries none.
    void SetTextureCoordinates(std::vector<float> pairs) { textureCoordinates_ = std::move(pairs); }
    std::vector<float> const& GetTextureCoordinates() const { return textureCoordinates_; }

    void AddPolygon(PolygonRep polygon) { polygons_.push_back(std::move(polygon)); }
    std::vector<PolygonRep>& GetPolygons() { return polygons_; }
    std::vector<PolygonRep> const& GetPolygons() const { return polygons_; }

    /// The face's own look, which a node may replace (Node::GetFaceAttributes).
    void SetAttributes(std::shared_ptr<Attributes> attributes) { attributes_ = std::move(attributes); }
    std::shared_ptr<Attributes> const& GetAttributes() const { return attributes_; }

    /// The colour below @p node; false if there is none.
    bool GetRGBColor(std::shared_ptr<Node> const& node, unsigned short& red, unsigned short& green,
                     unsigned short& blue) const;
    bool GetAlphaColor(std::shared_ptr<Node> const& node, unsigned short& alpha) const;

private:
    std::vector<float> points_;
    std::vector<float> normals_;
    std::vector<float> textureCoordinates_;
    std::vector<PolygonRep> polygons_;
    std::shared_ptr<Attributes> attributes_;
};

} // namespace NarMetaVisu
