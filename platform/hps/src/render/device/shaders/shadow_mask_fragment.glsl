// How much of each light reaches a pixel, one light to a channel: looked up once a pixel, however many
// samples and layers it is drawn with afterwards.
#include "scene_depth.glsl"
#include "shadow_maps.glsl"
in vec2 at;
layout(location = 0) out vec4 reach;
float reachOf(int light, vec3 place, mat2 turn) {
    vec3 p = inMap(light, place);
    if (any(lessThan(p, vec3(0.0))) || any(greaterThan(p.xy, vec2(1.0)))) return 1.0;
    mat2 spread = turn * radius[light].x;
    int count = int(sampling.x);
    // The outermost samples first: where they agree, so do those within.
    float lit = 0.0;
    int first = min(count, 4);
    for (int i = 0; i < first; i += 2) {
        vec4 pair = samples[i / 2];
        lit += litAt(light, p, spread * pair.xy);
        if (i + 1 < first) lit += litAt(light, p, spread * pair.zw);
    }
    if (count <= 4 || lit < 0.001 || lit > 3.999) return lit / float(first);
    for (int i = 4; i < count; i += 2) {
        vec4 pair = samples[i / 2];
        lit += litAt(light, p, spread * pair.xy);
        if (i + 1 < count) lit += litAt(light, p, spread * pair.zw);
    }
    return lit * sampling.y;
}
void main() {
    reach = vec4(1.0);
    float depth = texelFetch(sceneDepth, ivec2(gl_FragCoord.xy), 0).r;
    if (depth >= 1.0) return;
    vec3 place = viewPlace(at, depth);
    float angle = 6.2831853 * fract(52.9829189 * fract(dot(floor(gl_FragCoord.xy), vec2(0.06711056, 0.00583715))));
    mat2 turn = sampling.z > 0.0 ? mat2(cos(angle), sin(angle), -sin(angle), cos(angle)) : mat2(1.0);
    for (int i = 0; i < 4; ++i)
        if (radius[i].z > 0.0) reach[i] = reachOf(i, place, turn);
}
