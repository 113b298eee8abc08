#pragma once
#include <cstddef>

namespace HPS::render
{

/// The few programs of the renderer. Each is compiled when it is first drawn with.
enum class Program {
    Background,
    Faces,
    FlatFaces,
    TransparentFaces,
    TransparentFlatFaces,
    Lines,
    ThinLines,
    Markers
};
inline constexpr int programCount = 8;

/// The OpenGL name of a linked program; 0 if the driver refused it, which `programFailure` tells. `lights`,
/// up to `maximumLights`, matters to faces alone and is 0 for the rest.
unsigned program(Program which, std::size_t lights = 0);

/// What the driver said about the last program that it refused; empty if there is none.
char const* programFailure();

/// Where programs and vertex arrays meet.
enum Attribute : unsigned { Position, NormalOrEnd, VertexColour, Row0, Row1, Row2, Colour, Size, Flags };
inline constexpr unsigned frameBlockBinding = 0;

} // namespace HPS::render
