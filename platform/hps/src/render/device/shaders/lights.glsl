// The layout is that of LightBlock in LightStep.cpp.
struct Light { vec4 direction; vec4 halfway; vec4 colour; };
layout(std140, binding = 1) uniform LightBlock {
    Light lights[4];
};
