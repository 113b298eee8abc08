// The layouts are those of MaterialRow and LayerRow in MaterialRow.h.
struct Material {
    vec4 diffuse;
    vec3 specular;
    float exponent;
    vec3 emission;
    uint ownAmbient;    // 1: ambientUp and ambientDown take the place of sky and ground
    vec3 mirror;
    uint firstLayer;
    vec3 transmission;
    uint parameters;
    vec3 environment;
    uint palette;
    vec3 ambientUp;
    uint paletteSize;
    vec3 ambientDown;
    float scale;
    vec3 low;
    float inverseHeight;
    vec3 centre;
    uint indexRule;     // 1: colours are mixed, 2: indices are
};
struct Layer {
    vec4 u;             // coordinates in the texture are u and v times (p, 1)
    vec4 v;
    vec4 modulation;
    uint source;
    uint blend;
    uint first;
    uint flags;         // 1: trimmed, 2: holds normals
};
layout(std430, binding = 0) readonly buffer MaterialBlock {
    Material materials[];
};
layout(std430, binding = 1) readonly buffer LayerBlock {
    Layer layers[];
};
vec4 paletteColour(Material m, float index) {
    float last = float(m.paletteSize) - 1.0;
    if (last < 0.0) return vec4(1.0);
    index = clamp(index, 0.0, last);
    if ((m.indexRule & 1u) == 0u) return materials[m.palette + uint(index + 0.5)].diffuse;
    float low = floor(index);
    return mix(materials[m.palette + uint(low)].diffuse, materials[m.palette + uint(min(low + 1.0, last))].diffuse,
               index - low);
}
