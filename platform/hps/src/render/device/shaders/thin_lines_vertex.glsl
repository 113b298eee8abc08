#include "instance.glsl"
#include "sections_vertex.glsl"
layout(location = 1) in vec3 end;
flat out vec4 tint;
void main() {
    vec3 p = (gl_VertexID & 2) != 0 ? end : position;
    tint = colour;
    cutAt(p);
    gl_Position = projection * vec4(toView(p), 1.0);
}
