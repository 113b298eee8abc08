#include "ZELRenderTree.h"

#include "instance_flags.h"

namespace ZelVizBase
{

using namespace NarMetaVisu;
using MoraCore::TreeBuilder;
using MoraCore::TreeItemStyles;
using ZELVizCore::EntityType;
using ZELVizCore::RenderId;
using ZELVizCore::ToValue;

namespace
{

template <class Rep> using Reps = std::vector<std::shared_ptr<Rep>>;

template <class Rep> std::wstring displayName(Rep const& rep, wchar_t const* otherwise)
{
    return rep.GetDisplayName().empty() ? otherwise : rep.GetDisplayName();
}

/// The representations of one kind in a branch, in the order of the branch.
template <class Rep> void collect(Node const& node, std::shared_ptr<Rep> const& (Node::*get)() const,
                                  unsigned depth, Reps<Rep>& reps)
{
    if (auto const& rep = (node.*get)()) reps.push_back(rep);
    if (depth == 0) return;
    for (auto const& child : node.GetChildNodes())
        if (child) collect(*child, get, depth - 1, reps);
}

Reps<WireRep> getWires(Node const& sheet)
{
    Reps<WireRep> reps;
    collect(sheet, &Node::GetWire, ZELRenderTree::MaxDepth, reps);
    return reps;
}

Reps<PointSetRep> getPointSets(Node const& sheet)
{
    Reps<PointSetRep> reps;
    collect(sheet, &Node::GetPointSet, ZELRenderTree::MaxDepth, reps);
    return reps;
}

Reps<PmiRep> getPmis(Node const& sheet)
{
    Reps<PmiRep> reps;
    collect(sheet, &Node::GetPMI, ZELRenderTree::MaxDepth, reps);
    return reps;
}

using Begin = void (TreeBuilder::*)(TreeBuilder::Id const&, TreeBuilder::Name const&);
using End = void (TreeBuilder::*)();

/// How a kind of representation enters the tree.
template <class Rep> struct Entry {
    wchar_t const* name; ///< of one that has none
    Begin begin;
    End end;
};
constexpr Entry<MeshRep> meshEntry{L"Mesh", &TreeBuilder::BeginMesh, &TreeBuilder::EndMesh};
constexpr Entry<WireRep> wireEntry{L"Wire", &TreeBuilder::BeginWire, &TreeBuilder::EndWire};
constexpr Entry<PointSetRep> pointSetEntry{L"PointSet", &TreeBuilder::BeginPointSet,
                                           &TreeBuilder::EndPointSet};

} // namespace

void ZELRenderTree::setOpenNodeVisible(bool visible)
{
    TreeBuilder& builder = getTreeBuilder();
    if (RenderId path; builder.GetCurrentId(path)) builder.SetItemVisible(visible);
}

void ZELRenderTree::enterPart(InstancePtr const& instance, u64 const& referenceId,
                              std::wstring const& toolTip)
{
    RenderId path;
    EntityId entity;
    if (getTreeBuilder().GetCurrentId(path) &&
        addToPartMap(instance, referenceId, ToValue(EntityType::Visualisation), path, entity))
        addToTooltipMap(entity, toolTip);
}

template <class Rep, class Kind> void ZELRenderTree::renderReps(InstancePtr const& instance, bool visible,
                                                                Reps<Rep> const& reps, Kind const& kind)
{
    TreeBuilder& builder = getTreeBuilder();
    for (auto const& rep : reps) {
        if (!rep) continue;
        std::wstring name = displayName(*rep, kind.name);
        makeNameFromHidden(instance, name);
        (builder.*kind.begin)(rep->GetHashedID(), name);
        setOpenNodeVisible(visible);
        (builder.*kind.end)();
    }
}

void ZELRenderTree::renderVisu(InstancePtr const& instance, u64 const& referenceId, std::wstring const& pid,
                               std::shared_ptr<SGContainer> const& container)
{
    if (!container || !container->HasData(pid)) return;
    bool const visible = instance && isShown(*instance);
    TreeBuilder& builder = getTreeBuilder();

    if (Reps<Node> sheets; container->GetDrawingSheets(pid, sheets)) {
        builder.BeginDrawingSheets(ToValue(EntityType::Visualisation), L"DrawingSheets");
        enterPart(instance, referenceId, L"DrawingSheets Data");
        for (auto const& sheet : sheets)
            if (sheet) renderDrawingSheet(instance, visible, *sheet);
        builder.EndDrawingSheets();
        return;
    }

    if (instance) {
        builder.BeginGeometry(ToValue(EntityType::Visualisation), L"Geometry");
        enterPart(instance, referenceId, L"VisuData Geometry");
        Reps<MeshRep> meshes;
        container->GetMeshes(pid, meshes);
        renderReps(instance, visible, meshes, meshEntry);
        Reps<WireRep> wires;
        container->GetWires(pid, wires);
        renderReps(instance, visible, wires, wireEntry);
        Reps<PointSetRep> pointSets;
        container->GetPointSets(pid, pointSets);
        renderReps(instance, visible, pointSets, pointSetEntry);
        builder.EndGeometry();
    }

    Reps<PmiRep> pmis;
    if (!container->GetPmis(pid, pmis)) return;
    builder.BeginAnnotations(ToValue(EntityType::Annotations), L"Annotations");
    for (auto const& pmi : pmis) {
        if (!pmi) continue;
        std::wstring name = displayName(*pmi, L"PMI");
        if (instance) makeNameFromHidden(instance, name);
        builder.BeginItem(pmi->GetHashedID(), name, TreeItemStyles::AnnotationSet);
        setOpenNodeVisible(!instance || visible);
        builder.EndItem();
    }
    builder.EndAnnotations();
}

void ZELRenderTree::renderDrawingSheet(InstancePtr const& instance, bool visible, Node const& sheet)
{
    TreeBuilder& builder = getTreeBuilder();
    std::wstring name = sheet.GetDWGDisplayName().empty() ? L"DRWINGSHEET" : sheet.GetDWGDisplayName();
    if (sheet.GetType() == NodeType::ActiveDrawingSheet) name += L" (*)";
    makeNameFromHidden(instance, name);
    builder.BeginItem(sheet.GetDWGHashedID(), name, TreeItemStyles::DrawingSheet);
    setOpenNodeVisible(visible);
    renderReps(instance, visible, getWires(sheet), wireEntry);
    renderReps(instance, visible, getPointSets(sheet), pointSetEntry);
    for (auto const& pmi : getPmis(sheet)) {
        std::wstring pmiName = displayName(*pmi, L"PMI");
        makeNameFromHidden(instance, pmiName);
        builder.BeginItem(pmi->GetHashedID(), pmiName, TreeItemStyles::AnnotationSet);
        setOpenNodeVisible(visible);
        builder.EndItem();
    }
    builder.EndItem();
}

} // namespace ZelVizBase
