// Colours of textures at the fragment at hand.
#include "material.glsl"
#if LAYERS > 0
layout(binding = 0) uniform sampler2D diffuseMaps[LAYERS];
#endif
layout(binding = 8) uniform sampler2D specularMap;
layout(binding = 9) uniform sampler2D mirrorMap;
layout(binding = 10) uniform sampler2D transmissionMap;
layout(binding = 11) uniform sampler2D emissionMap;
layout(binding = 12) uniform sampler2D bumpMap;
#ifdef ENVIRONMENT_CUBE
layout(binding = 13) uniform samplerCube environmentCube;
#else
layout(binding = 13) uniform sampler2D environmentMap;
#endif
#ifdef PARAMETERS
in vec4 parameter;      // w: 1 where the mesh has parameters, 0 where it has none
#endif
#ifdef PROJECTED
in vec3 object;
#endif

// What layers find their place by, beside the vertices' parameters.
struct Aspect {
    vec3 normal;        // in the axes of the view, as all of these
    vec3 reflection;
    vec3 facing;        // square to the triangle, in the mesh's own axes
};

// Longitude and latitude with +y up, as seen from outside: to the right is +x where +z looks at the viewer.
vec2 globe(vec3 d) {
    return vec2(atan(d.x, d.z) / 6.2831853 + 0.5, asin(clamp(d.y, -1.0, 1.0)) / 3.1415927 + 0.5);
}

// Coordinates before the layer's matrix; `wraps` where the first one starts anew somewhere.
vec3 coordinates(Material m, Layer layer, Aspect aspect, out bool wraps) {
    wraps = false;
#ifdef PROJECTED
    vec3 outwards = object - m.centre;
    switch (layer.source) {
    case 1u:
        return object;
    case 2u:
        return place * mat3(rotation) + target.xyz;
    case 3u:
        return vec3(aspect.normal.xy * 0.5 + 0.5, 0.0);
    case 4u: {
        vec3 r = aspect.reflection;
        float ball = 2.0 * sqrt(r.x * r.x + r.y * r.y + (r.z + 1.0) * (r.z + 1.0));
        return vec3(r.xy / max(ball, 1e-6) + 0.5, 0.0);
    }
    case 5u: {
        vec3 w = aspect.reflection * mat3(rotation);
        wraps = true;
        return vec3(globe(vec3(w.xy, -w.z)), 0.0);
    }
    case 6u:
        wraps = true;
        return vec3(globe(outwards * inversesqrt(max(dot(outwards, outwards), 1e-30))), 0.0);
    case 7u:
        wraps = true;
        return vec3(globe(vec3(outwards.x, 0.0, outwards.z)).x, (object.y - m.low.y) * m.inverseHeight, 0.0);
    }
#endif
#ifdef PARAMETERS
    if (parameter.w > 0.5)
        return layer.first == 0u ? parameter.xyz : layer.first == 1u ? vec3(parameter.yz, 0.0) :
               vec3(layer.first == 2u ? parameter.z : 0.0, 0.0, 0.0);
#endif
#ifdef PROJECTED
    // A mesh without parameters takes the image from the side that the triangle faces most.
    vec3 p = (object - m.low) * m.scale, a = abs(aspect.facing);
    return vec3(a.x > max(a.y, a.z) ? p.yz : a.y > a.z ? p.xz : p.xy, 0.0);
#else
    return vec3(0.0);
#endif
}

vec2 inTexture(Layer layer, vec3 p) {
    return vec2(dot(layer.u.xyz, p) + layer.u.w, dot(layer.v.xyz, p) + layer.v.w);
}

// Alpha is negative where the layer shows nothing.
vec4 texel(sampler2D map, Material m, Layer layer, Aspect aspect) {
    bool wraps;
    vec3 p = coordinates(m, layer, aspect, wraps);
    vec2 uv = inTexture(layer, p);
#ifdef PROJECTED
    vec3 dx = dFdx(p), dy = dFdy(p);
    if (wraps) {
        dx.x -= round(dx.x);
        dy.x -= round(dy.x);
    }
    vec4 t = textureGrad(map, uv, vec2(dot(layer.u.xyz, dx), dot(layer.v.xyz, dx)),
                         vec2(dot(layer.u.xyz, dy), dot(layer.v.xyz, dy)));
#else
    vec4 t = texture(map, uv);
#endif
    t *= layer.modulation;
    if ((layer.flags & 1u) != 0u && uv != clamp(uv, 0.0, 1.0)) t.a = -1.0;
    return t;
}

vec3 channelTexel(sampler2D map, Material m, Layer layer, Aspect aspect) {
    vec4 t = texel(map, m, layer, aspect);
    return t.a < 0.0 ? vec3(0.0) : t.rgb;
}

vec4 covered(vec4 colour, vec4 t, uint blend) {
    if (t.a < 0.0) return colour;
    switch (blend) {
    case 1u:
        return colour * t;
    case 2u:
        return vec4(mix(colour.rgb, t.rgb, t.a), colour.a);
    case 3u:
        return vec4(mix(colour.rgb, colour.rgb * t.rgb, t.a), colour.a);
    }
    return vec4(t.rgb, colour.a * t.a);
}

#ifdef BUMP_MAP
// The axes of the texture on the surface come from how place and coordinates change from pixel to pixel, so
// that meshes need no tangents.
vec3 bumped(vec3 n, Material m, Layer layer, Aspect aspect) {
    bool wraps;
    vec3 p = coordinates(m, layer, aspect, wraps);
    vec2 uv = inTexture(layer, p);
    vec2 uvX = inTexture(layer, p + dFdx(p)) - uv, uvY = inTexture(layer, p + dFdy(p)) - uv;
    vec3 acrossX = cross(dFdy(place), n), acrossY = cross(n, dFdx(place));
    vec3 tangent = acrossX * uvX.x + acrossY * uvY.x, bitangent = acrossX * uvX.y + acrossY * uvY.y;
    float longest = max(dot(tangent, tangent), dot(bitangent, bitangent));
    if (longest < 1e-30) return n;
    vec3 local;
    if ((layer.flags & 2u) != 0u) {
        local = texture(bumpMap, uv).rgb * 2.0 - 1.0;
    } else {
        const float steepness = 4.0;
        vec2 pixel = 1.0 / vec2(textureSize(bumpMap, 0));
        vec3 luma = vec3(0.299, 0.587, 0.114);
        float here = dot(texture(bumpMap, uv).rgb, luma);
        float right = dot(texture(bumpMap, uv + vec2(pixel.x, 0.0)).rgb, luma);
        float above = dot(texture(bumpMap, uv + vec2(0.0, pixel.y)).rgb, luma);
        local = vec3(vec2(here - right, here - above) * steepness, 1.0);
    }
    float inverse = inversesqrt(longest);
    return normalize(tangent * (inverse * local.x) + bitangent * (inverse * local.y) + n * local.z);
}
#endif

#ifdef MIRROR
vec3 surroundings(Material m, Layer layer, Aspect aspect) {
#if defined(ENVIRONMENT_CUBE)
    vec3 w = aspect.reflection * mat3(rotation);
    return texture(environmentCube, vec3(w.xy, -w.z)).rgb * m.environment;
#elif defined(ENVIRONMENT_MAP)
    return channelTexel(environmentMap, m, layer, aspect) * m.environment;
#elif defined(ENVIRONMENT_COLOUR)
    return m.environment;
#else
    return mix(vec3(0.25), vec3(0.95), smoothstep(-0.2, 0.4, aspect.reflection.y));
#endif
}
#endif
