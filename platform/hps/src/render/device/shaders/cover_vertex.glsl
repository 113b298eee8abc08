// Faces for their outline alone: for maps of depth or cover.
#include "instance.glsl"
#include "sections_vertex.glsl"
layout(location = 1) in vec4 normal;
layout(location = 2) in vec4 vertexColour;
layout(location = 0) uniform vec4 plane;        // in the world less the frame's target; what lies below is left out
flat out float cover;
out float height;
void main() {
    cutAt(position);
    vec4 h = vec4(position, 1.0);
    vec3 place = vec3(dot(row0, h), dot(row1, h), dot(row2, h)) - target.xyz;
    height = dot(plane.xyz, place) + plane.w;
    cover = colour.a * (normal.w > 0.5 ? vertexColour.a : 1.0);
    gl_Position = projection * vec4(mat3(rotation) * place, 1.0);
}
