#include "file_signature.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace NarMetaInfra
{
namespace
{
constexpr std::string_view Blanks = " \t\r\n\f\v";
constexpr std::size_t StlHeaderLength = 84;
constexpr std::size_t StlTriangleLength = 50;

std::string_view withoutLeadingBlanks(std::string_view text)
{
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
    auto const first = text.find_first_not_of(Blanks);
    return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

std::string_view takeLine(std::string_view& text)
{
    auto const end = std::min(text.find_first_of("\r\n"), text.size());
    auto const line = text.substr(0, end);
    text.remove_prefix(end);
    if (text.starts_with("\r\n"))
        text.remove_prefix(2);
    else if (!text.empty())
        text.remove_prefix(1);
    return line;
}

bool isStep(std::string_view head)
{
    // Some systems write comments in front of the keyword.
    return head.substr(0, 4096).find("ISO-10303-21") != std::string_view::npos;
}

// The first section of an IGES file has 80-column records with the letter S in column 73 and a number behind
// it. A compressed or binary one begins with a flag record, C or B in its place.
bool isIges(std::string_view head)
{
    auto const record = takeLine(head);
    if (record.size() < 80) return false;
    auto const number = record.substr(73, 7);
    bool const counted = number.find('1') != std::string_view::npos &&
                         number.find_first_not_of(" 01") == std::string_view::npos;
    return record[72] == 'S' && counted;
}

bool isBrep(std::string_view head)
{
    auto const start = withoutLeadingBlanks(head).substr(0, 256);
    return start.starts_with("DBRep_DrawableShape") ||
           start.find("CASCADE Topology V") != std::string_view::npos;
}

bool isGltfText(std::string_view head, bool wholeFile)
{
    auto const text = withoutLeadingBlanks(head);
    if (!text.starts_with('{')) return false;
    if (text.find("\"asset\"") != std::string_view::npos) return true;
    // The asset may stand behind what the head shows, but then one of the big arrays has begun.
    auto const names = {"\"buffers\"", "\"accessors\"", "\"meshes\"", "\"bufferViews\"", "\"nodes\""};
    return !wholeFile && std::ranges::any_of(names, [&](char const* name) {
        return text.find(name) != std::string_view::npos;
    });
}

template <typename Value> Value littleEndian(char const* bytes)
{
    static_assert(std::endian::native == std::endian::little);
    Value value;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

// The format has no mark, so what should be triangles must look like triangles: a count that suits the size,
// normals of length one or zero, and ordinary numbers.
bool isStlBinary(std::string_view head, bool wholeFile)
{
    if (head.size() < StlHeaderLength + StlTriangleLength) return false;
    auto const count = littleEndian<std::uint32_t>(head.data() + 80);
    auto const shown = (head.size() - StlHeaderLength) / StlTriangleLength;
    if (count == 0 || (wholeFile ? count > shown : count < shown)) return false;
    for (std::size_t i = 0; i < std::min<std::size_t>(shown, count); ++i) {
        std::array<float, 12> numbers;
        std::memcpy(numbers.data(), head.data() + StlHeaderLength + i * StlTriangleLength, sizeof numbers);
        bool const ordinary = std::ranges::all_of(
            numbers, [](float x) { return x == 0.0f || (std::abs(x) > 1e-30f && std::abs(x) < 1e30f); });
        auto const length = std::hypot(numbers[0], numbers[1], numbers[2]);
        if (!ordinary || (length > 1e-6f && std::abs(length - 1.0f) > 0.1f)) return false;
    }
    return true;
}

bool isStlText(std::string_view head)
{
    auto text = withoutLeadingBlanks(head);
    if (!text.starts_with("solid")) return false;
    takeLine(text);
    text = withoutLeadingBlanks(text);
    return text.starts_with("facet") || text.starts_with("endsolid");
}

// Half of the lines that say something must be of the kinds that an OBJ file has, a vertex or a material file
// among them.
bool isObj(std::string_view head, bool wholeFile)
{
    if (!wholeFile) head = head.substr(0, head.find_last_of("\r\n")); // the last line may be cut
    if (head.find('\0') != std::string_view::npos) return false;
    std::size_t known = 0, other = 0;
    bool telling = false;
    while (!head.empty()) {
        auto line = withoutLeadingBlanks(takeLine(head));
        if (line.empty() || line.starts_with('#')) continue;
        auto const word = line.substr(0, line.find_first_of(Blanks));
        static constexpr std::array<std::string_view, 13> Words = {
            "v", "vn", "vt", "vp", "f", "l", "p", "o", "g", "s", "mtllib", "usemtl", "usemap"};
        bool const isKnown = word.size() < line.size() && std::ranges::find(Words, word) != Words.end();
        ++(isKnown ? known : other);
        telling |= isKnown && (word == "v" || word == "f" || word == "mtllib");
    }
    return telling && known > other;
}
} // namespace

ModelFormat recogniseFormat(std::string_view head, bool wholeFile)
{
    if (head.starts_with("glTF")) return ModelFormat::Gltf;
    // The first version of the format has another syntax, which nobody here reads.
    if (head.starts_with("#VRML V2.0")) return ModelFormat::Vrml;
    if (isBrep(head)) return ModelFormat::Brep;
    if (isStlText(head)) return ModelFormat::Stl;
    if (isStep(head)) return ModelFormat::Step;
    if (isIges(head)) return ModelFormat::Iges;
    if (isGltfText(head, wholeFile)) return ModelFormat::Gltf; // its characters may be good numbers, too
    if (isStlBinary(head, wholeFile)) return ModelFormat::Stl;
    if (isObj(head, wholeFile)) return ModelFormat::Obj;
    return ModelFormat::Unknown;
}
} // namespace NarMetaInfra
