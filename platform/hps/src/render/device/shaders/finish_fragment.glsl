// The finished picture: what is out of focus mixed in, light that shines over rims added, steps smoothed.
#ifdef DEPTH_OF_FIELD
#include "focus.glsl"
layout(binding = 3) uniform sampler2D blurred;
#endif
layout(binding = 0) uniform sampler2D picture;
#ifdef BLOOM
layout(binding = 4) uniform sampler2D glow;
layout(location = 0) uniform float strength;
#endif
#include "effect_mask.glsl"
in vec2 at;
layout(location = 0) out vec4 result;
#ifdef SMOOTHING
float brightness(vec2 at) { return dot(texture(picture, at).rgb, vec3(0.299, 0.587, 0.114)); }
// Blends along the direction in which the picture steps least; leaves alone what does not step.
vec3 smoothed(vec2 at, vec3 colour) {
    vec2 step = 1.0 / vec2(textureSize(picture, 0));
    float m = dot(colour, vec3(0.299, 0.587, 0.114));
    float ne = brightness(at + vec2(step.x, step.y)), nw = brightness(at + vec2(-step.x, step.y));
    float se = brightness(at + vec2(step.x, -step.y)), sw = brightness(at - step);
    float low = min(m, min(min(ne, nw), min(se, sw))), high = max(m, max(max(ne, nw), max(se, sw)));
    if (high - low < max(0.05, high * 0.125)) return colour;
    vec2 along = vec2((sw + se) - (nw + ne), (nw + sw) - (ne + se));
    along = vec2(-along.x, along.y);
    along = clamp(along / (min(abs(along.x), abs(along.y)) + 0.03), -8.0, 8.0) * step;
    vec3 inner = 0.5 * (texture(picture, at + along * (1.0 / 3.0 - 0.5)).rgb +
                        texture(picture, at + along * (2.0 / 3.0 - 0.5)).rgb);
    vec3 outer = inner * 0.5 + 0.25 * (texture(picture, at - along * 0.5).rgb + texture(picture, at + along * 0.5).rgb);
    float o = dot(outer, vec3(0.299, 0.587, 0.114));
    return o < low || o > high ? inner : outer;
}
#endif
void main() {
    ivec2 pixel = ivec2(at * vec2(textureSize(picture, 0)));
    vec4 colour = texelFetch(picture, pixel, 0);
    uint without = leftOut(pixel);
#ifdef SMOOTHING
    colour.rgb = smoothed(at, colour.rgb);
#endif
#ifdef DEPTH_OF_FIELD
    if ((without & 4u) == 0u) {
        float radius = confusion(texelFetch(sceneDepth, pixel, 0).r);
        colour.rgb = mix(colour.rgb, texture(blurred, at).rgb, smoothstep(0.5, 2.0, radius));
    }
#endif
#ifdef BLOOM
    colour.rgb = min(colour.rgb + texture(glow, at).rgb * strength, vec3(1.0));
#endif
    result = colour;
}
