#pragma once
#include "Background.h"
#include "Camera.h"
#include "Effects.h"
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

/// All that a frame needs beside the draw list, by theme. A default theme is off.
struct Scene {
    Camera camera;
    Lights lights;
    Background background;
    Transparency transparency;
    Shadows shadows;
    Effects effects;
    Sections sections;
    Quality quality = Quality::Resting;
    FaceStyle faceStyle = FaceStyle::Smooth;
};

} // namespace HPS::render
