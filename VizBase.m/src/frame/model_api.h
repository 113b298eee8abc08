#pragma once

/// The model library as the plug-in sees it: product structures, references and instances (NarMetaInfra),
/// their visualisation data (NarMetaVisu) and annotations (NarMetaPmi). No other header of the plug-in
/// includes one of that library; this is the place to put another one in.
#include <narmeta/narmeta.h>
