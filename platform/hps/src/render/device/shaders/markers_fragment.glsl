// Distances to the rim in pixels, negative inside. Bits as in GlyphPart.
#include "sections_fragment.glsl"
#include "output.glsl"
flat in vec4 tint;
flat in uint glyph;
flat in float radius;
in vec2 place;
float bar(vec2 p, float pen) { return max(abs(p.x) - radius, abs(p.y) - pen); }
void main() {
    cut();
    beginOutput();
    float pen = max(0.1 * radius, 0.6);
    vec2 p = (glyph & 8192u) != 0u ? vec2(place.x, -place.y) : place;
    vec2 a = abs(p);
    vec2 turned = vec2(p.x + p.y, p.y - p.x) * 0.70710678;
    float disc = length(p) - radius;
    float square = max(a.x, a.y) - radius;
    float triangle = max(-p.y - 0.5 * radius, 0.8660254 * a.x + 0.5 * p.y - 0.5 * radius);
    float diamond = (a.x + a.y - radius) * 0.70710678;
    float rim = 1e9;
    if ((glyph & 1u) != 0u) rim = min(rim, disc);
    if ((glyph & 2u) != 0u) rim = min(rim, disc + 0.65 * radius);
    if ((glyph & 4u) != 0u) rim = min(rim, abs(disc + pen) - pen);
    if ((glyph & 8u) != 0u) rim = min(rim, abs(disc + 0.5 * radius) - pen);
    if ((glyph & 16u) != 0u) rim = min(rim, square);
    if ((glyph & 32u) != 0u) rim = min(rim, abs(square + pen) - pen);
    if ((glyph & 64u) != 0u) rim = min(rim, min(bar(p, pen), bar(p.yx, pen)));
    if ((glyph & 128u) != 0u) rim = min(rim, min(bar(turned, pen), bar(turned.yx, pen)));
    if ((glyph & 256u) != 0u) rim = min(rim, triangle);
    if ((glyph & 512u) != 0u) rim = min(rim, abs(triangle + pen) - pen);
    if ((glyph & 1024u) != 0u) rim = min(rim, abs(diamond + pen) - pen);
    if ((glyph & 2048u) != 0u) rim = min(rim, bar(turned, pen));
    if ((glyph & 4096u) != 0u) rim = min(rim, bar(turned.yx, pen));
    float cover = clamp(0.5 - rim, 0.0, 1.0);
    if (cover <= 0.0) discard;
    putColour(vec4(tint.rgb, tint.a * cover));
}
