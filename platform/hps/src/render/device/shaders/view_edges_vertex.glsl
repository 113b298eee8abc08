// Normals go by the cofactors of the matrix, as those of faces do.
#include "wide_line.glsl"
#include "sections_vertex.glsl"
layout(location = 1) in vec3 end;
layout(location = 2) in vec4 first;     // w: 1 shows wherever a face is turned to the viewer, -1 always
layout(location = 10) in vec4 second;
layout(location = 11) in vec4 ownColour;
flat out vec4 tint;
float turned(vec3 normal, vec3 sight) {
    vec3 n = vec3(dot(cross(row1.xyz, row2.xyz), normal), dot(cross(row2.xyz, row0.xyz), normal),
                  dot(cross(row0.xyz, row1.xyz), normal));
    return dot(mat3(rotation) * n, sight);
}
void main() {
    cutAt((gl_VertexID & 2) != 0 ? end : position);
    vec3 a = toView(position), b = toView(end);
    vec3 sight = eye.w > 0.5 ? eye.xyz - 0.5 * (a + b) : vec3(0.0, 0.0, 1.0);
    bool near = turned(first.xyz, sight) > 0.0, far = turned(second.xyz, sight) > 0.0;
    bool seen = first.w < -0.5 || (first.w > 0.5 ? near || far : near != far);
    tint = ownColour.a > 0.0 ? vec4(ownColour.rgb, ownColour.a * colour.a) : colour;
    gl_Position = seen ? wideLine(projection * vec4(a, 1.0), projection * vec4(b, 1.0))
                       : vec4(0.0, 0.0, 2.0, 1.0);
}
