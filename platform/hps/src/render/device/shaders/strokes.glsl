// Line patterns; the layout is that of StrokeTable. All lengths count in widths of the line.
struct StrokeHead { uint firstRow; uint rowCount; uint ends; float reach; };
struct StrokeRow { float period; float offset; uint firstDash; uint dashCount; };
layout(std430, binding = 8) readonly buffer StrokeHeads { StrokeHead strokeHeads[]; };
layout(std430, binding = 9) readonly buffer StrokeRows { StrokeRow strokeRows[]; };
layout(std430, binding = 10) readonly buffer StrokeDashes { vec2 strokeDashes[]; };
