// Where what a program shades goes. Each scene program calls `beginOutput` first and `putColour` last.
#if defined(WEIGHTED)
layout(location = 0) out vec4 gathered;         // colours times cover times weight, their sum in w
layout(location = 1) out float seenThrough;     // becomes the product of what all leave open
#else
layout(location = 0) out vec4 result;
#endif
#ifdef PEEL
#ifdef EVERY_SAMPLE
layout(binding = 15) uniform sampler2DMS peeled;
#define PEELED texelFetch(peeled, ivec2(gl_FragCoord.xy), gl_SampleID).r
#else
layout(binding = 15) uniform sampler2D peeled;
#define PEELED texelFetch(peeled, ivec2(gl_FragCoord.xy), 0).r
#endif
#endif
void beginOutput() {
#ifdef PEEL
    // A step of 24 bits beyond what was peeled off already.
    if (gl_FragCoord.z <= PEELED + 1.2e-7) discard;
#endif
}
void putColour(vec4 colour) {
#ifdef SCREEN_DOOR
    ivec2 p = ivec2(gl_FragCoord.xy) & 3;
    int x = p.x ^ p.y;
    int rank = ((x & 1) << 3) | ((p.y & 1) << 2) | (x & 2) | ((p.y & 2) >> 1);
    if (colour.a < (float(rank) + 0.5) / 16.0) discard;
    colour.a = 1.0;
#endif
#if defined(WEIGHTED)
    if (colour.a <= 0.0) discard;
    float near = 1.0 - gl_FragCoord.z;
    float weight = colour.a * (0.1 + 2.0 * near * near);
    gathered = vec4(colour.rgb, 1.0) * weight;
    seenThrough = colour.a;
#elif defined(PEEL) || defined(LAYERED)
    if (colour.a <= 0.0) discard;
    result = vec4(colour.rgb * colour.a, colour.a);
#else
    result = colour;
#endif
}
