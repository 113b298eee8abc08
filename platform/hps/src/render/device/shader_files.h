// The files of shaders/, built in.
#pragma once
#include <span>
#include <string_view>

namespace HPS::render
{

struct ShaderFile {
    std::string_view name;
    std::string_view text;
};

/// All of them, by name.
std::span<ShaderFile const> shaderFiles();

} // namespace HPS::render
