// How much of the sky above each place is open, from the depths around it.
#include "scene_depth.glsl"
layout(location = 0) uniform vec4 occlusion;    // radius in the view, strength, number of taps, 1 / it
layout(location = 1) uniform vec2 taps[16];
in vec2 at;
layout(location = 0) out float open;
void main() {
    vec2 here = middleOf(at);
    float depth = texture(sceneDepth, here).r;
    open = 1.0;
    if (depth >= 1.0) return;
    vec3 place = viewPlace(here, depth);
    vec3 normal = normalAt(here, place);
    float pixel = pixelSize(place);
    // A radius of fewer than two pixels sees nothing, one of a hundred costs cache for nothing.
    float reach = clamp(occlusion.x / pixel, 2.0, 100.0);
    float radius = reach * pixel;
    mat2 turn = blockTurn();
    float closed = 0.0;
    for (int i = 0; i < int(occlusion.z); ++i) {
        vec2 other = middleOf(here + turn * taps[i] * reach / viewport.xy);
        vec3 way = placeAt(other) - place;
        float square = dot(way, way);
        float rise = dot(normal, way) * inversesqrt(max(square, 1e-30));
        closed += max(rise - 0.1, 0.0) * max(1.0 - square / (radius * radius), 0.0);
    }
    open = clamp(1.0 - 2.5 * occlusion.y * closed * occlusion.w, 0.0, 1.0);
}
