// Takes the grain of the four by four blocks out, but not across steps in depth.
#include "scene_depth.glsl"
layout(binding = 0) uniform sampler2D grainy;
layout(location = 0) uniform float sharpness;
in vec2 at;
layout(location = 0) out float open;
void main() {
    vec2 step = 1.0 / vec2(textureSize(grainy, 0));
    vec3 middle = placeAt(middleOf(at));
    float bound = sharpness / (pixelSize(middle) * 8.0);
    float sum = 0.0, weights = 0.0;
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x) {
            vec2 other = at + (vec2(x, y) - 1.5) * step;
            float weight = max(1.0 - abs(placeAt(middleOf(other)).z - middle.z) * bound, 0.001);
            sum += textureLod(grainy, other, 0.0).r * weight;
            weights += weight;
        }
    open = sum / weights;
}
