#pragma once

#include <narmeta/visu/EdgeRep.h>
#include <narmeta/visu/Representation.h>

namespace NarMetaVisu
{

/// Lines that belong to no face.
class WireRep : public Representation
{
public:
    using Representation::Representation;

    bool HasData() const { return !edges_.empty(); }

    void AddEdge(std::shared_ptr<EdgeRep> edge) { edges_.push_back(std::move(edge)); }
    std::vector<std::shared_ptr<EdgeRep>>& GetEdges() { return edges_; }
    std::vector<std::shared_ptr<EdgeRep>> const& GetEdges() const { return edges_; }

private:
    std::vector<std::shared_ptr<EdgeRep>> edges_;
};

} // namespace NarMetaVisu
