#include "sections_fragment.glsl"
flat in vec4 tint;
layout(location = 0) out vec4 result;
void main() {
    cut();
    result = tint;
}
