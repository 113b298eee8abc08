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
    MaterialRowAttribute,
    After, ///< strokes: the point that the chain goes on to; view edges: the second normal
    Along, ///< strokes: length of the chain before the piece
    Kind   ///< strokes: bits of StrokeChains::Kind
};

/// Uniform blocks, std140.
enum UniformBinding : unsigned { FrameBinding, LightBinding, BackgroundBinding, ShadowBinding };

/// Shader storage blocks, std430.
enum StorageBinding : unsigned {
    MaterialBinding,
    LayerBinding,
    ParameterBinding,
    SectionBinding = 7,
    StrokeHeadBinding = 8, ///< the three tables of a StrokeTable
    StrokeRowBinding,
    StrokeDashBinding,
    StrokeDistanceBinding ///< lengths along chains on the screen
};

} // namespace HPS::render
