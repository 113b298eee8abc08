#include "sections_fragment.glsl"
flat in float cover;
in float height;
layout(location = 1) uniform vec4 value;        // what to write; w: 1 for what is seen through to count in full
layout(location = 0) out vec4 result;
void main() {
#ifdef CUT
    if (isGone(cutPlace)) discard;
#endif
#ifdef COVER_PLANE
    if (height < 0.0) discard;
#endif
#ifdef COVER_DEPTH
    // What is seen through takes a part of the light away: a part of the map's pixels, in a fixed pattern.
    ivec2 p = ivec2(gl_FragCoord.xy) & 3;
    int x = p.x ^ p.y;
    float threshold = (float(((x & 1) << 3) | ((p.y & 1) << 2) | (x & 2) | ((p.y & 2) >> 1)) + 0.5) / 16.0;
    if (cover < threshold) discard;
    result = vec4(1.0);
#else
    result = vec4(value.rgb * max(cover, value.w), max(cover, value.w));
#endif
}
