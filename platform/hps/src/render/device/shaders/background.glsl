// The layout is that of BackgroundBlock in BackgroundStep.cpp.
layout(std140, binding = 2) uniform BackgroundBlock {
    vec4 backgroundTop;
    vec4 backgroundBottom;
};
