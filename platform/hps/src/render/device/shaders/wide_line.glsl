// A line of some width between two places in clip coordinates: this corner of the strip around it. Four vertices
// hold the same two ends; which corner one is, its number tells.
#include "instance.glsl"
vec4 wideLine(vec4 a, vec4 b) {
    // An end behind the near plane has no place on the screen: the segment is cut there first.
    float da = a.z + a.w, db = b.z + b.w;
    if (da < 0.0 && db > 0.0) a = mix(a, b, da / (da - db));
    else if (db < 0.0 && da > 0.0) b = mix(b, a, db / (db - da));
    vec2 along = (b.xy / b.w - a.xy / a.w) * viewport.xy;
    float l = length(along);
    along = l > 1e-6 ? along / l : vec2(1.0, 0.0);
    bool atEnd = (gl_VertexID & 2) != 0;
    vec4 p = atEnd ? b : a;
    float halfWidth = 0.5 * pixels(p.w);
    vec2 across = vec2(-along.y, along.x) * ((gl_VertexID & 1) != 0 ? halfWidth : -halfWidth);
    // Half a width beyond each end closes the corners of a polyline.
    vec2 offset = across + along * (atEnd ? halfWidth : -halfWidth);
    return p + vec4(offset * 2.0 / viewport.xy * p.w, 0.0, 0.0);
}
