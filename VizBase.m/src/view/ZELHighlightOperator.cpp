#include "ZELHighlightOperator.h"

#include "ZELView3D.h"
#include "tagged_segments.h"

namespace ZelVizBase
{

ZELHighlightOperator::ZELHighlightOperator(HPS::MouseButtons buttons, HPS::ModifierKeys modifiers,
                                           ZELView3D* owner)
    : SelectOperator(buttons, modifiers), Owner(owner)
{
}

void ZELHighlightOperator::selectEntities()
{
    HPS::SelectionOptionsKit options = GetSelectionOptions();
    SetSelectionOptions(options.SetLevel(HPS::Selection::Level::Entity));
}

bool ZELHighlightOperator::OnMouseDown(HPS::MouseState const& state)
{
    selectEntities();
    if (IsMouseTriggered(state) && SelectOperator::OnMouseDown(state)) highlightCommon();
    return false;
}

bool ZELHighlightOperator::OnTouchDown(HPS::TouchState const& state)
{
    selectEntities();
    if (SelectOperator::OnTouchDown(state)) highlightCommon();
    return false;
}

bool ZELHighlightOperator::highlightCommon()
{
    Owner->UnHighlightAll(true);
    HPS::SelectionItem const first = GetActiveSelection().GetIterator().GetItem();
    HPS::Key selected;
    HPS::KeyPath path;
    if (!first.ShowSelectedItem(selected) || !first.ShowPath(path)) {
        Owner->Update(MoraCore::UpdateType::Default);
        return false;
    }
    HPS::Key parent;
    TAG_TYPE parentType = ZELSegmentTagger::TAG_NONE;
    if (selected.HasType(HPS::Type::GeometryKey)) {
        parent = parentOf(selected, parentType);
        // The whole of an annotation lights up, not the one stroke of it.
        if (parentType == ZELSegmentTagger::TAG_PMI) path.PopFront();
    }
    HPS::KeyPath treePath;
    bool found = false;
    for (HPS::Key const& key : path) {
        found = found || (tagOf(key) == parentType && key == parent);
        if (found) treePath.PushBack(key);
    }
    Owner->Canvas().UpdateWithNotifier().Wait();
    Owner->Canvas().GetWindowKey().GetHighlightControl().Highlight(path, Owner->HighlightOptionsKit(), true);
    prepareReverseHighlighting(treePath);
    Owner->Update(MoraCore::UpdateType::Default);
    return true;
}

void ZELHighlightOperator::prepareReverseHighlighting(HPS::KeyPath treePath)
{
    std::vector<unsigned long long> ids = treeIdsOf(std::move(treePath));
    Owner->DefineRenderIds(ids);
}

} // namespace ZelVizBase
