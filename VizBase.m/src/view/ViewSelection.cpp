#include "ViewSelection.h"

#include "ViewDocument.h"
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

void ViewSelection::Replace(HPS::KeyPathArray const& paths)
{
    View.UnHighlightAll(false); // which takes the marks off the tree, too
    Selected = paths;
    light(paths, Ids());
    tellTree();
    View.Update(MoraCore::UpdateType::Default);
}

void ViewSelection::Choose(std::vector<RenderId> const& nodes)
{
    View.Canvas().GetWindowKey().GetHighlightControl().UnhighlightEverything();
    Selected.clear();
    for (RenderId const& node : nodes) {
        HPS::KeyPath path;
        if (View.GetDocument() == nullptr || !View.GetDocument()->Convert(node, path)) continue;
        // What has no picture leads to its instance; then what it speaks of says more.
        bool const isWhole = tagOf(path.Front()) == ZELSegmentTagger::TAG_REFERENCE;
        if (!isWhole || companionsOf({node}).empty()) Selected.push_back(path);
    }
    light(Selected, nodes);
    View.Update(MoraCore::UpdateType::Default);
}

HPS::KeyPathArray ViewSelection::companionsOf(std::vector<RenderId> const& nodes) const
{
    auto const* const document = dynamic_cast<ViewDocument const*>(View.GetDocument());
    if (document == nullptr) return {};
    HPS::KeyPathArray all;
    for (RenderId const& node : nodes) {
        HPS::KeyPathArray const found = document->GetCompanions(node, View.GetModelKeyPath());
        all.insert(all.end(), found.begin(), found.end());
    }
    return all;
}

void ViewSelection::light(HPS::KeyPathArray const& paths, std::vector<RenderId> const& nodes)
{
    Companions = companionsOf(nodes);
    ZELVizCore::SelectionHolder& holder = *View.GetSelectionHolder();
    holder.Clear();
    for (RenderId const& id : nodes) holder.Add(id);
    std::vector<HPS::SelectionItem> items;
    for (HPS::KeyPath const& path : paths) items.emplace_back(path, HPS::Point());
    View.SetActiveSelection(HPS::SelectionResults(std::move(items)));
    HPS::KeyPathArray lit = paths;
    lit.insert(lit.end(), Companions.begin(), Companions.end());
    if (!lit.empty())
        View.Canvas().GetWindowKey().GetHighlightControl().Highlight(lit, View.HighlightOptionsKit());
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
    Companions.clear();
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
    for (HPS::KeyPathArray const* const some : {&Selected, &Companions})
        for (HPS::KeyPath const& path : *some) {
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
