#pragma once

#include "hps_api.h"

namespace ZelVizBase
{

/// What a window shows at a place, a geometry; empty for nothing.
HPS::SelectionItem itemAt(HPS::WindowKey const& window, HPS::WindowPoint const& place);

/// What lights up where an item was picked: its geometry, or the whole of the annotation that it belongs to.
HPS::KeyPath wholeOf(HPS::SelectionItem const& item);

/// The path of the nearest segment above a path's front that has a node in the tree; empty at the top. The
/// group of all bodies of a part is passed over: it shows what the part does.
HPS::KeyPath parentOf(HPS::KeyPath const& path);

/// The instances in a part of the window, whatever stands before them: those that reach into it, or only
/// those of which nothing is seen beside it. What is in no instance stands for itself.
HPS::KeyPathArray partsIn(HPS::WindowKey const& window, HPS::Rectangle const& area, bool wholly);

} // namespace ZelVizBase
