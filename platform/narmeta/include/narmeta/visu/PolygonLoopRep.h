#pragma once

#include <narmeta/visu/EdgeRep.h>

namespace NarMetaVisu
{

enum class VisuPolygonLoopType { Unclassified = 0, Inner = 1, Outer = 2 };

/// One closed planar outline, made of edges that follow each other.
class PolygonLoopRep
{
public:
    explicit PolygonLoopRep(std::vector<std::shared_ptr<EdgeRep>> edges = {},
                            VisuPolygonLoopType type = VisuPolygonLoopType::Unclassified)
        : edges_(std::move(edges)), type_(type)
    {
    }

    std::vector<std::shared_ptr<EdgeRep>> const& GetEdges() const { return edges_; }
    VisuPolygonLoopType GetType() const { return type_; }
    void SetType(VisuPolygonLoopType type) { type_ = type; }

private:
    std::vector<std::shared_ptr<EdgeRep>> edges_;
    VisuPolygonLoopType type_;
};

} // namespace NarMetaVisu
