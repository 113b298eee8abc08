// Where in view coordinates something was drawn, from its depth.
#include "frame.glsl"
layout(binding = 1) uniform sampler2D sceneDepth;
// Holds for a near plane that lies askew too.
vec3 viewPlace(vec2 at, float depth) {
    vec3 n = vec3(at, depth) * 2.0 - 1.0;
    float k = projection[0][2] * n.x / projection[0][0] + projection[1][2] * n.y / projection[1][1] - n.z;
    float z = -(projection[3][2] + k * projection[3][3]) / (projection[2][2] + k * projection[2][3]);
    float w = projection[2][3] * z + projection[3][3];
    return vec3((n.xy * w - projection[3].xy - projection[2].xy * z) / vec2(projection[0][0], projection[1][1]), z);
}
// The middle of the pixel there: what a depth holds for.
vec2 middleOf(vec2 at) {
    vec2 size = vec2(textureSize(sceneDepth, 0));
    return (floor(at * size) + 0.5) / size;
}
vec3 placeAt(vec2 at) { return viewPlace(at, texture(sceneDepth, at).r); }
// What a pixel measures in the scene at a place.
float pixelSize(vec3 place) {
    return (projection[2][3] * place.z + projection[3][3]) * 2.0 / (projection[1][1] * viewport.y);
}
// The surface's normal, from those neighbours that lie on the same surface.
vec3 normalAt(vec2 at, vec3 place) {
    vec2 step = 1.0 / vec2(textureSize(sceneDepth, 0));
    vec3 right = placeAt(at + vec2(step.x, 0.0)) - place, left = place - placeAt(at - vec2(step.x, 0.0));
    vec3 up = placeAt(at + vec2(0.0, step.y)) - place, down = place - placeAt(at - vec2(0.0, step.y));
    vec3 x = abs(right.z) < abs(left.z) ? right : left;
    vec3 y = abs(up.z) < abs(down.z) ? up : down;
    vec3 n = cross(x, y);
    return n * inversesqrt(max(dot(n, n), 1e-30));
}
// A turn of its own for each pixel of a four by four block; one look per pixel then stands for sixteen.
mat2 blockTurn() {
    ivec2 p = ivec2(gl_FragCoord.xy) & 3;
    float a = float((p.x * 4 + p.y * 9 + (p.x ^ p.y) * 2) & 15) * 0.39269908;
    return mat2(cos(a), sin(a), -sin(a), cos(a));
}
