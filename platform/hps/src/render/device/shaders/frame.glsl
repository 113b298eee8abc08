// What every program knows of the frame. The layout is that of FrameBlock in frame_block.cpp.
layout(std140, binding = 0) uniform FrameBlock {
    mat4 rotation;      // world axes to x right, y up, z to the viewer
    mat4 projection;
    vec4 target;        // in the world; view coordinates count from here, which keeps them small
    vec4 eye;           // in view coordinates; w is 1 for a perspective
    vec4 viewport;      // width, height in pixels
};
