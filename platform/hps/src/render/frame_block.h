#pragma once
#include "FrameContext.h"

namespace HPS::render
{

/// As frame.glsl has it (std140).
struct FrameBlock {
    float rotation[16];
    float projection[16];
    float target[4];
    float eye[4];
    float viewport[4];
};

FrameBlock frameBlock(Viewing const& viewing, int width, int height);

} // namespace HPS::render
