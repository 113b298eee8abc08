#pragma once

/// The scene library as the plug-in sees it: keys and segments, kits and controls, model, view and canvas, stream
/// (HPS). No other header of the plug-in includes one of that library; this is the place to put another one in.
