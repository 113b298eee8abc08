#include "output.glsl"
#include "sections_fragment.glsl"
flat in vec4 tint;
void main() {
    beginOutput();
    cut();
    putColour(tint);
}
