// How much of a distant light reaches the fragment at hand: of the first four, what the shadow mask says.
#ifdef SHADOWED
layout(binding = 14) uniform sampler2D shadowMask;
vec4 reached = vec4(1.0);
void findReach(bool receives) {
    if (receives) reached = texelFetch(shadowMask, ivec2(gl_FragCoord.xy), 0);
}
float lightReach(int light) { return light < 4 ? reached[light] : 1.0; }
#else
float lightReach(int light) { return 1.0; }
#endif
