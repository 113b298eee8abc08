// Meshes are made so that a normal lies on the side from which its triangle runs counter-clockwise: that
// side, not the normal, decides what is turned to the viewer, and a normal that leans over the silhouette
// stays where it is. The viewer counts as infinitely far, which makes half vectors constant.
#include "lights.glsl"
in vec3 direction;
in vec4 tint;
#ifdef FLAT
in vec3 place;
#endif
#ifdef TRANSPARENT
flat in uint bits;
#endif
layout(location = 0) out vec4 result;
void main() {
#ifdef TRANSPARENT
    if ((bits & (gl_FrontFacing ? 4u : 2u)) != 0u) discard;
#endif
    float square = dot(direction, direction);
#ifdef FLAT
    vec3 n = normalize(cross(dFdx(place), dFdy(place)));
#else
    vec3 n = direction * inversesqrt(max(square, 1e-30));
    n = gl_FrontFacing ? n : -n;
#endif
    // Sky, ground and a weak lamp at the viewer give every side a shade of its own before any light falls.
    vec3 diffuse = vec3(0.36 + 0.22 * n.y + 0.26 * max(n.z, 0.0));
    vec3 gloss = vec3(0.0);
    for (int i = 0; i < LIGHTS; ++i) {
        diffuse += lights[i].colour.rgb * max(dot(n, lights[i].direction.xyz), 0.0);
        float h = max(dot(n, lights[i].halfway.xyz), 0.0);
        h *= h; h *= h; h *= h; h *= h; h *= h;
        gloss += lights[i].colour.rgb * (0.25 * h);
    }
    result = vec4(square > 1e-20 ? min(tint.rgb * diffuse + gloss, vec3(1.0)) : tint.rgb, tint.a);
}
