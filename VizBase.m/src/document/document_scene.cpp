// Building, showing and taking down the scene and the tree.

#include "ZELDocument.h"
#include "ZELRenderTree.h"
#include "ZELRenderer.h"

namespace ZelVizBase
{

bool ZELDocument::Render(bool rebuild)
{
    if (rebuild && HasScene) {
        for (HPS::SegmentKey segment : {Model.GetSegmentKey(), Model.GetLibraryKey()})
            segment.Flush(HPS::Search::Type::Everything, HPS::Search::Space::SegmentOnly);
        if (Renderer) Renderer->Flush();
        if (Tree) Tree->ClearAll();
        HasScene = false;
    }
    if (HasScene) {
        UpdateViews(false);
        return true;
    }
    HasScene = IO->IsGraphicalMode() ? buildVisuSceneGraph() : buildBRepSceneGraph();
    if (Tree) Tree->Render();
    if (HasScene) UpdateViews(true);
    return HasScene;
}

void ZELDocument::UpdateViews(bool fit)
{
    auto const update = [fit](HPS::View& view) {
        if (fit) view.FitWorld();
        view.Update();
    };
    if (View.Type() != HPS::Type::None) {
        update(View);
        return;
    }
    for (HPS::View& view : HPS::Factory::GetViews()) {
        if (view.GetAttachedModel() == Model) update(view);
    }
}

void ZELDocument::Reset()
{
    OpenedModelName.clear();
    if (IO) IO->Reset();
    if (ProductStructure) ProductStructure->Reset();
    emptyScene();
}

void ZELDocument::emptyScene()
{
    if (Renderer) Renderer->Flush();
    if (Tree) Tree->ClearAll();
    HasScene = false;
    UpdateViews(false);
}

bool ZELDocument::ShowSceneRoot(HPS::SegmentKey& root) const
{
    if (!Renderer) return false;
    root = Renderer->GetRootKey();
    return true;
}

bool ZELDocument::buildBRepSceneGraph()
{
    return false;
}

bool ZELDocument::buildVisuSceneGraph()
{
    return false;
}

} // namespace ZelVizBase
