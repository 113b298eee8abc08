// What a view offers by name and does not do yet.

#include "ZELView3D.h"

#include <QDockWidget>

namespace ZelVizBase
{

// There is no browser yet, and so no dock.
void ZELView3D::MakeSegmentAndPropertyBrowser(QWidget*, QMenu*) {}

void ZELView3D::OnToggleSegmentBrowser()
{
    if (BrowserDock != nullptr && SegmentBrowserReady) BrowserDock->setVisible(!BrowserDock->isVisible());
}

} // namespace ZelVizBase
