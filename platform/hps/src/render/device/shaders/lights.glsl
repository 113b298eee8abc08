// The layout is that of LightBlock in LightStep.cpp. All places and directions are in the axes of the view.
struct Light { vec4 direction; vec4 halfway; vec4 colour; };
struct Spot {
    vec4 place;
    vec4 axis;          // the way that it shines
    vec4 colour;
    vec4 cone;          // cosine at the rim, 1 / (cosine where it begins to fade - that at the rim), power
};
layout(std140, binding = 1) uniform LightBlock {
    Light lights[16];
    Spot spots[16];
};
#include "light_reach.glsl"
struct Lighting { vec3 diffuse; vec3 gloss; };

// Sky, ground and a weak lamp at the viewer give every side a shade of its own before any light falls.
vec3 skyAndGround(vec3 n) {
    return vec3(0.36 + 0.22 * n.y + 0.26 * max(n.z, 0.0));
}

float highlight(float h, float exponent) {
#ifdef MATERIAL
    return h > 0.0 ? pow(h, exponent) : 0.0;
#else
    h *= h; h *= h; h *= h; h *= h; h *= h;
    return 0.25 * h;
#endif
}

// The viewer counts as infinitely far, which makes the half vectors of distant lights constant.
Lighting lighting(vec3 n, vec3 at, vec3 ambient, float exponent) {
    Lighting light = Lighting(ambient, vec3(0.0));
    for (int i = 0; i < LIGHTS; ++i) {
        vec3 colour = lights[i].colour.rgb * lightReach(i);
        light.diffuse += colour * max(dot(n, lights[i].direction.xyz), 0.0);
        light.gloss += colour * highlight(max(dot(n, lights[i].halfway.xyz), 0.0), exponent);
    }
    for (int i = 0; i < SPOTS; ++i) {
        vec3 way = spots[i].place.xyz - at;
        way *= inversesqrt(max(dot(way, way), 1e-30));
        float inwards = -dot(way, spots[i].axis.xyz);
        float share = clamp((inwards - spots[i].cone.x) * spots[i].cone.y, 0.0, 1.0);
        share *= share * (3.0 - 2.0 * share);
        if (spots[i].cone.z > 0.0) share *= pow(max(inwards, 1e-6), spots[i].cone.z);
        light.diffuse += spots[i].colour.rgb * (share * max(dot(n, way), 0.0));
        float h = max(dot(n, normalize(way + vec3(0.0, 0.0, 1.0))), 0.0);
        light.gloss += spots[i].colour.rgb * (share * highlight(h, exponent));
    }
    return light;
}
