// Distances to the rim in pixels, negative inside.
#include "output.glsl"
#include "strokes.glsl"
#include "sections_fragment.glsl"
flat in vec4 tint;
noperspective in vec2 place;
flat in vec4 measures;
flat in vec4 joins;
flat in uvec2 style;
// Beyond the end of a stretch by `out`, beside its axis by `beside`, both in pixels; `h` is half the width. Caps:
// butt, disc, inverted triangle, mitre (a point), square.
float cap(uint kind, float beyond, float beside, float h) {
    float rim = abs(beside) - h;
    if (kind == 1u) return beyond > 0.0 ? length(vec2(beyond, beside)) - h : max(rim, beyond - h);
    if (kind == 2u) return max(rim, (beyond - abs(beside)) * 0.70710678);
    if (kind == 3u) return max(rim, (beyond + abs(beside) - h) * 0.70710678);
    if (kind == 4u) return max(rim, beyond - h);
    return max(rim, beyond);
}
// What a join leaves of a piece at one end. `q` counts from the corner, x outwards along the piece; `next` is the
// direction in which the chain goes on.
float join(uint kind, vec2 q, vec2 next, float h) {
    vec2 half0 = vec2(1.0, 0.0) + next;
    float l = length(half0);
    if (l < 0.1) return q.x - (kind == 1u ? h : 0.0);   // back the way it came
    vec2 normal = half0 / l;
    float rim = dot(q, normal) - 0.5;                   // half a pixel shared, so that no gap shows
    vec2 outer = vec2(normal.y, -normal.x);
    if (outer.y * next.y > 0.0) outer = -outer;
    if (q.x > 0.0) {
        float cosine = abs(outer.y);                    // of half the turn
        if (kind == 1u) rim = max(rim, length(q) - h);
        else if (kind == 2u || cosine < 0.25) rim = max(rim, dot(q, outer) - h * cosine);
    }
    return rim;
}
void main() {
    beginOutput();
    cut();
    float l = measures.x, width = measures.y, start = measures.z, unit = measures.w, h = 0.5 * width;
    StrokeHead head = strokeHeads[style.x];
    bool first = (style.y & 1u) != 0u, last = (style.y & 2u) != 0u;
    uint startCap = head.ends & 15u, endCap = head.ends >> 4 & 15u, innerCap = head.ends >> 8 & 15u;
    uint corner = head.ends >> 12 & 15u;
    float shape = -1e9;
    if (!first) shape = max(shape, join(corner, vec2(-place.x, place.y), vec2(joins.x, -joins.y), h));
    if (!last) shape = max(shape, join(corner, vec2(place.x - l, place.y), joins.zw, h));
    float s = start + place.x;
    float lineEnd = start + l;
    float rim = 1e9;
    for (uint r = 0u; r < head.rowCount; ++r) {
        StrokeRow row = strokeRows[head.firstRow + r];
        float beside = place.y - row.offset * width;
        if (row.period <= 0.0) {
            float d = abs(beside) - h;
            if (first && place.x < 0.5 * l) d = max(d, cap(startCap, -place.x, beside, h));
            else if (last) d = max(d, cap(endCap, place.x - l, beside, h));
            rim = min(rim, d);
            continue;
        }
        float period = row.period * unit;
        float turn = floor(s / period);
        for (uint i = 0u; i < row.dashCount; ++i) {
            vec2 dash = strokeDashes[row.firstDash + i] * unit;
            bool dot0 = dash.x == dash.y;
            for (float k = -1.0; k <= 1.0; k += 1.0) {
                float from = dash.x + (turn + k) * period, to = dash.y + (turn + k) * period;
                uint capFrom = dot0 ? 1u : innerCap, capTo = capFrom;
                if (first && from <= start) {
                    if (dot0 ? from < start : to <= start) continue;
                    from = max(from, start);
                    capFrom = dot0 ? 1u : startCap;
                }
                if (last && to >= lineEnd) {
                    if (dot0 ? to > lineEnd : from >= lineEnd) continue;
                    to = min(to, lineEnd);
                    capTo = dot0 ? 1u : endCap;
                }
                float d = s < 0.5 * (from + to) ? cap(capFrom, from - s, beside, h)
                                                : cap(capTo, s - to, beside, h);
                rim = min(rim, d);
            }
        }
    }
    float cover = clamp(0.5 - max(rim, shape), 0.0, 1.0);
    if (cover <= 0.0) discard;
    putColour(vec4(tint.rgb, tint.a * cover));
}
