#pragma once

#include <memory>
#include <vector>

namespace NarMetaVisu
{

class Attributes;
class Node;

enum class VisuEdgeLineType { Open = 1, Closed = 2, ClosedFilled = 3 };

/// A polyline. A closed one does not repeat its first point.
class EdgeRep
{
public:
    explicit EdgeRep(std::vector<float> points = {}, VisuEdgeLineType type = VisuEdgeLineType::Open)
        : points_(std::move(points)), type_(type)
    {
    }

    /// x, y, z in a row.
    std::vector<float> const& GetPoints() const { return points_; }
    VisuEdgeLineType GetLineType() const { return type_; }

    /// The edge's own look, which a node may replace (Node::GetEdgeAttributes).
    void SetAttributes(std::shared_ptr<Attributes> attributes) { attributes_ = std::move(attributes); }
    std::shared_ptr<Attributes> const& GetAttributes() const { return attributes_; }

    /// The colour below @p node; false if there is none.
    bool GetRGBColor(std::shared_ptr<Node> const& node, unsigned short& red, unsigned short& green,
                     unsigned short& blue) const;
    bool GetAlphaColor(std::shared_ptr<Node> const& node, unsigned short& alpha) const;

private:
    std::vector<float> points_;
    VisuEdgeLineType type_;
    std::shared_ptr<Attributes> attributes_;
};

} // namespace NarMetaVisu
