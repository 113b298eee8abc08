// From what holds in a window and a view to the themes of a scene, one function each.
#pragma once
#include "Scene.h"
#include "net_attributes.h"

namespace HPS
{
struct DistantLightData;
struct SpotlightData;
struct SubwindowData;
} // namespace HPS

namespace HPS::render
{

/// What holds at the two places that a scene is read from.
struct SceneSources {
    scene::NetState const& window; ///< at the canvas's window
    scene::NetState const& view;   ///< at the view's segment
    scene::SegmentRecord const* windowSegment = nullptr;
    scene::SegmentRecord const* viewSegment = nullptr;
};

Camera readCamera(SceneSources const& sources);
/// As the view's segment says, or else the window's.
Background readBackground(SceneSources const& sources);
/// Of a window with a kit, or with none, and what holds there.
Background readBackground(scene::NetState const& state, SubwindowData const* subwindow);
/// A segment's own; null if it has none.
SubwindowData const* subwindowOf(scene::SegmentRecord const& segment);

Transparency readTransparency(SceneSources const& sources);
Shadows readShadows(SceneSources const& sources);
Effects readEffects(SceneSources const& sources);
HiddenLines readHiddenLines(SceneSources const& sources);

// Lights and sections are found among the geometry of segments, with what holds there.
void readDistantLight(Lights& lights, DistantLightData const& light, scene::NetAttributes const& net);
void readSpotlight(Lights& lights, SpotlightData const& light, scene::NetAttributes const& net);

} // namespace HPS::render
