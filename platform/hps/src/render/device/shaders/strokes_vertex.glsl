// A piece of a chain as a strip that has room for its caps and joins; which of it is seen, the fragments find
// out. `place` counts in pixels along the piece and across it.
#include "instance.glsl"
#include "sections_vertex.glsl"
#include "strokes.glsl"
layout(location = 1) in vec3 end;
layout(location = 2) in vec3 before;
layout(location = 10) in vec3 after;
layout(location = 11) in float along;
layout(location = 12) in uint kind;     // 1 first, 2 last, 4 infinite, 8 both ways; above: number of the piece
layout(std430, binding = 11) readonly buffer StrokeDistances { float strokeDistances[]; };
flat out vec4 tint;
noperspective out vec2 place;
flat out vec4 measures;     // length, width, length of the chain before it and unit of the pattern, in pixels
flat out vec4 joins;        // directions of the piece before and the one after, in the coordinates of `place`
flat out uvec2 style;       // row of the pattern, kind
void clipNear(inout vec4 a, inout vec4 b) {
    float da = a.z + a.w, db = b.z + b.w;
    if (da < 0.0 && db > 0.0) a = mix(a, b, da / (da - db));
    else if (db < 0.0 && da > 0.0) b = mix(b, a, db / (db - da));
}
vec2 screen(vec4 p) { return p.xy / p.w * 0.5 * viewport.xy; }
// The part of a + t d that the window shows, from t = `low` on; false if there is none.
bool clipLine(vec4 a, vec4 d, float low, out vec4 from, out vec4 to) {
    float high = 1e30;
    // A little more than the window, so that caps stay out of sight; nothing behind the viewer.
    for (int i = 0; i < 5; ++i) {
        vec4 plane = i == 0 ? vec4(1.0, 0.0, 0.0, 1.2) : i == 1 ? vec4(-1.0, 0.0, 0.0, 1.2)
                   : i == 2 ? vec4(0.0, 1.0, 0.0, 1.2) : i == 3 ? vec4(0.0, -1.0, 0.0, 1.2)
                   : vec4(0.0, 0.0, 0.0, 1.0);
        float h = dot(plane, a) - (i == 4 ? 1e-6 : 0.0), s = dot(plane, d);
        if (abs(s) < 1e-20) { if (h < 0.0) return false; }
        else if (s > 0.0) low = max(low, -h / s);
        else high = min(high, -h / s);
    }
    from = a + d * low;
    to = a + d * high;
    return low < high;
}
void main() {
    vec3 viewA = toView(position), viewB = toView(end);
    vec4 a = projection * vec4(viewA, 1.0), b = projection * vec4(viewB, 1.0);
    uint row = material & 0xFFFFFu;
    if ((kind & 4u) != 0u)
        cutFrom(vec3(0.0), false);  // without end
    else
        cutAt((gl_VertexID & 2) != 0 ? end : position);
    float skipped = 0.0;
    if ((kind & 4u) != 0u) {
        vec4 start = a, d = projection * vec4(normalize(viewB - viewA), 0.0);
        if (!clipLine(start, d, (kind & 8u) != 0u ? -1e30 : 0.0, a, b)) {
            gl_Position = vec4(0.0, 0.0, 2.0, 1.0);
            return;
        }
        if (start.w > 0.0) skipped = dot(screen(a) - screen(start), normalize(screen(b) - screen(a)));
    }
    clipNear(a, b);
    vec2 sa = screen(a), sb = screen(b), axis = sb - sa;
    float l = length(axis);
    axis = l > 1e-6 ? axis / l : vec2(1.0, 0.0);
    vec2 side = vec2(-axis.y, axis.x);
    bool atEnd = (gl_VertexID & 2) != 0;
    vec4 p = atEnd ? b : a;
    float width = max(pixels(mix(a.w, b.w, 0.5)), 1.0);
    // The neighbours' directions, turned so that this piece runs along x.
    vec4 prev = projection * vec4(toView(before), 1.0), next = projection * vec4(toView(after), 1.0);
    vec4 cutA = a, cutB = b;
    clipNear(prev, cutA);
    clipNear(cutB, next);
    vec2 from = sa - screen(prev), to = screen(next) - sb;
    from = length(from) > 1e-4 ? normalize(from) : axis;
    to = length(to) > 1e-4 ? normalize(to) : axis;
    joins = vec4(dot(from, axis), dot(from, side), dot(to, axis), dot(to, side));
    // Lengths in units of the object or the world follow their size on the screen.
    float before0 = (flags & 128u) != 0u ? strokeDistances[(flags >> 8) + (kind >> 4)]
                  : l > 1e-6 ? along * l / max(distance(position, end), 1e-30) : 0.0;
    // A pattern that counts in the world is foreshortened with the piece.
    float unit = (flags & 8u) != 0u && l > 1e-6 ? size * l / max(distance(viewA, viewB), 1e-30) : width;
    if ((kind & 4u) != 0u) unit = width;
    measures = vec4(l, width, (kind & 4u) != 0u ? skipped : before0, max(unit, 1e-3));
    style = uvec2(row, kind & 15u);
    tint = colour;
    float reach = strokeHeads[row].reach * width + 1.0;
    vec2 room = vec2(2.5 * width + 1.0, reach + 0.5 * width);
    place = vec2(atEnd ? l + room.x : -room.x, (gl_VertexID & 1) != 0 ? room.y : -room.y);
    vec2 off = axis * (atEnd ? room.x : -room.x) + side * place.y;
    gl_Position = p + vec4(off * 2.0 / viewport.xy * p.w, 0.0, 0.0);
}
