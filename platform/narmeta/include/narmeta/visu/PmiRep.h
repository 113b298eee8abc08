#pragma once

#include <narmeta/visu/MeshRep.h>
#include <narmeta/visu/TextRep.h>

namespace NarMetaVisu
{

/// The picture of an annotation: texts, lines and filled shapes.
class PmiRep : public Representation
{
public:
    using Representation::Representation;

    bool HasData() const { return !strings_.empty() || !edges_.empty() || mesh_; }

    void AddString(std::shared_ptr<TextRep> text) { strings_.push_back(std::move(text)); }
    void AddEdge(std::shared_ptr<EdgeRep> edge) { edges_.push_back(std::move(edge)); }
    void SetMesh(std::shared_ptr<MeshRep> mesh) { mesh_ = std::move(mesh); }
    std::vector<std::shared_ptr<TextRep>> const& GetStrings() const { return strings_; }
    std::vector<std::shared_ptr<EdgeRep>>& GetEdges() { return edges_; }
    std::vector<std::shared_ptr<EdgeRep>> const& GetEdges() const { return edges_; }
    /// May be empty.
    std::shared_ptr<MeshRep> const& GetMesh() const { return mesh_; }

private:
    std::vector<std::shared_ptr<TextRep>> strings_;
    std::vector<std::shared_ptr<EdgeRep>> edges_;
    std::shared_ptr<MeshRep> mesh_;
};

} // namespace NarMetaVisu
