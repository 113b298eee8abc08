#pragma once
#include "ShaderLibrary.h"

namespace HPS::render
{

/// Makes a program current, without depth test, blending or culling, for drawing over a whole surface. False
/// if the driver has refused the program: then nothing must be drawn.
bool useFullScreen(ProgramName program, Features const& features = {});

/// Brings back depth test and blending as programs that draw the scene expect them.
void setSceneState();

/// Draws over the whole of what is bound, with the program and the state that are current.
void paintFullScreen();

} // namespace HPS::render
