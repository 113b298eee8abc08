#pragma once

#include <narmeta/visu/PolygonLoopRep.h>

namespace NarMetaVisu
{

enum class VisuPolygonType { Triangles = 1, TriangleStrip = 2, TriangleFan = 3, PolygonLoops = 4 };

/// A piece of a face: triangles in one of three orders, or planar loops.
class PolygonRep
{
public:
    PolygonRep(VisuPolygonType type, std::vector<int> indices) : type_(type), indices_(std::move(indices)) {}
    explicit PolygonRep(std::vector<PolygonLoopRep> loops)
        : type_(VisuPolygonType::PolygonLoops), loops_(std::move(loops))
    {
    }

    VisuPolygonType GetPolygonType() const { return type_; }
    /// Each index names the element of x in the flat point array of the face: vertex number times 3.
    std::vector<int> const& GetIndices() const { return indices_; }
    /// Writable: whoever draws the loops keeps what it found about inside and outside here.
    std::vector<PolygonLoopRep>& GetPolyLoops() { return loops_; }
    std::vector<PolygonLoopRep> const& GetPolyLoops() const { return loops_; }

private:
    VisuPolygonType type_;
    std::vector<int> indices_;
    std::vector<PolygonLoopRep> loops_;
};

} // namespace NarMetaVisu
