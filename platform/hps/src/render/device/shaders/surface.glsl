// A surface with a material: what it is made of, then what light makes of it.
#include "texturing.glsl"

vec4 surface(vec3 n, vec4 colour, bool lit) {
    Material m = materials[surfaceRow];
    uint next = m.firstLayer;
    vec3 viewer = vec3(0.0, 0.0, 1.0);
#ifdef PLACE
    if (eye.w > 0.5) viewer = normalize(eye.xyz - place);
#endif
    Aspect aspect = Aspect(n, reflect(-viewer, n), vec3(0.0, 0.0, 1.0));
#ifdef PROJECTED
    aspect.facing = cross(dFdx(object), dFdy(object));
#endif
#if LAYERS > 0
    for (int i = 0; i < LAYERS; ++i)
        colour = covered(colour, texel(diffuseMaps[i], m, layers[next + uint(i)], aspect),
                         layers[next + uint(i)].blend);
    next += uint(LAYERS);
#endif
    vec3 specular = m.specular, mirror = m.mirror, transmission = m.transmission, emission = m.emission;
#ifdef SPECULAR_MAP
    specular *= channelTexel(specularMap, m, layers[next++], aspect);
#endif
#ifdef MIRROR_MAP
    mirror *= channelTexel(mirrorMap, m, layers[next++], aspect);
#endif
#ifdef TRANSMISSION_MAP
    transmission *= channelTexel(transmissionMap, m, layers[next++], aspect);
#endif
#ifdef EMISSION_MAP
    emission *= channelTexel(emissionMap, m, layers[next++], aspect);
#endif
#ifdef BUMP_MAP
    n = bumped(n, m, layers[next++], aspect);
    aspect.normal = n;
    aspect.reflection = reflect(-viewer, n);
#endif
    // What passes through is not there to be seen.
    colour.a *= 1.0 - clamp(dot(transmission, vec3(0.299, 0.587, 0.114)), 0.0, 1.0);
    if (lit) {
#if LIGHTS + SPOTS > 0
        bool shaded = true;
#else
        bool shaded = m.ownAmbient != 0u;
#endif
        if (shaded) {
            vec3 ambient = m.ownAmbient != 0u ? mix(m.ambientDown, m.ambientUp, n.y * 0.5 + 0.5) : skyAndGround(n);
            Lighting light = lightHere(n, ambient, m.exponent);
            colour.rgb = min(colour.rgb * light.diffuse + specular * light.gloss, vec3(1.0));
        }
#ifdef MIRROR
        colour.rgb = mix(colour.rgb, surroundings(m, layers[next], aspect), clamp(mirror, 0.0, 1.0));
#endif
    }
    return vec4(min(colour.rgb + emission, vec3(1.0)), colour.a);
}
