#include "background.glsl"
in vec4 tint;
in vec2 place;
#ifdef BACKGROUND_IMAGE
layout(binding = 0) uniform sampler2D image;
#endif
#ifdef BACKGROUND_CUBE
layout(binding = 0) uniform samplerCube world;
#endif
layout(location = 0) out vec4 result;
void main() {
#if defined(BACKGROUND_IMAGE)
    vec4 picture = texture(image, place * 0.5 + 0.5);
    result = vec4(mix(tint.rgb, picture.rgb, picture.a), 1.0);
#elif defined(BACKGROUND_CUBE)
    result = vec4(texture(world, mat3(sight) * vec3(place, 1.0)).rgb, 1.0);
#else
    result = tint;
#endif
}
