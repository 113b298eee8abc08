// A rectangle that lies in a plane of the scene.
#include "frame.glsl"
layout(location = 0) uniform vec4 corners[4];   // in view coordinates
out vec2 at;
out vec3 place;
void main() {
    at = vec2(gl_VertexID & 1, gl_VertexID >> 1);
    place = corners[gl_VertexID].xyz;
    gl_Position = projection * vec4(place, 1.0);
}
