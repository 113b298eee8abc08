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
        tree.EndItem();
    }
    tree.EndItem();
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
