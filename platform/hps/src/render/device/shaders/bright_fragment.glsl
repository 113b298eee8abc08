// What is bright enough to shine beyond its rim. The empty background does not.
layout(binding = 0) uniform sampler2D picture;
layout(binding = 1) uniform sampler2D sceneDepth;
#include "effect_mask.glsl"
layout(location = 0) uniform vec2 limits;       // where brightness starts to count, and 1 / what is above it
in vec2 at;
layout(location = 0) out vec4 result;
void main() {
    vec2 step = 1.0 / vec2(textureSize(picture, 0));
    vec3 sum = vec3(0.0);
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x) {
            vec2 other = at + (vec2(x, y) - 1.5) * step;
            vec3 colour = texture(picture, other).rgb;
            float peak = max(colour.r, max(colour.g, colour.b));
            float counts = texture(sceneDepth, other).r < 1.0 ? 1.0 : 0.0;
            if ((leftOut(other) & 2u) != 0u) counts = 0.0;
            sum += colour * clamp((peak - limits.x) * limits.y, 0.0, 1.0) * counts;
        }
    result = vec4(sum * 0.0625, 1.0);
}
