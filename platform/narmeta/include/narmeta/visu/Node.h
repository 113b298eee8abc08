#pragma once

#include <narmeta/visu/Attributes.h>
#include <narmeta/visu/MeshRep.h>
#include <narmeta/visu/PmiRep.h>
#include <narmeta/visu/PointSetRep.h>
#include <narmeta/visu/WireRep.h>

#include <array>
#include <map>

namespace NarMetaVisu
{

/// What a node stands for. Children of a root node are Geometry, GeometrySet, Annotations or Drawing.
enum class NodeType : int {
    Root = 1,
    Geometry = 2,
    GeometrySet = 3,
    Annotations = 10,
    DrawingSheet = 58,
    ActiveDrawingSheet = 59,
    Drawing = 60
};

/// A node of the visualisation tree. A group has children; a leaf has one representation.
class Node
{
public:
    explicit Node(NodeType type = NodeType::Geometry, std::wstring groupName = {})
        : type_(type), groupName_(std::move(groupName))
    {
    }

    NodeType GetType() const { return type_; }
    static std::string NodeTypeAsString(NodeType type);
    std::wstring const& GetGroupName() const { return groupName_; }

    bool IsLeaf() const { return leaf_; }
    void AddChild(std::shared_ptr<Node> child) { children_.push_back(std::move(child)), leaf_ = false; }
    /// Makes a node without children a group all the same.
    void SetGroup() { leaf_ = false; }
    std::vector<std::shared_ptr<Node>> const& GetChildNodes() const { return children_; }

    void SetTransform(std::array<float, 16> const& matrix) { matrix_ = matrix; }
    /// Writes the 16 elements of the node's matrix (row vectors, translation in 12 to 14) to the caller's own
    /// writable array, to whose element 0 @p matrix points; @p second points to element 9 of the same array.
    /// Both pointers stay as they are. False, and nothing written, without a matrix.
    bool GetTransform(float const*& matrix, float const*& second) const;
    std::optional<std::array<float, 16>> const& GetMatrix() const { return matrix_; }

    void SetAttributes(std::shared_ptr<Attributes> attributes) { attributes_ = std::move(attributes); }
    /// May be empty.
    std::shared_ptr<Attributes> const& GetAttributes() const { return attributes_; }

    /// A look for one face or edge below this node only, in place of its own.
    void SetFaceAttributes(std::shared_ptr<FaceRep> const& face, std::shared_ptr<Attributes> attributes);
    void SetEdgeAttributes(std::shared_ptr<EdgeRep> const& edge, std::shared_ptr<Attributes> attributes);
    /// What the face or edge looks like below this node; false if nothing is set.
    bool GetFaceAttributes(std::shared_ptr<FaceRep> const& face,
                           std::shared_ptr<Attributes>& attributes) const;
    bool GetEdgeAttributes(std::shared_ptr<EdgeRep> const& edge,
                           std::shared_ptr<Attributes>& attributes) const;
    /// The same by address, for the face or edge itself; null if nothing is set. The node keeps it alive.
    Attributes const* FindAttributes(FaceRep const& face) const;
    Attributes const* FindAttributes(EdgeRep const& edge) const;

    void SetMesh(std::shared_ptr<MeshRep> mesh) { mesh_ = std::move(mesh); }
    void SetWire(std::shared_ptr<WireRep> wire) { wire_ = std::move(wire); }
    void SetPointSet(std::shared_ptr<PointSetRep> points) { pointSet_ = std::move(points); }
    void SetPMI(std::shared_ptr<PmiRep> pmi) { pmi_ = std::move(pmi); }
    std::shared_ptr<MeshRep> const& GetMesh() const { return mesh_; }
    std::shared_ptr<WireRep> const& GetWire() const { return wire_; }
    std::shared_ptr<PointSetRep> const& GetPointSet() const { return pointSet_; }
    std::shared_ptr<PmiRep> const& GetPMI() const { return pmi_; }

    /// Name and id of a drawing sheet.
    void SetDWG(NarMeta::Id id, std::wstring name) { sheetId_ = id, sheetName_ = std::move(name); }
    NarMeta::Id GetDWGHashedID() const { return sheetId_; }
    std::wstring const& GetDWGDisplayName() const { return sheetName_; }

private:
    NodeType type_;
    std::wstring groupName_;
    bool leaf_ = true;
    std::vector<std::shared_ptr<Node>> children_;
    std::optional<std::array<float, 16>> matrix_;
    std::shared_ptr<Attributes> attributes_;
    std::map<std::shared_ptr<FaceRep>, std::shared_ptr<Attributes>> faceAttributes_;
    std::map<std::shared_ptr<EdgeRep>, std::shared_ptr<Attributes>> edgeAttributes_;
    std::shared_ptr<MeshRep> mesh_;
    std::shared_ptr<WireRep> wire_;
    std::shared_ptr<PointSetRep> pointSet_;
    std::shared_ptr<PmiRep> pmi_;
    NarMeta::Id sheetId_ = 0;
    std::wstring sheetName_;
};

} // namespace NarMetaVisu
