#include "wide_line.glsl"
#include "sections_vertex.glsl"
layout(location = 1) in vec3 end;
flat out vec4 tint;
void main() {
    cutAt((gl_VertexID & 2) != 0 ? end : position);
    tint = colour;
    gl_Position = wideLine(projection * vec4(toView(position), 1.0), projection * vec4(toView(end), 1.0));
}
