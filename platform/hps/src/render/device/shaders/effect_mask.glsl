// Which effects leave out what is seen at a pixel, a bit each. The mask holds for the middles of pixels: at a rim
// what is seen may reach in from beside.
#ifdef EFFECT_MASK
layout(binding = 7) uniform sampler2D effectMask;
uint leftOut(ivec2 pixel) {
    ivec2 last = textureSize(effectMask, 0) - 1;
    float bits = texelFetch(effectMask, pixel, 0).r;
    if (bits == 0.0) {
        bits = max(bits, texelFetch(effectMask, max(pixel - ivec2(1, 0), ivec2(0)), 0).r);
        bits = max(bits, texelFetch(effectMask, max(pixel - ivec2(0, 1), ivec2(0)), 0).r);
        bits = max(bits, texelFetch(effectMask, min(pixel + ivec2(1, 0), last), 0).r);
        bits = max(bits, texelFetch(effectMask, min(pixel + ivec2(0, 1), last), 0).r);
    }
    return uint(bits * 255.0 + 0.5);
}
uint leftOut(vec2 at) { return leftOut(ivec2(clamp(at, 0.0, 0.999999) * vec2(textureSize(effectMask, 0)))); }
#else
uint leftOut(ivec2 pixel) { return 0u; }
uint leftOut(vec2 at) { return 0u; }
#endif
