// The layout is that of BackgroundBlock in BackgroundStep.cpp.
layout(std140, binding = 2) uniform BackgroundBlock {
    vec4 fromColour;
    vec4 toColour;
    vec4 ramp;          // the share of the second colour is ramp.xyz · (x, y, 1)
    mat4 sight;         // from (x, y, 1) to a direction in the world
};
