in vec3 tint;
layout(location = 0) out vec4 result;
void main() { result = vec4(tint, 1.0); }
