#include "obj_materials.h"

#include "MemoryFile.h"
#include "number_text.h"

#include <algorithm>
#include <fstream>
#include <set>

namespace NarMetaInfra
{
namespace
{
using NarMetaVisu::Texture;
using Words = std::vector<std::string_view>;

constexpr std::string_view Blanks = " \t\r\n\f\v";

Words wordsOf(std::string_view line)
{
    Words words;
    for (std::size_t at = 0; (at = line.find_first_not_of(Blanks, at)) != line.npos;) {
        auto const end = std::min(line.find_first_of(Blanks, at), line.size());
        words.push_back(line.substr(at, end - at));
        at = end;
    }
    return words;
}

/// What stands behind the first words of a line, to its end: names of files may hold blanks.
std::string_view restFrom(std::string_view line, std::string_view word)
{
    auto const start = static_cast<std::size_t>(word.data() - line.data());
    return line.substr(start, line.find_last_not_of(Blanks) + 1 - start);
}

std::filesystem::path pathOf(std::filesystem::path const& folder, std::string_view name)
{
    std::string text(name);
    std::ranges::replace(text, '\\', '/');
    return folder / text;
}

/// Options of an image, each with the number of words that follow it at least and at most.
struct ImageOption {
    std::string_view name;
    std::size_t least, most;
};
constexpr ImageOption ImageOptions[] = {
    {"-o", 1, 3},     {"-s", 1, 3},      {"-t", 1, 3},      {"-clamp", 1, 1},   {"-bm", 1, 1},
    {"-mm", 2, 2},    {"-blendu", 1, 1}, {"-blendv", 1, 1}, {"-imfchan", 1, 1}, {"-texres", 1, 1},
    {"-boost", 1, 1}, {"-cc", 1, 1},     {"-type", 1, 1}};

void apply(std::string_view option, Words const& values, TextureUse& use)
{
    auto const number = [&](std::size_t i) {
        return i < values.size() ? ParseNumber<double>(values[i]) : std::optional<double>();
    };
    for (std::size_t i = 0; i < 2; ++i) {
        if (option == "-o") use.offset[i] = number(i).value_or(use.offset[i]);
        if (option == "-s") use.scale[i] = number(i).value_or(use.scale[i]);
    }
    if (option == "-clamp" && values.front() == "on")
        use.wrap = {Texture::TextureWrapMode::ClampToEdge, Texture::TextureWrapMode::ClampToEdge};
}

std::optional<TextureUse> imageOf(std::filesystem::path const& folder, std::string_view line,
                                  Words const& words)
{
    TextureUse use;
    std::size_t i = 1;
    while (i < words.size() && words[i].starts_with('-')) {
        auto const option = std::ranges::find(ImageOptions, words[i], &ImageOption::name);
        if (option == std::end(ImageOptions)) break;
        Words values;
        for (++i; i < words.size() && values.size() < option->most; ++i) {
            if (values.size() >= option->least && !ParseNumber<double>(words[i])) break;
            values.push_back(words[i]);
        }
        if (values.size() < option->least) return std::nullopt;
        apply(option->name, values, use);
    }
    if (i >= words.size()) return std::nullopt;
    use.image = pathOf(folder, restFrom(line, words[i]));
    // Coordinates are scaled, then moved, with v upwards.
    use.offset[1] = 1.0 - use.scale[1] - use.offset[1];
    return use;
}

struct ImageWord {
    std::string_view word;
    std::optional<TextureUse> MaterialDetails::*member;
};
constexpr ImageWord ImageWords[] = {
    {"map_Kd", &MaterialDetails::baseColour}, {"map_Ks", &MaterialDetails::specular},
    {"map_Ke", &MaterialDetails::emissive},   {"map_Pr", &MaterialDetails::roughness},
    {"map_d", &MaterialDetails::opacity},     {"norm", &MaterialDetails::normal},
    {"map_Kn", &MaterialDetails::normal},     {"map_bump", &MaterialDetails::bump},
    {"map_Bump", &MaterialDetails::bump},     {"bump", &MaterialDetails::bump}};

/// Of lines with a word in them, and nothing of what is no file: a device or a pipe may have no end.
template <class Take>
void forEachLine(std::filesystem::path const& file, Take take, std::string_view with = {})
{
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error)) return;
    std::ifstream stream(file, std::ios::binary);
    for (std::string line; std::getline(stream, line);) {
        if (line.find(with) == line.npos) continue;
        if (auto const words = wordsOf(line); words.size() > 1) take(std::string_view(line), words);
    }
}
} // namespace

std::vector<std::filesystem::path> objMaterialFiles(std::filesystem::path const& file)
{
    constexpr std::string_view Keyword = "mtllib";
    std::vector<std::filesystem::path> files;
    std::set<std::filesystem::path> known;
    auto const take = [&](std::string_view line, Words const& words) {
        if (words[0] != Keyword) return;
        auto named = pathOf(file.parent_path(), restFrom(line, words[1]));
        if (known.insert(named).second) files.push_back(std::move(named));
    };
    forEachLine(file, take, Keyword);
    return files;
}

std::optional<std::string> endedObj(std::filesystem::path const& file)
{
    std::ifstream stream(file, std::ios::binary);
    char last = '\n';
    if (!stream.seekg(-1, std::ios::end) || !stream.get(last) || last == '\n') return std::nullopt;
    stream.seekg(0);
    std::string text;
    for (std::string line; std::getline(stream, line);) {
        auto const words = wordsOf(line);
        if (words.size() > 1 && words[0] == "mtllib")
            line =
                "mtllib " + MemoryFile::nameOf(pathOf(file.parent_path(), restFrom(line, words[1]))).string();
        text += line + '\n';
    }
    return text;
}

void readObjMaterials(std::filesystem::path const& file, MaterialDetailMap& materials)
{
    MaterialDetails* current = nullptr;
    forEachLine(file, [&](std::string_view line, Words const& words) {
        if (words[0] == "newmtl") current = &materials[std::string(restFrom(line, words[1]))];
        if (!current) return;
        auto const share = [&] {
            auto const number = ParseNumber<double>(words[1]);
            return number ? std::optional(static_cast<float>(std::clamp(*number, 0.0, 1.0))) : std::nullopt;
        };
        if (words[0] == "Pr") current->roughnessShare = share();
        if (words[0] == "Pm") current->metallicShare = share();
        auto const image = std::ranges::find(ImageWords, words[0], &ImageWord::word);
        if (image != std::end(ImageWords))
            if (auto use = imageOf(file.parent_path(), line, words)) current->*image->member = std::move(use);
    });
}
} // namespace NarMetaInfra
