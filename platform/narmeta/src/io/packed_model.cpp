#include "packed_model.h"

#include <array>
#include <cstdint>
#include <cstring>

#include <QXmlStreamReader>
#include <zlib.h>

namespace NarMetaInfra
{
namespace
{
constexpr std::size_t LargestModel = std::size_t{1} << 30; // bytes of unpacked text

// Layout of the directory at the end of an archive (ZIP application note, 4.3.12 and 4.3.16).
constexpr std::string_view DirectoryMark = "PK\x01\x02", EndMark = "PK\x05\x06";
constexpr std::size_t DirectoryRecord = 46, EndRecord = 22, LocalRecord = 30;

template <typename Number> Number numberAt(std::string_view bytes, std::size_t at)
{
    Number number = 0;
    if (at + sizeof number <= bytes.size()) std::memcpy(&number, bytes.data() + at, sizeof number);
    return number;
}

std::string inflated(std::string_view packed, std::size_t size)
{
    std::string text(size, '\0');
    z_stream stream{};
    if (inflateInit2(&stream, -MAX_WBITS) != Z_OK) return {};
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
    stream.avail_in = static_cast<uInt>(packed.size());
    stream.next_out = reinterpret_cast<Bytef*>(text.data());
    stream.avail_out = static_cast<uInt>(size);
    auto const status = inflate(&stream, Z_FINISH);
    inflateEnd(&stream);
    return status == Z_STREAM_END && stream.total_out == size ? text : std::string();
}

double millimetresIn(QStringView unit)
{
    static constexpr std::array<std::pair<char const*, double>, 6> Units = {{{"micron", 0.001},
                                                                             {"millimeter", 1.0},
                                                                             {"centimeter", 10.0},
                                                                             {"inch", 25.4},
                                                                             {"foot", 304.8},
                                                                             {"meter", 1000.0}}};
    for (auto const& [name, length] : Units)
        if (unit == QLatin1String(name)) return length;
    return 1.0;
}
} // namespace

std::string zipEntry(std::string_view archive, std::string_view ending, std::size_t limit)
{
    auto const end = archive.rfind(EndMark);
    if (end == archive.npos || end + EndRecord > archive.size()) return {};
    auto const count = numberAt<std::uint16_t>(archive, end + 10);
    std::size_t at = numberAt<std::uint32_t>(archive, end + 16);
    for (unsigned i = 0; i < count; ++i) {
        if (at + DirectoryRecord > archive.size() || archive.substr(at, 4) != DirectoryMark) return {};
        auto const method = numberAt<std::uint16_t>(archive, at + 10);
        std::size_t const packed = numberAt<std::uint32_t>(archive, at + 20);
        std::size_t const size = numberAt<std::uint32_t>(archive, at + 24);
        std::size_t const nameLength = numberAt<std::uint16_t>(archive, at + 28);
        std::size_t const local = numberAt<std::uint32_t>(archive, at + 42);
        auto const name = archive.substr(at + DirectoryRecord, nameLength);
        at += DirectoryRecord + nameLength + numberAt<std::uint16_t>(archive, at + 30) +
              numberAt<std::uint16_t>(archive, at + 32);
        if (!name.ends_with(ending)) continue;
        auto const data = local + LocalRecord + numberAt<std::uint16_t>(archive, local + 26) +
                          numberAt<std::uint16_t>(archive, local + 28);
        if (size > limit || data > archive.size() || packed > archive.size() - data) return {};
        auto const bytes = archive.substr(data, packed);
        constexpr unsigned Stored = 0, Deflated = 8;
        if (method == Stored) return std::string(bytes);
        return method == Deflated ? inflated(bytes, size) : std::string();
    }
    return {};
}

PackedModelWords packedModelWords(std::string_view archive)
{
    PackedModelWords words;
    auto const text = zipEntry(archive, ".model", LargestModel);
    QXmlStreamReader xml(QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size())));
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) continue;
        auto const attributes = xml.attributes();
        if (xml.name() == QLatin1String("model")) {
            words.millimetres = millimetresIn(attributes.value("unit"));
        } else if (xml.name() == QLatin1String("object")) {
            auto const name = attributes.value("name");
            if (!name.isEmpty())
                words.names[attributes.value("id").toString().toStdString()] = name.toString().toStdWString();
        }
    }
    return words;
}
} // namespace NarMetaInfra
