#pragma once

#include <narmeta/visu/FaceRep.h>
#include <narmeta/visu/Representation.h>

namespace NarMetaVisu
{

/// Faces and the edges drawn on them.
class MeshRep : public Representation
{
public:
    using Representation::Representation;

    bool HasData() const { return !faces_.empty() || !edges_.empty(); }

    void AddFace(std::shared_ptr<FaceRep> face) { faces_.push_back(std::move(face)); }
    void AddEdge(std::shared_ptr<EdgeRep> edge) { edges_.push_back(std::move(edge)); }
    std::vector<std::shared_ptr<FaceRep>>& GetFaces() { return faces_; }
    std::vector<std::shared_ptr<FaceRep>> const& GetFaces() const { return faces_; }
    std::vector<std::shared_ptr<EdgeRep>>& GetEdges() { return edges_; }
    std::vector<std::shared_ptr<EdgeRep>> const& GetEdges() const { return edges_; }

private:
    std::vector<std::shared_ptr<FaceRep>> faces_;
    std::vector<std::shared_ptr<EdgeRep>> edges_;
};

} // namespace NarMetaVisu
