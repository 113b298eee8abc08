# cmake -D OUTPUT=file.cpp -D DIRECTORY=shaders -P embed_shaders.cmake
# Writes the text of every *.glsl of DIRECTORY into a C++ source.
file(GLOB files ${DIRECTORY}/*.glsl)
list(SORT files)
set(entries)
foreach(file IN LISTS files)
    get_filename_component(name ${file} NAME)
    file(READ ${file} text)
    string(APPEND entries "    {\"${name}\", R\"GLSL(${text})GLSL\"},\n")
endforeach()
file(WRITE ${OUTPUT} "#include \"shader_files.h\"

namespace HPS::render
{

static constexpr ShaderFile files[] = {
${entries}};

std::span<ShaderFile const> shaderFiles()
{
    return files;
}

} // namespace HPS::render
")
