// The weighted mean of all that covers a pixel, with the cover of them all.
layout(binding = 0) uniform sampler2D gathered;
layout(binding = 1) uniform sampler2D seenThrough;
in vec2 at;
layout(location = 0) out vec4 result;
void main() {
    ivec2 pixel = ivec2(at * vec2(textureSize(gathered, 0)));
    vec4 sum = texelFetch(gathered, pixel, 0);
    float cover = 1.0 - texelFetch(seenThrough, pixel, 0).r;
    if (cover <= 0.0) discard;
    result = vec4(sum.rgb / max(sum.a, 1e-5) * cover, cover);
}
