// What a plane mirrors, drawn from behind it beforehand, laid over the plane.
#include "frame.glsl"
layout(binding = 0) uniform sampler2D mirrored; // colour times cover, and cover
layout(location = 4) uniform vec4 opacity;
in vec2 at;
in vec3 place;
layout(location = 0) out vec4 result;
void main() { result = texture(mirrored, gl_FragCoord.xy / viewport.xy) * opacity.x; }
