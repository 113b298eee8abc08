#include "shaders.h"
#include "DrawList.h"
#include <array>
#include <epoxy/gl.h>
#include <string>

namespace HPS::render
{
namespace
{

// The layout is that of FrameBlock in Frame.cpp.
char const* const frameBlock = R"(#version 450 core
struct Light { vec4 direction; vec4 halfway; vec4 colour; };
layout(std140, binding = 0) uniform FrameBlock {
    mat4 rotation;      // world axes to x right, y up, z to the viewer
    mat4 projection;
    vec4 target;        // in the world; view coordinates count from here, which keeps them small
    vec4 eye;           // in view coordinates; w is 1 for a perspective
    vec4 viewport;      // width, height in pixels
    vec4 backgroundTop;
    vec4 backgroundBottom;
    Light lights[4];
};
)";

char const* const instanceAttributes = R"(
layout(location = 0) in vec3 position;
layout(location = 3) in vec4 row0;
layout(location = 4) in vec4 row1;
layout(location = 5) in vec4 row2;
layout(location = 6) in vec4 colour;
layout(location = 7) in float size;
layout(location = 8) in uint flags;
vec3 toView(vec3 p) {
    vec4 h = vec4(p, 1.0);
    return mat3(rotation) * (vec3(dot(row0, h), dot(row1, h), dot(row2, h)) - target.xyz);
}
float pixels(float w) {
    return (flags & 8u) != 0u ? size * projection[1][1] * viewport.y * 0.5 / max(w, 1e-9) : size;
}
)";

char const* const backgroundVertex = R"(
out vec3 tint;
void main() {
    vec2 corner = vec2((gl_VertexID & 1) * 4 - 1, (gl_VertexID & 2) * 2 - 1);
    tint = mix(backgroundBottom.rgb, backgroundTop.rgb, corner.y * 0.5 + 0.5);
    gl_Position = vec4(corner, 0.0, 1.0);
})";

char const* const backgroundFragment = R"(
in vec3 tint;
layout(location = 0) out vec4 result;
void main() { result = vec4(tint, 1.0); })";

// The normal goes by the cofactors of the matrix: right for any scale, and it keeps to the side from which
// the corners run counter-clockwise, in a mirror too. A zero direction stands for a face without light.
char const* const facesVertex = R"(
layout(location = 1) in vec4 normal;
layout(location = 2) in vec4 vertexColour;
out vec3 direction;
out vec4 tint;
#ifdef FLAT
out vec3 place;
#endif
#ifdef TRANSPARENT
flat out uint bits;
#endif
void main() {
    vec3 view = toView(position);
    direction = LIGHTS == 0 || (flags & 1u) != 0u ? vec3(0.0) :
        mat3(rotation) * vec3(dot(cross(row1.xyz, row2.xyz), normal.xyz),
                              dot(cross(row2.xyz, row0.xyz), normal.xyz),
                              dot(cross(row0.xyz, row1.xyz), normal.xyz));
    tint = normal.w > 0.5 ? vec4(vertexColour.rgb, vertexColour.a * colour.a) : colour;
#ifdef FLAT
    place = view;
#endif
#ifdef TRANSPARENT
    bits = flags;
#endif
    gl_Position = projection * vec4(view, 1.0);
})";

// Meshes are made so that a normal lies on the side from which its triangle runs counter-clockwise: that
// side, not the normal, decides what is turned to the viewer, and a normal that leans over the silhouette
// stays where it is. The viewer counts as infinitely far, which makes half vectors constant.
char const* const facesFragment = R"(
in vec3 direction;
in vec4 tint;
#ifdef FLAT
in vec3 place;
#endif
#ifdef TRANSPARENT
flat in uint bits;
#endif
layout(location = 0) out vec4 result;
void main() {
#ifdef TRANSPARENT
    if ((bits & (gl_FrontFacing ? 4u : 2u)) != 0u) discard;
#endif
    float square = dot(direction, direction);
#ifdef FLAT
    vec3 n = normalize(cross(dFdx(place), dFdy(place)));
#else
    vec3 n = direction * inversesqrt(max(square, 1e-30));
    n = gl_FrontFacing ? n : -n;
#endif
    // Sky, ground and a weak lamp at the viewer give every side a shade of its own before any light falls.
    vec3 diffuse = vec3(0.36 + 0.22 * n.y + 0.26 * max(n.z, 0.0));
    vec3 gloss = vec3(0.0);
    for (int i = 0; i < LIGHTS; ++i) {
        diffuse += lights[i].colour.rgb * max(dot(n, lights[i].direction.xyz), 0.0);
        float h = max(dot(n, lights[i].halfway.xyz), 0.0);
        h *= h; h *= h; h *= h; h *= h; h *= h;
        gloss += lights[i].colour.rgb * (0.25 * h);
    }
    result = vec4(square > 1e-20 ? min(tint.rgb * diffuse + gloss, vec3(1.0)) : tint.rgb, tint.a);
})";

// Four vertices hold the same two ends; which corner of the strip one is, its number tells.
char const* const linesVertex = R"(
layout(location = 1) in vec3 end;
flat out vec4 tint;
void main() {
    vec4 a = projection * vec4(toView(position), 1.0);
    vec4 b = projection * vec4(toView(end), 1.0);
    // An end behind the near plane has no place on the screen: the segment is cut there first.
    float da = a.z + a.w, db = b.z + b.w;
    if (da < 0.0 && db > 0.0) a = mix(a, b, da / (da - db));
    else if (db < 0.0 && da > 0.0) b = mix(b, a, db / (db - da));
    vec2 along = (b.xy / b.w - a.xy / a.w) * viewport.xy;
    float l = length(along);
    along = l > 1e-6 ? along / l : vec2(1.0, 0.0);
    bool atEnd = (gl_VertexID & 2) != 0;
    vec4 p = atEnd ? b : a;
    float halfWidth = 0.5 * pixels(p.w);
    vec2 across = vec2(-along.y, along.x) * ((gl_VertexID & 1) != 0 ? halfWidth : -halfWidth);
    // Half a width beyond each end closes the corners of a polyline.
    vec2 offset = across + along * (atEnd ? halfWidth : -halfWidth);
    tint = colour;
    gl_Position = p + vec4(offset * 2.0 / viewport.xy * p.w, 0.0, 0.0);
})";

char const* const thinLinesVertex = R"(
layout(location = 1) in vec3 end;
flat out vec4 tint;
void main() {
    tint = colour;
    gl_Position = projection * vec4(toView((gl_VertexID & 2) != 0 ? end : position), 1.0);
})";

char const* const linesFragment = R"(
flat in vec4 tint;
layout(location = 0) out vec4 result;
void main() { result = tint; })";

char const* const markersVertex = R"(
flat out vec4 tint;
flat out uint glyph;
flat out float radius;
out vec2 place;
void main() {
    gl_Position = projection * vec4(toView(position), 1.0);
    radius = 0.5 * pixels(gl_Position.w);
    // One pixel of margin for the soft rim.
    place = vec2((gl_VertexID & 2) - 1, (gl_VertexID & 1) * 2 - 1) * (radius + 1.0);
    gl_Position.xy += place * 2.0 / viewport.xy * gl_Position.w;
    tint = colour;
    glyph = flags >> 8;
})";

// Distances to the rim in pixels, negative inside. Bits as in GlyphPart.
char const* const markersFragment = R"(
flat in vec4 tint;
flat in uint glyph;
flat in float radius;
in vec2 place;
layout(location = 0) out vec4 result;
float bar(vec2 p, float pen) { return max(abs(p.x) - radius, abs(p.y) - pen); }
void main() {
    float pen = max(0.1 * radius, 0.6);
    vec2 p = (glyph & 8192u) != 0u ? vec2(place.x, -place.y) : place;
    vec2 a = abs(p);
    vec2 turned = vec2(p.x + p.y, p.y - p.x) * 0.70710678;
    float disc = length(p) - radius;
    float square = max(a.x, a.y) - radius;
    float triangle = max(-p.y - 0.5 * radius, 0.8660254 * a.x + 0.5 * p.y - 0.5 * radius);
    float diamond = (a.x + a.y - radius) * 0.70710678;
    float rim = 1e9;
    if ((glyph & 1u) != 0u) rim = min(rim, disc);
    if ((glyph & 2u) != 0u) rim = min(rim, disc + 0.65 * radius);
    if ((glyph & 4u) != 0u) rim = min(rim, abs(disc + pen) - pen);
    if ((glyph & 8u) != 0u) rim = min(rim, abs(disc + 0.5 * radius) - pen);
    if ((glyph & 16u) != 0u) rim = min(rim, square);
    if ((glyph & 32u) != 0u) rim = min(rim, abs(square + pen) - pen);
    if ((glyph & 64u) != 0u) rim = min(rim, min(bar(p, pen), bar(p.yx, pen)));
    if ((glyph & 128u) != 0u) rim = min(rim, min(bar(turned, pen), bar(turned.yx, pen)));
    if ((glyph & 256u) != 0u) rim = min(rim, triangle);
    if ((glyph & 512u) != 0u) rim = min(rim, abs(triangle + pen) - pen);
    if ((glyph & 1024u) != 0u) rim = min(rim, abs(diamond + pen) - pen);
    if ((glyph & 2048u) != 0u) rim = min(rim, bar(turned, pen));
    if ((glyph & 4096u) != 0u) rim = min(rim, bar(turned.yx, pen));
    float cover = clamp(0.5 - rim, 0.0, 1.0);
    if (cover <= 0.0) discard;
    result = vec4(tint.rgb, tint.a * cover);
})";

struct Sources {
    char const* attributes;
    char const* vertex;
    char const* defines;
    char const* fragment;
};

// Indexed by Program.
constexpr std::array<Sources, programCount> sources{{
    {"", backgroundVertex, "", backgroundFragment},
    {instanceAttributes, facesVertex, "", facesFragment},
    {instanceAttributes, facesVertex, "#define FLAT\n", facesFragment},
    {instanceAttributes, facesVertex, "#define TRANSPARENT\n", facesFragment},
    {instanceAttributes, facesVertex, "#define TRANSPARENT\n#define FLAT\n", facesFragment},
    {instanceAttributes, linesVertex, "", linesFragment},
    {instanceAttributes, thinLinesVertex, "", linesFragment},
    {instanceAttributes, markersVertex, "", markersFragment},
}};

std::string& failureText()
{
    static std::string text;
    return text;
}

unsigned compile(GLenum stage, std::string const& defines, char const* before, char const* body)
{
    std::array const parts{frameBlock, defines.c_str(), before, body};
    unsigned const shader = glCreateShader(stage);
    glShaderSource(shader, GLsizei(parts.size()), parts.data(), nullptr);
    glCompileShader(shader);
    GLint good = 0;
    glGetShaderiv(shader, GL_COMPILE_STATUS, &good);
    if (good != GL_FALSE) return shader;
    std::array<char, 1024> log{};
    glGetShaderInfoLog(shader, GLsizei(log.size()), nullptr, log.data());
    failureText() = log.data();
    glDeleteShader(shader);
    return 0;
}

unsigned link(Sources const& from, std::size_t lights)
{
    // A number known beforehand: a loop that the compiler cannot unroll costs software rendering half its
    // speed.
    std::string const defines = from.defines + ("#define LIGHTS " + std::to_string(lights) + "\n");
    unsigned const vertex = compile(GL_VERTEX_SHADER, defines, from.attributes, from.vertex);
    unsigned const fragment = compile(GL_FRAGMENT_SHADER, defines, "", from.fragment);
    if (vertex == 0 || fragment == 0) return 0;
    unsigned const linked = glCreateProgram();
    glAttachShader(linked, vertex);
    glAttachShader(linked, fragment);
    glLinkProgram(linked);
    glDeleteShader(vertex);
    glDeleteShader(fragment);
    GLint good = 0;
    glGetProgramiv(linked, GL_LINK_STATUS, &good);
    if (good != GL_FALSE) return linked;
    std::array<char, 1024> log{};
    glGetProgramInfoLog(linked, GLsizei(log.size()), nullptr, log.data());
    failureText() = log.data();
    glDeleteProgram(linked);
    return 0;
}

} // namespace

unsigned program(Program which, std::size_t lights)
{
    static std::array<std::array<unsigned, maximumLights + 1>, programCount> programs{};
    unsigned& name = programs[std::size_t(which)][lights];
    if (name == 0) name = link(sources[std::size_t(which)], lights);
    return name;
}

char const* programFailure()
{
    return failureText().c_str();
}

} // namespace HPS::render
