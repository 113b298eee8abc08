#include <narmeta/visu/SGContainer.h>

#include <algorithm>

namespace NarMetaVisu
{

namespace
{

using Nodes = std::vector<std::shared_ptr<Node>>;

/// Appends what @p get finds in the leaves, drawings left out.
template <class Get, class List> void CollectLeaves(Nodes const& nodes, Get const& get, List& found)
{
    for (auto const& node : nodes) {
        if (node->GetType() == NodeType::Drawing) continue;
        if (auto const& representation = get(*node);
            node->IsLeaf() && representation && representation->HasData())
            found.push_back(representation);
        CollectLeaves(node->GetChildNodes(), get, found);
    }
}

void CollectSheets(Nodes const& nodes, bool inDrawing, Nodes& sheets)
{
    for (auto const& node : nodes) {
        auto const type = node->GetType();
        if (inDrawing && (type == NodeType::DrawingSheet || type == NodeType::ActiveDrawingSheet))
            sheets.push_back(node);
        else
            CollectSheets(node->GetChildNodes(), inDrawing || type == NodeType::Drawing, sheets);
    }
}

/// Runs @p collect on the roots of a group; true if the list grew.
template <class List, class Collect> bool Gather(std::map<std::wstring, SGContainer::Group> const& groups,
                                                 std::wstring const& name, List& list, Collect const& collect)
{
    auto const before = list.size();
    if (auto const group = groups.find(name); group != groups.end()) collect(group->second.roots, list);
    return list.size() > before;
}

} // namespace

void SGContainer::AddRootNode(std::wstring const& group, std::shared_ptr<Node> root)
{
    groups_[group].roots.push_back(std::move(root));
}

void SGContainer::RenameGroup(std::wstring const& from, std::wstring const& to)
{
    if (auto group = groups_.extract(from)) {
        group.key() = to;
        groups_.insert(std::move(group));
    }
}

bool SGContainer::HasData() const
{
    return std::any_of(groups_.begin(), groups_.end(),
                       [](auto const& entry) { return !entry.second.roots.empty(); });
}

bool SGContainer::HasData(std::wstring const& group) const
{
    auto const found = groups_.find(group);
    return found != groups_.end() && !found->second.roots.empty();
}

bool SGContainer::GetRootNodes(std::wstring const& group, Nodes& nodes) const
{
    return Gather(groups_, group, nodes, [](Nodes const& roots, Nodes& list) {
        list.insert(list.end(), roots.begin(), roots.end());
    });
}

bool SGContainer::GetMeshes(std::wstring const& group, std::vector<std::shared_ptr<MeshRep>>& meshes) const
{
    return Gather(groups_, group, meshes, [](Nodes const& roots, auto& list) {
        CollectLeaves(
            roots, [](Node const& node) -> auto& { return node.GetMesh(); }, list);
    });
}

bool SGContainer::GetWires(std::wstring const& group, std::vector<std::shared_ptr<WireRep>>& wires) const
{
    return Gather(groups_, group, wires, [](Nodes const& roots, auto& list) {
        CollectLeaves(
            roots, [](Node const& node) -> auto& { return node.GetWire(); }, list);
    });
}

bool SGContainer::GetPointSets(std::wstring const& group,
                               std::vector<std::shared_ptr<PointSetRep>>& points) const
{
    return Gather(groups_, group, points, [](Nodes const& roots, auto& list) {
        CollectLeaves(
            roots, [](Node const& node) -> auto& { return node.GetPointSet(); }, list);
    });
}

bool SGContainer::GetPmis(std::wstring const& group, std::vector<std::shared_ptr<PmiRep>>& pmis) const
{
    return Gather(groups_, group, pmis, [](Nodes const& roots, auto& list) {
        CollectLeaves(
            roots, [](Node const& node) -> auto& { return node.GetPMI(); }, list);
    });
}

bool SGContainer::GetDrawingSheets(std::wstring const& group, Nodes& sheets) const
{
    return Gather(groups_, group, sheets,
                  [](Nodes const& roots, Nodes& list) { CollectSheets(roots, false, list); });
}

float SGContainer::GetScaleFactor(std::wstring const& group) const
{
    auto const found = groups_.find(group);
    return found == groups_.end() ? 1.0f : found->second.scale;
}

} // namespace NarMetaVisu
