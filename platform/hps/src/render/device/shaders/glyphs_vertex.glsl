// Flat drawings that stand at a point. Those that are planted have axes and a place of their own: letters. The
// others stand upright at places of a mesh, or along a line there: markers and ends of lines.
#include "instance.glsl"
#include "sections_vertex.glsl"
layout(location = 1) in vec3 toward;
layout(location = 2) in vec2 offset;
flat out vec4 tint;
vec4 planted() {
    vec3 anchor = mat3(rotation) * (vec3(row0.w, row1.w, row2.w) - target.xyz);
    vec3 h = vec3(offset, 1.0);
    vec3 place = vec3(dot(row0.xyz, h), dot(row1.xyz, h), dot(row2.xyz, h));
    if ((flags & 64u) == 0u) place = mat3(rotation) * place;
    float w = dot(vec4(projection[0].w, projection[1].w, projection[2].w, projection[3].w), vec4(anchor, 1.0));
    float scale = (flags & 8u) != 0u ? size : pixels(w) / pixelsPerUnit(w);
    return projection * vec4(anchor + place * scale, 1.0);
}
vec4 standing() {
    vec4 p = projection * vec4(toView(position), 1.0);
    vec2 o = offset;
    if (toward != position) {
        vec4 q = projection * vec4(toView(toward), 1.0);
        vec2 along = (q.xy * p.w - p.xy * q.w) * viewport.xy;
        float l = length(along);
        along = l > 1e-9 ? along / l : vec2(1.0, 0.0);
        o = offset.x * along + offset.y * vec2(-along.y, along.x);
    }
    return p + vec4(o * pixels(p.w) / viewport.xy * p.w, 0.0, 0.0);
}
void main() {
    tint = colour;
    if ((flags & 32u) != 0u)
        cutFrom(vec3(row0.w, row1.w, row2.w) - target.xyz, true);
    else
        cutAt(position);
    gl_Position = (flags & 32u) != 0u ? planted() : standing();
}
