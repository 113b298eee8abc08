#include "instance.glsl"
#include "sections_vertex.glsl"
layout(location = 2) in vec4 ownColour;
flat out vec4 tint;
flat out uint glyph;
flat out float radius;
out vec2 place;
void main() {
    gl_Position = projection * vec4(toView(position), 1.0);
    radius = 0.5 * pixels(gl_Position.w);
    // One pixel of margin for the soft rim.
    place = vec2((gl_VertexID & 2) - 1, (gl_VertexID & 1) * 2 - 1) * (radius + 1.0);
    gl_Position.xy += place * 2.0 / viewport.xy * gl_Position.w;
    tint = ownColour.a > 0.0 ? vec4(ownColour.rgb, ownColour.a * colour.a) : colour;
    cutAt(position);
    glyph = flags >> 8;
}
