// The depth maps of the lights that throw shadows. The layout is that of ShadowBlock in ShadowMaps.cpp.
layout(std140, binding = 3) uniform ShadowBlock {
    mat4 toMap[4];      // from view coordinates to a place in the map of light i and a depth there
    vec4 radius[4];     // of the samples' disc across the map and in depth; z is 1 where light i has a map
    vec4 sampling;      // number of samples, 1 / it, 1 for a pattern that turns from pixel to pixel
    vec4 samples[32];   // two to each
};
layout(binding = 5) uniform sampler2DArrayShadow shadowMaps;
float litAt(int light, vec3 place, vec2 offset) {
    return texture(shadowMaps, vec4(place.xy + offset, float(light), place.z));
}
// Where in its map light `light` sees `place`, which is given in view coordinates.
vec3 inMap(int light, vec3 place) {
    vec4 p = toMap[light] * vec4(place, 1.0);
    return vec3(p.xy / p.w, min(p.z / p.w - radius[light].y, 1.0));
}
