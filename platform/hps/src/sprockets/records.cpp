#include "records.h"
#include "CanvasPicture.h"
#include "InteractionWatch.h"
#include "Presenter.h"

namespace HPS
{

CanvasRecord::CanvasRecord() = default;
CanvasRecord::~CanvasRecord() = default;

Registry& Registry::instance()
{
    // Never destroyed: a canvas that outlives main must not reach for a graphics driver that is gone.
    static Registry* const registry = new Registry;
    return *registry;
}

CanvasRecord* Registry::findWindow(KeyIndex window) const
{
    for (KeyIndex index : canvases.indices())
        if (canvases.find(index)->window.Index() == window) return canvases.find(index);
    return nullptr;
}

} // namespace HPS
