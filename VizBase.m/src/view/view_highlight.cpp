// What is lit up in a view, and the tree's share in it.

#include "ViewDocument.h"
#include "ViewInteraction.h"
#include "ZELView3D.h"

namespace ZelVizBase
{

namespace
{

constexpr auto redraw = HPS::Window::UpdateType::Default;

bool isNothing(HPS::Key const& key)
{
    return key.Type() == HPS::Type::None;
}
bool isNothing(HPS::KeyPath const& path)
{
    return path.Empty();
}

} // namespace

template <class Target> void ZELView3D::highlight(Target const& target, bool clearFirst)
{
    if (isNothing(target)) return;
    if (clearFirst) {
        UnHighlightAll(true);
        updateThis(redraw);
    }
    TheCanvas.GetWindowKey().GetHighlightControl().Highlight(target, HighlightOptions, false);
    updateThis(redraw);
}

void ZELView3D::Highlight(HPS::Key const& key, bool clearFirst)
{
    highlight(key, clearFirst);
}

void ZELView3D::Highlight(HPS::KeyPath const& path, bool clearFirst)
{
    highlight(path, clearFirst);
}

template <class Target> void ZELView3D::unHighlight(Target const& target)
{
    if (isNothing(target)) return UnHighlightAll(true);
    TheCanvas.GetWindowKey().GetHighlightControl().Unhighlight(target, HighlightOptions);
    updateThis(redraw);
}

void ZELView3D::UnHighlight(HPS::Key const& key)
{
    unHighlight(key);
}

void ZELView3D::UnHighlight(HPS::KeyPath const& path)
{
    unHighlight(path);
}

void ZELView3D::UnHighlightAll(bool update)
{
    TheCanvas.GetWindowKey().GetHighlightControl().UnhighlightEverything();
    if (Interaction != nullptr) Interaction->HighlightsGone();
    if (update) updateThis(redraw);
    if (ViewDocument* const shown = document()) shown->UnHighlight();
}

void ZELView3D::DefineRenderIds(std::vector<unsigned long long>& ids)
{
    if (ViewDocument* const shown = document()) shown->DefineRenderIds(ids);
}

} // namespace ZelVizBase
