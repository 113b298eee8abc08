#pragma once
#include "Features.h"
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace HPS::render
{

/// The programs of the renderer; each has a line in the table of ShaderLibrary.cpp.
enum class ProgramName : std::uint8_t {
    Background,
    Faces,
    Lines,
    ThinLines,
    Markers,
    Glyphs,
    Strokes,
    ViewEdges,
    Cover,
    ShadowMask,
    PlaneShadow,
    PlaneReflection,
    ReflectionFade,
    Layer,
    Weighted,
    Blur,
    Occlusion,
    OcclusionBlur,
    Bright,
    OutOfFocus,
    Grade,
    Finish
};

/// Compiles programs from the modules in shaders/*.glsl, which lie in this library as text. A module takes in
/// another by #include "name.glsl", each one once. A program costs a software driver about 0.15 s, so it is
/// compiled when it is first asked for. Needs the device's context to be current.
class ShaderLibrary
{
public:
    static ShaderLibrary& instance();

    /// The OpenGL name of a linked program; 0 if the driver refused it, see `failure`.
    unsigned program(ProgramName which, Features const& features = {});

    /// What the driver said about the first program that it refused; empty if it took them all.
    std::string const& failure() const { return failure_; }

    /// The source of one stage, as the driver gets it.
    static std::string source(std::string_view module, Features const& features);

    ShaderLibrary(ShaderLibrary const&) = delete;
    ShaderLibrary& operator=(ShaderLibrary const&) = delete;

private:
    template <class T> friend T& ofContext();
    ShaderLibrary() = default;
    unsigned link(ProgramName which, Features const& features);
    unsigned compile(unsigned stage, std::string_view module, Features const& features);
    void fail(std::string_view what, std::string const& log);

    std::map<std::pair<ProgramName, Features>, unsigned> programs_;
    std::string failure_;
};

} // namespace HPS::render
