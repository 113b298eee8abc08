// Takes out of a mirrored picture what stands too far from the mirror.
#include "scene_depth.glsl"
layout(binding = 0) uniform sampler2D picture;  // colour times cover, and cover
layout(location = 0) uniform vec4 plane;        // in view coordinates
layout(location = 1) uniform vec2 fade;         // height of the start, 1 / length; negative for no fading
in vec2 at;
layout(location = 0) out vec4 result;
void main() {
    float depth = texture(sceneDepth, at).r;
    float height = depth < 1.0 ? abs(dot(plane.xyz, viewPlace(at, depth)) + plane.w) : 0.0;
    float stays = fade.y < 0.0 ? 1.0 : clamp(1.0 - (height - fade.x) * fade.y, 0.0, 1.0);
    result = texture(picture, at) * stays;
}
