layout(binding = 0) uniform sampler2D cover;
layout(location = 4) uniform vec4 colour;
in vec2 at;
in vec3 place;
layout(location = 0) out vec4 result;
void main() { result = vec4(colour.rgb, colour.a * texture(cover, at).r); }
