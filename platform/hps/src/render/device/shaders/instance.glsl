// Where an instance of a mesh stands and what is its own.
#include "frame.glsl"
layout(location = 0) in vec3 position;
layout(location = 3) in vec4 row0;
layout(location = 4) in vec4 row1;
layout(location = 5) in vec4 row2;
layout(location = 6) in vec4 colour;
layout(location = 7) in float size;
layout(location = 8) in uint flags;
layout(location = 9) in uint material;      // low 20 bits: row of the material table; high 12: section set
vec3 toView(vec3 p) {
    vec4 h = vec4(p, 1.0);
    return mat3(rotation) * (vec3(dot(row0, h), dot(row1, h), dot(row2, h)) - target.xyz);
}
// Pixels that a unit of the world takes where w is the fourth clip coordinate.
float pixelsPerUnit(float w) { return projection[1][1] * viewport.y * 0.5 / max(w, 1e-9); }
float pixels(float w) {
    if ((flags & 8u) != 0u) return size * pixelsPerUnit(w);
    return (flags & 16u) != 0u ? size * viewport.y : size;
}
