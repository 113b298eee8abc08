#pragma once

#include <narmeta/visu/Node.h>

namespace NarMetaVisu
{

/// Visualisation data by group name; the group of a reference or of the product bears its PID. Every list
/// getter appends, in tree order, and gives false if it found nothing.
class SGContainer
{
public:
    struct Group {
        std::vector<std::shared_ptr<Node>> roots;
        float scale = 1.0f;
    };

    void AddRootNode(std::wstring const& group, std::shared_ptr<Node> root);
    void SetScaleFactor(std::wstring const& group, float scale) { groups_[group].scale = scale; }
    /// For an owner whose PID changes.
    void RenameGroup(std::wstring const& from, std::wstring const& to);
    std::map<std::wstring, Group> const& GetGroups() const { return groups_; }

    bool HasData() const;
    bool HasData(std::wstring const& group) const;
    bool GetRootNodes(std::wstring const& group, std::vector<std::shared_ptr<Node>>& nodes) const;

    /// Representations of all leaves but those of drawings.
    bool GetMeshes(std::wstring const& group, std::vector<std::shared_ptr<MeshRep>>& meshes) const;
    bool GetWires(std::wstring const& group, std::vector<std::shared_ptr<WireRep>>& wires) const;
    bool GetPointSets(std::wstring const& group, std::vector<std::shared_ptr<PointSetRep>>& points) const;
    bool GetPmis(std::wstring const& group, std::vector<std::shared_ptr<PmiRep>>& pmis) const;

    /// Nodes of type DrawingSheet or ActiveDrawingSheet below Drawing nodes.
    bool GetDrawingSheets(std::wstring const& group, std::vector<std::shared_ptr<Node>>& sheets) const;
    /// 1 for a group without data.
    float GetScaleFactor(std::wstring const& group) const;

private:
    std::map<std::wstring, Group> groups_;
};

} // namespace NarMetaVisu
