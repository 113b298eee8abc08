#include "records.h"
#include "CameraTransition.h"
#include "CanvasPicture.h"
#include "InputRouter.h"
#include "InteractionWatch.h"
#include "OperatorStack.h"
#include "Presenter.h"
#include "SceneGate.h"
#include <algorithm>

namespace HPS
{

ViewRecord::ViewRecord() = default;
ViewRecord::~ViewRecord() = default;

CanvasRecord::CanvasRecord() = default;
CanvasRecord::~CanvasRecord() = default;

Registry& Registry::instance()
{
    // Never destroyed: a canvas that outlives main must not reach for a graphics driver that is gone.
    static Registry* const registry = new Registry;
    scene::SceneGate::pass();
    return *registry;
}

CanvasRecord* Registry::findWindow(KeyIndex window) const
{
    for (KeyIndex index : canvases.indices())
        if (canvases.find(index)->window.Index() == window) return canvases.find(index);
    return nullptr;
}

std::vector<Canvas> Registry::canvasesOf(View const& view) const
{
    std::vector<Canvas> showing;
    for (KeyIndex index : canvases.indices()) {
        LayoutRecord const* const layout = find(canvases.find(index)->layout);
        if (layout != nullptr &&
            std::ranges::find(layout->layers, view, &LayoutRecord::Layer::view) != layout->layers.end())
            showing.push_back(Canvas(index));
    }
    return showing;
}

} // namespace HPS
