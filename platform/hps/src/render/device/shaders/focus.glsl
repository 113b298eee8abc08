// How far out of focus a place is: radius of its disc of confusion in pixels of the window.
#include "scene_depth.glsl"
layout(location = 2) uniform vec4 focus;        // near, far, pixels per unit beyond them, largest radius
float confusion(float depth) {
    float far = eye.z - viewPlace(vec2(0.5), depth).z;
    return clamp(max(focus.x - far, far - focus.y) * focus.z, 0.0, focus.w);
}
