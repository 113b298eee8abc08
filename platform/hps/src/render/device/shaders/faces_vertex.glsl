// The normal goes by the cofactors of the matrix: right for any scale, and it keeps to the side from which
// the corners run counter-clockwise, in a mirror too. A zero direction stands for a face without light.
#include "instance.glsl"
layout(location = 1) in vec4 normal;
layout(location = 2) in vec4 vertexColour;
out vec3 direction;
out vec4 tint;
#ifdef FLAT
out vec3 place;
#endif
#ifdef TRANSPARENT
flat out uint bits;
#endif
void main() {
    vec3 view = toView(position);
    direction = LIGHTS == 0 || (flags & 1u) != 0u ? vec3(0.0) :
        mat3(rotation) * vec3(dot(cross(row1.xyz, row2.xyz), normal.xyz),
                              dot(cross(row2.xyz, row0.xyz), normal.xyz),
                              dot(cross(row0.xyz, row1.xyz), normal.xyz));
    tint = normal.w > 0.5 ? vec4(vertexColour.rgb, vertexColour.a * colour.a) : colour;
#ifdef FLAT
    place = view;
#endif
#ifdef TRANSPARENT
    bits = flags;
#endif
    gl_Position = projection * vec4(view, 1.0);
}
