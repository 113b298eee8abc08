// One triangle that covers whatever is drawn into.
out vec2 at;
void main() {
    vec2 corner = vec2((gl_VertexID & 1) * 4 - 1, (gl_VertexID & 2) * 2 - 1);
    at = corner * 0.5 + 0.5;
    gl_Position = vec4(corner, 0.0, 1.0);
}
