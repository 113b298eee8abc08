#include "instance.glsl"
layout(location = 1) in vec3 end;
flat out vec4 tint;
void main() {
    tint = colour;
    gl_Position = projection * vec4(toView((gl_VertexID & 2) != 0 ? end : position), 1.0);
}
