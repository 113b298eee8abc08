#include "file_signature.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <string>

namespace NarMetaInfra
{
namespace
{
constexpr std::string_view Blanks = " \t\r\n\f\v";
constexpr std::size_t StlHeaderLength = 84;
constexpr std::uintmax_t StlTriangleLength = 50;

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
    if (text.starts_with("\r\n")) text.remove_prefix(2);
    else if (!text.empty()) text.remove_prefix(1);
    return line;
}

bool isStep(std::string_view head)
{
    // Some systems write comments in front of the keyword.
    return head.substr(0, 4096).find("ISO-10303-21") != std::string_view::npos;
}

// The first section of an IGES file has 80-column records with the letter S in column 73 and a number behind it.
// A compressed or binary one begins with a flag record, C or B in its place.
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
    return start.starts_with("DBRep_DrawableShape") || start.find("CASCADE Topology V") != std::string_view::npos;
}

bool isGltfText(std::string_view head, std::uintmax_t fileSize)
{
    auto const text = withoutLeadingBlanks(head);
    if (!text.starts_with('{')) return false;
    auto const names = {"\"asset\"", "\"buffers\"", "\"accessors\"", "\"meshes\"", "\"bufferViews\"", "\"nodes\""};
    bool const whole = head.size() == fileSize;
    if (whole) return text.find("\"asset\"") != std::string_view::npos;
    return std::ranges::any_of(names, [&](char const* name) { return text.find(name) != std::string_view::npos; });
}

bool isStlBinary(std::string_view head, std::uintmax_t fileSize)
{
    if (head.size() < StlHeaderLength) return false;
    std::array<std::uint8_t, 4> bytes;
    std::memcpy(bytes.data(), head.data() + 80, bytes.size());
    std::uintmax_t const triangles =
        bytes[0] | (bytes[1] << 8) | (bytes[2] << 16) | (static_cast<std::uintmax_t>(bytes[3]) << 24);
    // Writers append attributes or padding now and then, so up to a header's worth more is accepted.
    auto const expected = StlHeaderLength + triangles * StlTriangleLength;
    return triangles > 0 && fileSize >= expected && fileSize - expected <= StlHeaderLength;
}

bool isStlText(std::string_view head)
{
    auto text = withoutLeadingBlanks(head);
    if (!text.starts_with("solid")) return false;
    takeLine(text);
    text = withoutLeadingBlanks(text);
    return text.starts_with("facet") || text.starts_with("endsolid");
}

// Half of the lines that say something must be of the kinds that an OBJ file has, a vertex or a material file among
// them.
bool isObj(std::string_view head)
{
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

FileFormat recogniseFormat(std::string_view head, std::uintmax_t fileSize)
{
    if (head.starts_with("glTF")) return FileFormat::GltfBinary;
    if (isBrep(head)) return FileFormat::Brep;
    if (isStlText(head)) return FileFormat::StlText;
    if (isStlBinary(head, fileSize)) return FileFormat::StlBinary;
    if (isStep(head)) return FileFormat::Step;
    if (isIges(head)) return FileFormat::Iges;
    if (isGltfText(head, fileSize)) return FileFormat::GltfText;
    if (isObj(head)) return FileFormat::Obj;
    return FileFormat::Unknown;
}

FileFormat recogniseFormat(std::filesystem::path const& file)
{
    std::error_code error;
    auto const size = std::filesystem::file_size(file, error);
    std::ifstream stream(file, std::ios::binary);
    if (error || !stream) return FileFormat::Unknown;
    std::string head(std::min<std::uintmax_t>(size, SignatureLength), '\0');
    stream.read(head.data(), static_cast<std::streamsize>(head.size()));
    head.resize(static_cast<std::size_t>(std::max<std::streamsize>(stream.gcount(), 0)));
    return recogniseFormat(head, size);
}

std::string_view formatName(FileFormat format)
{
    switch (format) {
    case FileFormat::Unknown: return "unknown";
    case FileFormat::Step: return "STEP";
    case FileFormat::Iges: return "IGES";
    case FileFormat::Brep: return "BREP";
    case FileFormat::GltfText:
    case FileFormat::GltfBinary: return "glTF";
    case FileFormat::StlText:
    case FileFormat::StlBinary: return "STL";
    case FileFormat::Obj: return "OBJ";
    }
    return "unknown";
}
} // namespace NarMetaInfra
