#include "ViewSelection.h"

#include "ZELView3D.h"
#include "picked_paths.h"
#include "tagged_segments.h"

#include <algorithm>
#include <set>

namespace ZelVizBase
{

using ZELVizCore::RenderId;

RenderId nodeOf(ZELView3D const& view, HPS::KeyPath const& path)
{
    RenderId id;
    MoraCore::IDocumentEvo const* const document = view.GetDocument();
    return document != nullptr && document->Convert(path, id) ? id : RenderId();
}

void ViewSelection::Replace(HPS::KeyPathArray const& paths, Tells tells)
{
    if (tells == Tells::Tree)
        View.UnHighlightAll(false); // which takes the marks off the tree, too
    else
        View.Canvas().GetWindowKey().GetHighlightControl().UnhighlightEverything();
    Selected = paths;
    ZELVizCore::SelectionHolder& holder = *View.GetSelectionHolder();
    holder.Clear();
    for (RenderId const& id : Ids()) holder.Add(id);
    std::vector<HPS::SelectionItem> items;
    for (HPS::KeyPath const& path : Selected) items.emplace_back(path, HPS::Point());
    View.SetActiveSelection(HPS::SelectionResults(std::move(items)));
    if (!Selected.empty())
        View.Canvas().GetWindowKey().GetHighlightControl().Highlight(Selected, View.HighlightOptionsKit());
    if (tells == Tells::Tree) tellTree();
    View.Update(MoraCore::UpdateType::Default);
}

// Each node once, however many of its parts are selected.
void ViewSelection::tellTree() const
{
    std::set<std::vector<unsigned long long>> told;
    for (HPS::KeyPath const& path : Selected) {
        std::vector<unsigned long long> ids = treeIdsOf(path);
        if (!ids.empty() && told.insert(ids).second) View.DefineRenderIds(ids);
    }
}

void ViewSelection::Add(HPS::KeyPathArray const& paths)
{
    std::set<HPS::KeyArray> known;
    HPS::KeyPathArray all;
    for (HPS::KeyPathArray const* const some : {&std::as_const(Selected), &paths})
        for (HPS::KeyPath const& path : *some)
            if (known.insert(path.Keys()).second) all.push_back(path);
    Replace(all);
}

void ViewSelection::Toggle(HPS::KeyPath const& path)
{
    HPS::KeyPathArray paths = Selected;
    if (std::erase(paths, path) == 0) paths.push_back(path);
    Replace(paths);
}

void ViewSelection::Forget()
{
    Selected.clear();
    View.GetSelectionHolder()->Clear();
    View.ClearActiveSelection();
}

HPS::KeyPathArray ViewSelection::Parents() const
{
    HPS::KeyPathArray parents;
    for (HPS::KeyPath const& path : Selected) {
        HPS::KeyPath const parent = parentOf(path);
        if (!parent.Empty() && std::ranges::find(parents, parent) == parents.end()) parents.push_back(parent);
    }
    return parents;
}

bool ViewSelection::Covers(HPS::KeyPath const& path) const
{
    return std::ranges::any_of(Selected, [&](HPS::KeyPath const& selected) {
        return selected.Size() <= path.Size() &&
               std::equal(selected.begin(), selected.end(), path.end() - selected.Size());
    });
}

HPS::SimpleCuboid ViewSelection::Extent() const
{
    HPS::SimpleCuboid all;
    for (HPS::KeyPath const& path : Selected) {
        HPS::BoundingKit bounding;
        HPS::SimpleSphere sphere;
        HPS::SimpleCuboid cuboid;
        if (path.ShowNetBounding(bounding) && bounding.ShowVolume(sphere, cuboid)) all.Merge(cuboid);
    }
    return all;
}

std::vector<RenderId> ViewSelection::Ids() const
{
    std::vector<RenderId> ids;
    std::set<RenderId> known;
    for (HPS::KeyPath const& path : Selected) {
        RenderId const id = nodeOf(View, path);
        if (id.Length() > 0 && known.insert(id).second) ids.push_back(id);
    }
    return ids;
}

} // namespace ZelVizBase
