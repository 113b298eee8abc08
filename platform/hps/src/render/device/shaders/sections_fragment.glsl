// Drops what a section takes away: sample by sample, so that the rim of a cut is as smooth as any other edge.
#ifdef CUT
in vec3 cutPlace;
flat in uint cutSet;
layout(std430, binding = 7) readonly buffer SectionBlock {
    vec4 samplePlaces[16];  // from the middle of the pixel; w is how many there are
    // First for each set: where its sections begin, and their number. A section: the number of its planes, then
    // the planes, around the camera's target.
    vec4 cuts[];
};
bool isGone(vec3 p) {
    int at = int(cuts[cutSet].x);
    int sections = int(cuts[cutSet].y);
    for (int s = 0; s < sections; ++s) {
        int planes = int(cuts[at].x);
        bool before = planes > 0;
        for (int i = 1; i <= planes; ++i) before = before && dot(cuts[at + i], vec4(p, 1.0)) > 0.0;
        if (before) return true;
        at += 1 + planes;
    }
    return false;
}
void cut() {
    vec3 dx = dFdx(cutPlace), dy = dFdy(cutPlace);
    int mask = 0;
    int samples = int(samplePlaces[0].w);
    for (int i = 0; i < samples; ++i)
        if (!isGone(cutPlace + dx * samplePlaces[i].x + dy * samplePlaces[i].y))
            mask |= 1 << i;
    if (mask == 0) discard;
    gl_SampleMask[0] = mask;
}
#else
void cut() {}
#endif
