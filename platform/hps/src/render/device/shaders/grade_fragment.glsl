// The picture with all that depends on a pixel and those beside it: occlusion, eye dome, silhouettes.
#include "scene_depth.glsl"
layout(binding = 0) uniform sampler2D picture;
#ifdef OCCLUSION
layout(binding = 2) uniform sampler2D openSky;
#endif
#include "effect_mask.glsl"
layout(location = 0) uniform vec4 eyeDome;      // exponent, tolerance, strength
layout(location = 1) uniform vec4 shade;        // colour of what lies deep
layout(location = 2) uniform vec4 outline;      // tolerance, 1 for a heavy exterior
in vec2 at;
layout(location = 0) out vec4 result;
const ivec2 around[8] = ivec2[](ivec2(1, 0), ivec2(-1, 0), ivec2(0, 1), ivec2(0, -1), ivec2(1, 1),
                                ivec2(-1, -1), ivec2(1, -1), ivec2(-1, 1));
float depthBeside(ivec2 pixel, ivec2 offset) {
    return texelFetch(sceneDepth, clamp(pixel + offset, ivec2(0), textureSize(sceneDepth, 0) - 1), 0).r;
}
void main() {
    ivec2 pixel = ivec2(at * vec2(textureSize(picture, 0)));
    vec4 colour = texelFetch(picture, pixel, 0);
    uint without = leftOut(pixel);
    float depth = texelFetch(sceneDepth, pixel, 0).r;
    vec3 place = viewPlace(at, depth);
    float size = pixelSize(place);
#ifdef OCCLUSION
    if (depth < 1.0 && (without & 1u) == 0u) colour.rgb *= texture(openSky, at).r;
#endif
#ifdef EYE_DOME
    if (depth < 1.0 && (without & 16u) == 0u) {
        float deep = 0.0;
        for (int i = 0; i < 8; i += 2) {
            // Across a plane, however steep, one side rises as much as the other falls.
            float a = viewPlace(at, depthBeside(pixel, around[i] * 2)).z;
            float b = viewPlace(at, depthBeside(pixel, around[i + 1] * 2)).z;
            float rise = (a + b - 2.0 * place.z) / size;
            deep += clamp((rise - 2.0 * eyeDome.y * (i < 4 ? 1.0 : 1.4142)) / 32.0, 0.0, 1.0);
        }
        float stays = exp(-4.0 * eyeDome.z * pow(deep * 0.25, eyeDome.x));
        colour.rgb = mix(shade.rgb, colour.rgb, stays);
    }
#endif
#ifdef SILHOUETTES
    if (depth < 1.0 && (without & 8u) == 0u) {
        // Depth is linear across a plane's picture, so that second differences find steps and folds alone.
        // Half a pixel's worth of view depth tells how much a difference of depth means.
        float slope = abs(viewPlace(at, depth - 1e-4).z - viewPlace(at, depth + 1e-4).z) / 2e-4;
        float fold = 0.0;
        for (int i = 0; i < 8; i += 2) {
            float a = depthBeside(pixel, around[i]), b = depthBeside(pixel, around[i + 1]);
            fold = max(fold, a + b - 2.0 * depth);
        }
        float line = smoothstep(0.7, 1.0, fold * slope / (size * 8.0 * max(outline.x, 1e-3)));
        // The empty background lies far behind everything, whatever its depth.
        for (int i = 0; i < 4; ++i)
            if (depthBeside(pixel, around[i]) >= 1.0) line = 1.0;
        if (outline.y > 0.0)
            for (int i = 0; i < 8; ++i)
                if (depthBeside(pixel, around[i] * (i < 4 ? 3 : 2)) >= 1.0) line = 1.0;
        colour.rgb *= 1.0 - line;
    }
#endif
    result = colour;
}
