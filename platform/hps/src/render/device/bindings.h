// Where programs, vertex arrays and buffers meet: the numbers stand in the shaders too.
#pragma once

namespace HPS::render
{

enum Attribute : unsigned {
    Position,
    NormalOrEnd,
    VertexColour,
    Row0,
    Row1,
    Row2,
    Colour,
    Size,
    Flags,
    MaterialRowAttribute
};

/// Uniform blocks, std140.
enum UniformBinding : unsigned { FrameBinding, LightBinding, BackgroundBinding };

/// Shader storage blocks, std430.
enum StorageBinding : unsigned { MaterialBinding, LayerBinding, ParameterBinding };

} // namespace HPS::render
