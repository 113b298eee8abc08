#include "packed_model.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <functional>

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

/// Goes through the text of a model once.
class WordScan
{
public:
    explicit WordScan(QByteArray const& text)
    {
        QXmlStreamReader xml(text);
        while (!xml.atEnd()) {
            auto const token = xml.readNext();
            if (token == QXmlStreamReader::StartElement)
                open(xml.name(), xml.attributes());
            else if (token == QXmlStreamReader::EndElement && xml.name() == QLatin1String("object"))
                closeObject();
        }
    }

    PackedModelWords words() { return std::move(Words); }

private:
    using Channels = std::array<unsigned short, 4>;

    void open(QStringView name, QXmlStreamAttributes const& attributes)
    {
        if (name == QLatin1String("triangle")) {
            Colours.push_back(colourOf(attributes));
        } else if (name == QLatin1String("base")) {
            addColour(attributes.value("displaycolor"));
        } else if (name == QLatin1String("color")) {
            addColour(attributes.value("color"));
        } else if (name == QLatin1String("basematerials") || name == QLatin1String("colorgroup")) {
            List = &Lists[attributes.value("id").toString()];
        } else if (name == QLatin1String("model")) {
            Words.millimetres = millimetresIn(attributes.value("unit"));
        } else if (name == QLatin1String("object")) {
            Object = attributes.value("id").toString().toStdString();
            DefaultList = attributes.value("pid").toString();
            DefaultIndex = attributes.value("pindex").toInt();
            Colours.clear();
            if (auto const own = attributes.value("name"); !own.isEmpty())
                Words.names[Object] = own.toString().toStdWString();
        }
    }

    void closeObject()
    {
        bool const differ = std::ranges::adjacent_find(Colours, std::ranges::not_equal_to()) != Colours.end();
        if (differ) Words.colours[Object] = std::move(Colours);
        Colours.clear();
    }

    // "#RRGGBB" or "#RRGGBBAA".
    void addColour(QStringView text)
    {
        if (!List) return;
        Channels channels{255, 255, 255, 255};
        for (qsizetype i = 0; i < 4 && 2 * i + 3 <= text.size(); ++i)
            channels[static_cast<std::size_t>(i)] = text.mid(2 * i + 1, 2).toUShort(nullptr, 16);
        List->push_back(channels);
    }

    // The mean of the corners.
    TriangleColour colourOf(QXmlStreamAttributes const& triangle) const
    {
        auto const own = triangle.value("pid");
        auto const list = Lists.find(own.isEmpty() ? DefaultList : own.toString());
        if (list == Lists.end()) return std::nullopt;
        auto const indexOf = [&](char const* corner, int otherwise) {
            auto const value = triangle.value(QLatin1String(corner));
            return value.isEmpty() ? otherwise : value.toInt();
        };
        auto const first = indexOf("p1", DefaultIndex);
        std::array<unsigned, 4> sum{};
        for (auto const* const corner : {"p1", "p2", "p3"}) {
            auto const index = static_cast<std::size_t>(std::max(indexOf(corner, first), 0));
            if (index >= list->second.size()) return std::nullopt;
            for (std::size_t k = 0; k < 4; ++k) sum[k] += list->second[index][k];
        }
        Channels mean;
        for (std::size_t k = 0; k < 4; ++k) mean[k] = static_cast<unsigned short>(sum[k] / 3);
        return mean;
    }

    PackedModelWords Words;
    std::map<QString, std::vector<Channels>> Lists; // by number
    std::vector<Channels>* List = nullptr;          // that is being read
    std::string Object;
    QString DefaultList;
    int DefaultIndex = 0;
    std::vector<TriangleColour> Colours; // of the object that is being read
};
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
    auto const text = zipEntry(archive, ".model", LargestModel);
    return WordScan(QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size()))).words();
}
} // namespace NarMetaInfra
