// The normal goes by the cofactors of the matrix: right for any scale, and it keeps to the side from which
// the corners run counter-clockwise, in a mirror too. A zero direction stands for a face without light.
#include "instance.glsl"
#include "sections_vertex.glsl"
#include "faces.glsl"
layout(location = 1) in vec4 normal;        // w: 1 for a colour of the vertex's own, -1 for an index
layout(location = 2) in vec4 vertexColour;
out vec3 direction;
TINT out vec4 tint;
#ifdef PLACE
out vec3 place;
#endif
#if defined(TRANSPARENT) || defined(SHADOWED)
flat out uint bits;
#endif
#if defined(MATERIAL) || defined(INDEXED)
#include "material.glsl"
flat out uint surfaceRow;
#endif
#ifdef INDEXED
out float paletteIndex;
#endif
#ifdef PARAMETERS
layout(std430, binding = 2) readonly buffer ParameterBlock {
    vec4 parameters[];
};
out vec4 parameter;
#endif
#ifdef PROJECTED
out vec3 object;
#endif
#ifdef LIT_AT_CORNERS
#include "lights.glsl"
out vec3 frontDiffuse;
out vec3 frontGloss;
out vec3 backDiffuse;
out vec3 backGloss;
#endif
void main() {
    vec3 view = toView(position);
    cutAt(position);
#ifdef MATERIAL
    bool dark = (flags & 1u) != 0u;
#else
    bool dark = LIGHTS + SPOTS == 0 || (flags & 1u) != 0u;
#endif
    direction = dark ? vec3(0.0) :
        mat3(rotation) * vec3(dot(cross(row1.xyz, row2.xyz), normal.xyz),
                              dot(cross(row2.xyz, row0.xyz), normal.xyz),
                              dot(cross(row0.xyz, row1.xyz), normal.xyz));
    tint = normal.w > 0.5 ? vec4(vertexColour.rgb, vertexColour.a * colour.a) : colour;
#ifdef PLACE
    place = view;
#endif
#if defined(TRANSPARENT) || defined(SHADOWED)
    bits = flags;
#endif
#if defined(MATERIAL) || defined(INDEXED)
    surfaceRow = material & 0xFFFFFu;
    Material m = materials[surfaceRow];
#endif
#ifdef INDEXED
    // Sixteen bits before the point and eight behind it.
    paletteIndex = -1.0;
    if (normal.w < -0.5) {
        float index = dot(vertexColour.rgb, vec3(65280.0, 255.0, 255.0 / 256.0));
        if ((m.indexRule & 2u) != 0u)
            paletteIndex = index;
        else
            tint = paletteColour(m, index) * vec4(1.0, 1.0, 1.0, colour.a);
    }
#endif
#ifdef PARAMETERS
    parameter = parameters[uint(gl_VertexID) + m.parameters];
#endif
#ifdef PROJECTED
    object = position;
#endif
#ifdef LIT_AT_CORNERS
    vec3 n = direction * inversesqrt(max(dot(direction, direction), 1e-30));
    vec3 front = skyAndGround(n), back = skyAndGround(-n);
    float exponent = 32.0;
#ifdef MATERIAL
    exponent = m.exponent;
    if (m.ownAmbient != 0u) {
        front = mix(m.ambientDown, m.ambientUp, n.y * 0.5 + 0.5);
        back = mix(m.ambientDown, m.ambientUp, 0.5 - n.y * 0.5);
    }
#endif
    Lighting light = lighting(n, view, front, exponent);
    frontDiffuse = light.diffuse;
    frontGloss = light.gloss;
    light = lighting(-n, view, back, exponent);
    backDiffuse = light.diffuse;
    backGloss = light.gloss;
#endif
    gl_Position = projection * vec4(view, 1.0);
}
