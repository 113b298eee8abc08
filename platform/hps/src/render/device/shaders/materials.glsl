// The layout is that of MaterialRow in MaterialTable.h; `material` is the instance's.
struct MaterialRow { vec3 specular; float gloss; };
layout(std430, binding = 0) readonly buffer MaterialBlock { MaterialRow materials[]; };
MaterialRow materialRow(uint material) { return materials[material & 0xFFFFFu]; }
