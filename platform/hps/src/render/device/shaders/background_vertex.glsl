#include "background.glsl"
out vec4 tint;
out vec2 place;         // from -1 to 1 in the window
void main() {
    place = vec2((gl_VertexID & 1) * 4 - 1, (gl_VertexID & 2) * 2 - 1);
    tint = mix(fromColour, toColour, dot(ramp.xyz, vec3(place, 1.0)));
    gl_Position = vec4(place, 0.0, 1.0);
}
