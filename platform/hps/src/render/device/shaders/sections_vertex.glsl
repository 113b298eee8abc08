// Takes along what a fragment needs to know whether a section takes it away.
#include "instance.glsl"
#ifdef CUT
out vec3 cutPlace;      // in the world, from the camera's target
flat out uint cutSet;
void cutFrom(vec3 place, bool cuttable) {
    cutPlace = place;
    cutSet = cuttable ? material >> 20 : 0u;
}
void cutAt(vec3 p) {
    vec4 h = vec4(p, 1.0);
    cutFrom(vec3(dot(row0, h), dot(row1, h), dot(row2, h)) - target.xyz, true);
}
#else
void cutFrom(vec3 place, bool cuttable) {}
void cutAt(vec3 p) {}
#endif
