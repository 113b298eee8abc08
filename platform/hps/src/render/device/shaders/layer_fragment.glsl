// Copies one layer of what is seen through, sample by sample if it has several.
#ifdef EVERY_SAMPLE
layout(binding = 0) uniform sampler2DMS layer;
#define LAYER texelFetch(layer, ivec2(at * vec2(textureSize(layer))), gl_SampleID)
#else
layout(binding = 0) uniform sampler2D layer;
#define LAYER texelFetch(layer, ivec2(at * vec2(textureSize(layer, 0))), 0)
#endif
in vec2 at;
layout(location = 0) out vec4 result;
void main() {
    vec4 colour = LAYER;
    if (colour.a <= 0.0) discard;
    result = colour;
}
