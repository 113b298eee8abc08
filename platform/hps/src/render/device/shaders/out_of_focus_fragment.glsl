// The picture at half size as it looks out of focus: what is sharp stays out of its neighbours' discs.
#include "focus.glsl"
layout(binding = 0) uniform sampler2D picture;
layout(location = 3) uniform vec2 taps[16];
#include "effect_mask.glsl"
in vec2 at;
layout(location = 0) out vec4 result;
void main() {
    float mine = confusion(texture(sceneDepth, at).r);
    vec4 sum = vec4(texture(picture, at).rgb, 1.0);
    for (int i = 0; i < 16; ++i) {
        vec2 other = at + taps[i] * focus.w / viewport.xy;
        float theirs = confusion(texture(sceneDepth, other).r);
        if ((leftOut(other) & 4u) != 0u) theirs = 0.0;
        // A place reaches here if its disc is as large as its distance; mine takes in no more than itself.
        float reach = length(taps[i]) * focus.w;
        float weight = clamp(min(theirs, max(mine, theirs * 0.5)) - reach + 1.0, 0.0, 1.0);
        sum += vec4(texture(picture, other).rgb, 1.0) * weight;
    }
    result = vec4(sum.rgb / sum.a, 1.0);
}
