// A weighted mean along a line, to both sides of the pixel or to one.
layout(binding = 0) uniform sampler2D source;
layout(location = 0) uniform vec4 along;        // step of one pixel in the texture's coordinates; both sides; taps
layout(location = 1) uniform vec2 taps[32];     // offset in pixels, weight
in vec2 at;
layout(location = 0) out vec4 result;
void main() {
    vec4 sum = textureLod(source, at, 0.0) * taps[0].y;
    for (int i = 1; i < int(along.w); ++i) {
        vec2 offset = along.xy * taps[i].x;
        sum += textureLod(source, at + offset, 0.0) * taps[i].y;
        if (along.z > 0.0) sum += textureLod(source, at - offset, 0.0) * taps[i].y;
    }
    result = sum;
}
