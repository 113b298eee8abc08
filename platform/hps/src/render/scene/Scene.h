#pragma once
#include "Background.h"
#include "Camera.h"
#include "Effects.h"
#include "HiddenLines.h"
#include "Lights.h"
#include "Quality.h"
#include "Sections.h"
#include "Shadows.h"
#include "Transparency.h"

namespace HPS::render
{

enum class FaceStyle : std::uint8_t {
    Smooth,     ///< lit by vertex normals
    Flat,       ///< lit by the triangles' own normals
    HiddenLine, ///< unseen themselves, but hiding what is behind
    None
};

struct DrawList;

/// All that a frame needs beside the draw list, by theme. A default theme is off.
struct Scene {
    Camera camera;
    Lights lights;
    Background background;
    Transparency transparency;
    Shadows shadows;
    Effects effects;
    Sections sections;
    HiddenLines hiddenLines;
    DrawList const* highlight = nullptr; ///< what is highlighted, in its look; null if nothing is. Not owned
    double smallest = 0;                 ///< pixels below which a body is left out; for quality below Resting
    Quality quality = Quality::Resting;
    FaceStyle faceStyle = FaceStyle::Smooth;
};

} // namespace HPS::render
