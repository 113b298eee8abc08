#include "CadTree.h"

#include "text.h"

#include <algorithm>
#include <cwctype>

namespace ZelCad
{

using MoraCore::TreeBuilder;
using NarMetaInfra::BrepBody;

namespace
{

std::wstring nameOf(BrepBody const& body, std::size_t index)
{
    std::wstring name = body.name.empty() ? L"Body " + std::to_wstring(index + 1) : body.name;
    if (body.hidden) name += L" (hidden)";
    return name;
}

struct TopologyKind {
    ZELVizCore::EntityType type;
    wchar_t const* group;
    std::wstring one;
    MoraCore::TreeItemStyles style;
};
TopologyKind const TopologyKinds[] = {
    {ZELVizCore::EntityType::Face, L"Faces", L"Face ", MoraCore::TreeItemStyles::Face},
    {ZELVizCore::EntityType::Edge, L"Edges", L"Edge ", MoraCore::TreeItemStyles::Edge},
    {ZELVizCore::EntityType::Vertex, L"Vertices", L"Vertex ", MoraCore::TreeItemStyles::Vertex},
};

std::wstring folded(std::wstring text)
{
    std::ranges::transform(text, text.begin(),
                           [](wchar_t c) { return std::towlower(static_cast<wint_t>(c)); });
    return text;
}

} // namespace

bool CadTree::Render()
{
    auto const start = std::chrono::steady_clock::now();
    bool const rendered = ZELRenderTree::Render();
    RenderTime = std::chrono::steady_clock::now() - start;
    return rendered;
}

bool CadTree::GetBodyList(std::vector<EntityId>& bodies)
{
    for (auto const& [body, id] : GetBodyMap()) bodies.push_back(body);
    return !GetBodyMap().empty();
}

bool CadTree::FindNodes(std::wstring const& text, std::vector<RenderId>& out) const
{
    if (!GetView()) return false;
    TreeBuilder const& tree = GetView()->GetTreeBuilder();
    std::wstring const sought = folded(text);
    std::size_t const before = out.size();
    for (std::size_t i = 0; i < tree.Items().size(); ++i)
        if (folded(tree.Items()[i].name).find(sought) != std::wstring::npos)
            out.push_back(tree.GetPath(static_cast<std::int32_t>(i)));
    return out.size() > before;
}

TreeBuilder::Item const* CadTree::FindNode(RenderId const& id) const
{
    if (!GetView()) return nullptr;
    TreeBuilder const& tree = GetView()->GetTreeBuilder();
    std::int32_t const position = tree.Find(id);
    return position == TreeBuilder::NoItem ? nullptr : &tree.Items()[static_cast<std::size_t>(position)];
}

bool CadTree::hasPartContent(std::shared_ptr<ZELReference> const& reference) const
{
    return IsBrepDisplayedInTree() && !reference->GetBodies().empty();
}

void CadTree::renderPartContent(std::shared_ptr<ZELReference> const& reference, RenderId&)
{
    bool const displayed = hasPartContent(reference);
    RenderId path;
    TreeBuilder& tree = getTreeBuilder();
    std::vector<BrepBody> const& bodies = reference->GetBodies();
    if (!displayed) {
        // A model that is one part finds its bodies without nodes, too.
        if (ProductStructure->IsAssembly() || !tree.GetCurrentId(path)) return;
        path.AddValue(ToValue(EntityType::Brep));
        for (BrepBody const& body : bodies) {
            RenderId bodyPath = path;
            bodyPath.AddValue(body.id);
            enterBody(*reference, body, bodyPath);
        }
        return;
    }
    tree.BeginItem(ToValue(EntityType::Brep), L"Bodies", TreeItemStyles::Geometry);
    for (std::size_t i = 0; i < bodies.size(); ++i) {
        BrepBody const& body = bodies[i];
        tree.BeginItem(body.id, nameOf(body, i), TreeItemStyles::Body);
        if (tree.GetCurrentId(path)) {
            enterBody(*reference, body, path);
            addToTooltipMap({ToValue(EntityType::Brep), EntityType::Body, body.id},
                            L"Body \"" + nameOf(body, i) + L"\"");
        }
        if (body.hidden) tree.SetItemVisible(false);
        if (IsFeaturesDisplayedInTree()) renderTopology(body);
        tree.EndItem();
    }
    tree.EndItem();
}

void CadTree::renderTopology(BrepBody const& body)
{
    TreeBuilder& tree = getTreeBuilder();
    tree.BeginItem(ToValue(EntityType::TopologyTree), L"Topology", TreeItemStyles::Feature);
    renderTopology(EntityType::Face, body.faces);
    renderTopology(EntityType::Edge, body.edges);
    renderTopology(EntityType::Vertex, body.vertices);
    tree.EndItem();
}

template <class Part> void CadTree::renderTopology(EntityType type, std::vector<Part> const& parts)
{
    if (parts.empty()) return;
    TopologyKind const& kind = *std::ranges::find(TopologyKinds, type, &TopologyKind::type);
    TreeBuilder& tree = getTreeBuilder();
    tree.BeginItem(ToValue(type), kind.group, kind.style);
    RenderId path;
    if (tree.GetCurrentId(path)) {
        std::vector<u64>& ids = TopoIds[path];
        for (Part const& part : parts) ids.push_back(part.id);
    }
    for (std::size_t i = 0; i < parts.size(); ++i) {
        tree.BeginItem(parts[i].id, kind.one + std::to_wstring(i + 1), kind.style);
        tree.EndItem();
    }
    tree.EndItem();
}

void CadTree::GetTopoIds(RenderId const& id, std::vector<u64>& ids)
{
    auto const group = TopoIds.find(id);
    if (group != TopoIds.end())
        ids = group->second;
    else
        ids = {id[id.Length() - 1]};
}

void CadTree::enterBody(ZELReference const& reference, BrepBody const& body, RenderId const& path)
{
    EntityId const entity(ToValue(EntityType::Brep), EntityType::Body, body.id);
    BodyMap.emplace(entity, path);
    std::wstring pid;
    if (!reference.GetPID(pid)) return;
    EntityMap& table = BodyRenderIds[ZelVizBase::narrow(pid)];
    table.emplace(entity, path);
    // Faces, edges and vertices look their body up with its id in the place of the parent, too.
    table.emplace(EntityId(body.id, EntityType::Body, body.id), path);
}

} // namespace ZelCad
