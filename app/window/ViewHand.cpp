#include "ViewHand.h"

#include <mora/EntityId.h>
#include <mora/IView3DEvo.h>

#include <algorithm>

namespace zelview
{

ViewHand::ViewHand(MoraCore::IView3DEvo& view, QObject* parent)
    : QObject(parent), View(view), Hand(view.GetInteraction())
{
    if (Hand) Hand->SetInteractionListener(this);
}

ViewHand::~ViewHand()
{
    if (Hand) Hand->SetInteractionListener(nullptr);
}

void ViewHand::setMouseStyle(MoraCore::MouseStyle const& style)
{
    if (Hand) Hand->SetMouseStyle(style);
}

void ViewHand::setHovering(bool hovering)
{
    if (Hand) Hand->SetHovering(hovering);
}

ViewHand::RenderIds ViewHand::selection() const
{
    return Hand ? Hand->GetSelection() : RenderIds();
}

void ViewHand::select(RenderIds const& ids)
{
    if (Hand) Hand->Select(ids);
}

void ViewHand::clearSelection()
{
    if (Hand) Hand->ClearSelection();
}

bool ViewHand::selectParents()
{
    return Hand && Hand->SelectParents();
}

bool ViewHand::zoomToSelection()
{
    return Hand && Hand->ZoomToSelection();
}

std::vector<unsigned long long> ViewHand::selectedBodies() const
{
    std::vector<unsigned long long> bodies;
    for (ZELVizCore::RenderId const& id : selection())
        for (int i = 0; i + 1 < id.Length(); ++i)
            if (id[i] == ToValue(ZELVizCore::EntityType::Brep)) bodies.push_back(id[i + 1]);
    return bodies;
}

void ViewHand::hideSelectedBodies()
{
    for (unsigned long long const body : selectedBodies()) {
        View.HideBody(body);
        if (std::ranges::find(Hidden, body) == Hidden.end()) Hidden.push_back(body);
    }
    clearSelection(); // which also draws
}

void ViewHand::showHiddenBodies()
{
    for (unsigned long long const body : Hidden) View.UnhideBody(body);
    Hidden.clear();
    View.Update(MoraCore::UpdateType::Default);
}

} // namespace zelview
