#include "ShaderLibrary.h"
#include "of_context.h"
#include "shader_files.h"
#include <algorithm>
#include <array>
#include <epoxy/gl.h>
#include <set>

namespace HPS::render
{
namespace
{

struct Stages {
    std::string_view vertex, fragment;
};

/// Indexed by ProgramName.
constexpr std::array stages{
    Stages{"background_vertex.glsl", "background_fragment.glsl"},
    Stages{"faces_vertex.glsl", "faces_fragment.glsl"},
    Stages{"lines_vertex.glsl", "lines_fragment.glsl"},
    Stages{"thin_lines_vertex.glsl", "lines_fragment.glsl"},
    Stages{"markers_vertex.glsl", "markers_fragment.glsl"},
    Stages{"glyphs_vertex.glsl", "lines_fragment.glsl"},
    Stages{"strokes_vertex.glsl", "strokes_fragment.glsl"},
    Stages{"view_edges_vertex.glsl", "lines_fragment.glsl"},
    Stages{"cover_vertex.glsl", "cover_fragment.glsl"},
    Stages{"full_screen_vertex.glsl", "shadow_mask_fragment.glsl"},
    Stages{"plane_vertex.glsl", "plane_shadow_fragment.glsl"},
    Stages{"plane_vertex.glsl", "plane_reflection_fragment.glsl"},
    Stages{"full_screen_vertex.glsl", "reflection_fade_fragment.glsl"},
    Stages{"full_screen_vertex.glsl", "layer_fragment.glsl"},
    Stages{"full_screen_vertex.glsl", "weighted_fragment.glsl"},
    Stages{"full_screen_vertex.glsl", "blur_fragment.glsl"},
    Stages{"full_screen_vertex.glsl", "occlusion_fragment.glsl"},
    Stages{"full_screen_vertex.glsl", "occlusion_blur_fragment.glsl"},
    Stages{"full_screen_vertex.glsl", "bright_fragment.glsl"},
    Stages{"full_screen_vertex.glsl", "out_of_focus_fragment.glsl"},
    Stages{"full_screen_vertex.glsl", "grade_fragment.glsl"},
    Stages{"full_screen_vertex.glsl", "finish_fragment.glsl"},
};

struct NamedFeature {
    Feature feature;
    char const* macro;
};
constexpr std::array features{
    NamedFeature{Feature::Flat, "FLAT"},
    NamedFeature{Feature::Transparent, "TRANSPARENT"},
    NamedFeature{Feature::Gouraud, "GOURAUD"},
    NamedFeature{Feature::FlatColours, "FLAT_COLOURS"},
    NamedFeature{Feature::Material, "MATERIAL"},
    NamedFeature{Feature::Parameters, "PARAMETERS"},
    NamedFeature{Feature::Projected, "PROJECTED"},
    NamedFeature{Feature::SpecularMap, "SPECULAR_MAP"},
    NamedFeature{Feature::MirrorMap, "MIRROR_MAP"},
    NamedFeature{Feature::TransmissionMap, "TRANSMISSION_MAP"},
    NamedFeature{Feature::EmissionMap, "EMISSION_MAP"},
    NamedFeature{Feature::BumpMap, "BUMP_MAP"},
    NamedFeature{Feature::Mirror, "MIRROR"},
    NamedFeature{Feature::EnvironmentMap, "ENVIRONMENT_MAP"},
    NamedFeature{Feature::EnvironmentCube, "ENVIRONMENT_CUBE"},
    NamedFeature{Feature::EnvironmentColour, "ENVIRONMENT_COLOUR"},
    NamedFeature{Feature::Indexed, "INDEXED"},
    NamedFeature{Feature::Cut, "CUT"},
    NamedFeature{Feature::BackgroundImage, "BACKGROUND_IMAGE"},
    NamedFeature{Feature::BackgroundCube, "BACKGROUND_CUBE"},
    NamedFeature{Feature::Peel, "PEEL"},
    NamedFeature{Feature::EverySample, "EVERY_SAMPLE"},
    NamedFeature{Feature::Weighted, "WEIGHTED"},
    NamedFeature{Feature::ScreenDoor, "SCREEN_DOOR"},
    NamedFeature{Feature::Shadowed, "SHADOWED"},
    NamedFeature{Feature::CoverDepth, "COVER_DEPTH"},
    NamedFeature{Feature::CoverPlane, "COVER_PLANE"},
    NamedFeature{Feature::Occlusion, "OCCLUSION"},
    NamedFeature{Feature::EyeDome, "EYE_DOME"},
    NamedFeature{Feature::Silhouettes, "SILHOUETTES"},
    NamedFeature{Feature::Bloom, "BLOOM"},
    NamedFeature{Feature::DepthOfField, "DEPTH_OF_FIELD"},
    NamedFeature{Feature::Smoothing, "SMOOTHING"},
    NamedFeature{Feature::EffectMask, "EFFECT_MASK"},
};

/// Appends a module and, before the place where it asks for them, the modules that it takes in.
void append(std::string& out, std::string_view module, std::set<std::string_view>& taken)
{
    auto const files = shaderFiles();
    auto const file =
        std::find_if(files.begin(), files.end(), [&](auto const& f) { return f.name == module; });
    if (file == files.end()) {
        out += "#error no module " + std::string(module) + "\n";
        return;
    }
    if (!taken.insert(file->name).second) return;
    constexpr std::string_view directive = "#include \"";
    std::string_view rest = file->text;
    while (!rest.empty()) {
        std::string_view const line = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(std::min(rest.size(), line.size() + 1));
        if (!line.starts_with(directive)) {
            out.append(line).push_back('\n');
            continue;
        }
        std::string_view const name = line.substr(directive.size());
        append(out, name.substr(0, name.find('"')), taken);
    }
}

template <class Get, class Log> std::string logOf(unsigned name, Get get, Log log)
{
    GLint length = 0;
    get(name, GL_INFO_LOG_LENGTH, &length);
    std::string text(std::size_t(std::max(length, 1)), '\0');
    log(name, GLsizei(text.size()), nullptr, text.data());
    text.resize(text.find('\0'));
    return text;
}

} // namespace

ShaderLibrary& ShaderLibrary::instance()
{
    return ofContext<ShaderLibrary>();
}

unsigned ShaderLibrary::program(ProgramName which, Features const& features)
{
    auto const [found, isNew] = programs_.try_emplace({which, features}, 0);
    if (isNew) found->second = link(which, features);
    return found->second;
}

std::string ShaderLibrary::source(std::string_view module, Features const& wanted)
{
    std::string text = "#version 450 core\n";
    for (NamedFeature const& f : features)
        if (wanted.has(f.feature)) text += std::string("#define ") + f.macro + "\n";
    // A number known beforehand: a loop that the compiler cannot unroll costs software rendering half its
    // speed.
    text += "#define LIGHTS " + std::to_string(wanted.lights) + "\n";
    text += "#define SPOTS " + std::to_string(wanted.spots) + "\n";
    text += "#define LAYERS " + std::to_string(wanted.layers) + "\n";
    std::set<std::string_view> taken;
    append(text, module, taken);
    return text;
}

void ShaderLibrary::fail(std::string_view what, std::string const& log)
{
    if (failure_.empty()) failure_ = std::string(what) + ": " + log;
}

unsigned ShaderLibrary::compile(unsigned stage, std::string_view module, Features const& features)
{
    std::string const text = source(module, features);
    char const* const start = text.c_str();
    unsigned const shader = glCreateShader(stage);
    glShaderSource(shader, 1, &start, nullptr);
    glCompileShader(shader);
    GLint good = 0;
    glGetShaderiv(shader, GL_COMPILE_STATUS, &good);
    if (good != GL_FALSE) return shader;
    fail(module, logOf(shader, glGetShaderiv, glGetShaderInfoLog));
    glDeleteShader(shader);
    return 0;
}

unsigned ShaderLibrary::link(ProgramName which, Features const& features)
{
    Stages const& from = stages[std::size_t(which)];
    unsigned const vertex = compile(GL_VERTEX_SHADER, from.vertex, features);
    unsigned const fragment = compile(GL_FRAGMENT_SHADER, from.fragment, features);
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
    fail(from.vertex, logOf(linked, glGetProgramiv, glGetProgramInfoLog));
    glDeleteProgram(linked);
    return 0;
}

} // namespace HPS::render
