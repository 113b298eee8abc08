// Meshes are made so that a normal lies on the side from which its triangle runs counter-clockwise: that
// side, not the normal, decides what is turned to the viewer, and a normal that leans over the silhouette
// stays where it is.
#include "frame.glsl"
#include "faces.glsl"
#include "lights.glsl"
#include "sections_fragment.glsl"
#include "output.glsl"
in vec3 direction;
TINT in vec4 tint;
#ifdef PLACE
in vec3 place;
#endif
#if defined(TRANSPARENT) || defined(SHADOWED)
flat in uint bits;
#endif
#if defined(MATERIAL) || defined(INDEXED)
#include "material.glsl"
flat in uint surfaceRow;
#endif
#ifdef INDEXED
in float paletteIndex;
#endif
#ifdef LIT_AT_CORNERS
in vec3 frontDiffuse;
in vec3 frontGloss;
in vec3 backDiffuse;
in vec3 backGloss;
#endif

Lighting lightHere(vec3 n, vec3 ambient, float exponent) {
#ifdef LIT_AT_CORNERS
    return gl_FrontFacing ? Lighting(frontDiffuse, frontGloss) : Lighting(backDiffuse, backGloss);
#elif defined(PLACE)
    return lighting(n, place, ambient, exponent);
#else
    return lighting(n, vec3(0.0), ambient, exponent);
#endif
}
#ifdef MATERIAL
#include "surface.glsl"
#endif

void main() {
    cut();
    beginOutput();
#ifdef SHADOWED
    findReach((bits & 256u) == 0u);
#endif
#ifdef TRANSPARENT
    if ((bits & (gl_FrontFacing ? 4u : 2u)) != 0u) discard;
#endif
    float square = dot(direction, direction);
#ifdef FLAT
    vec3 n = normalize(cross(dFdx(place), dFdy(place)));
#else
    vec3 n = direction * inversesqrt(max(square, 1e-30));
    n = gl_FrontFacing ? n : -n;
#endif
    vec4 colour = tint;
#ifdef INDEXED
    if (paletteIndex > -0.5) colour = paletteColour(materials[surfaceRow], paletteIndex) * vec4(1.0, 1.0, 1.0, tint.a);
#endif
#ifdef MATERIAL
    putColour(surface(n, colour, square > 1e-20));
#else
    Lighting light = lightHere(n, skyAndGround(n), 32.0);
    putColour(vec4(square > 1e-20 ? min(colour.rgb * light.diffuse + light.gloss, vec3(1.0)) : colour.rgb, colour.a));
#endif
}
