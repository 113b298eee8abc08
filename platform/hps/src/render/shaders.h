#pragma once

namespace HPS::render
{

/// The few programs of the renderer. Each is compiled when it is first drawn with.
enum class Program { Background, Faces, TransparentFaces, Lines, Markers };
inline constexpr int programCount = 5;

/// The OpenGL name of a linked program; 0 if the driver refused it, which `programFailure` tells.
unsigned program(Program which);

/// What the driver said about the last program that it refused; empty if there is none.
char const* programFailure();

/// Where programs and vertex arrays meet.
enum Attribute : unsigned { Position, NormalOrEnd, VertexColour, Row0, Row1, Row2, Colour, Size, Flags };
inline constexpr unsigned frameBlockBinding = 0;

} // namespace HPS::render
