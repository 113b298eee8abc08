#include "GltfFile.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include <QFile>
#include <QJsonDocument>
#include <QUrl>
#include <QtEndian>

namespace NarMetaInfra
{
namespace
{
constexpr qint64 LargestRead = qint64{1} << 31;

/// A component type of the format: its size, and what turns it into the number it stands for.
struct Component {
    int code;
    qint64 size;
    float (*read)(char const*);
    float largest; ///< of a type that may stand for shares of one
};

template <class Number> float readNumber(char const* bytes)
{
    Number number;
    std::memcpy(&number, bytes, sizeof number);
    return static_cast<float>(number);
}

template <class Number> constexpr Component component(int code)
{
    return {code, sizeof(Number), readNumber<Number>,
            std::is_integral_v<Number> ? static_cast<float>(std::numeric_limits<Number>::max()) : 1.0f};
}

constexpr Component Components[] = {component<std::int8_t>(5120),   component<std::uint8_t>(5121),
                                    component<std::int16_t>(5122),  component<std::uint16_t>(5123),
                                    component<std::uint32_t>(5125), component<float>(5126)};

qint64 wholeNumber(QJsonValue const& value, qint64 otherwise = 0)
{
    auto const number = value.toDouble(static_cast<double>(otherwise));
    return number >= 0 && number <= 9e15 ? static_cast<qint64>(number) : -1;
}
} // namespace

GltfFile::GltfFile(std::filesystem::path path) : Path(std::move(path))
{
    QFile file(QFile::decodeName(Path.c_str()));
    if (!file.open(QIODevice::ReadOnly)) return;
    constexpr qint64 HeaderLength = 20; // of the container and of its first chunk
    constexpr qint64 ChunkHeaderLength = 8;
    auto const start = file.peek(HeaderLength);
    QByteArray text;
    if (!start.startsWith("glTF")) {
        text = file.readAll();
    } else if (start.size() == HeaderLength) {
        auto const length = qFromLittleEndian<quint32>(start.constData() + 12);
        file.skip(HeaderLength);
        text = file.read(std::min<qint64>(length, file.size()));
        BinaryPart = HeaderLength + length + ChunkHeaderLength;
    }
    Document = QJsonDocument::fromJson(text).object();
    Buffers = Document["buffers"].toArray();
    BufferViews = Document["bufferViews"].toArray();
    Accessors = Document["accessors"].toArray();
}

std::filesystem::path GltfFile::fileOf(QString const& name) const
{
    if (name.isEmpty() || name.startsWith("data:")) return {};
    return Path.parent_path() / QFile::encodeName(QUrl::fromPercentEncoding(name.toUtf8())).toStdString();
}

std::vector<std::filesystem::path> GltfFile::otherFiles() const
{
    std::vector<std::filesystem::path> files;
    for (auto const* const list : {"buffers", "images"}) {
        for (auto const& entry : Document[QLatin1String(list)].toArray()) {
            auto file = fileOf(entry.toObject()["uri"].toString());
            if (!file.empty()) files.push_back(std::move(file));
        }
    }
    std::ranges::sort(files);
    files.erase(std::ranges::unique(files).begin(), files.end());
    return files;
}

std::optional<qint64> GltfFile::sizeOf(QString const& bufferName) const
{
    if (bufferName.startsWith("data:")) return bufferName.size();
    QFile const file(QFile::decodeName((bufferName.isEmpty() ? Path : fileOf(bufferName)).c_str()));
    return file.exists() ? std::optional(file.size()) : std::nullopt;
}

bool GltfFile::promisesTooMuch() const
{
    std::vector<std::optional<qint64>> sizes;
    for (auto const& buffer : Buffers) sizes.push_back(sizeOf(buffer.toObject()["uri"].toString()));
    return std::ranges::any_of(Accessors, [&](QJsonValue const& accessor) {
        auto const number = accessor["bufferView"].toInt(-1);
        if (number < 0 || number >= BufferViews.size()) return false;
        auto const view = BufferViews.at(number).toObject();
        QJsonValue const packed = view["extensions"].toObject()["EXT_meshopt_compression"];
        auto const buffer = static_cast<std::size_t>(view["buffer"].toInt(-1));
        if (!packed.isObject() && (buffer >= sizes.size() || !sizes[buffer])) return false;
        auto const most = packed.isObject() ? packed["count"].toDouble() * packed["byteStride"].toDouble()
                                            : static_cast<double>(*sizes[buffer]);
        return accessor["count"].toDouble() > most;
    });
}

QByteArray GltfFile::bytesOf(int buffer, qint64 offset, qint64 length) const
{
    if (buffer < 0 || buffer >= Buffers.size() || offset < 0 || length < 0 || length > LargestRead) return {};
    auto const name = Buffers.at(buffer).toObject()["uri"].toString();
    if (name.startsWith("data:")) {
        auto& bytes = Inline[buffer];
        if (bytes.isEmpty()) bytes = QByteArray::fromBase64(name.mid(name.indexOf(',') + 1).toLatin1());
        return offset <= bytes.size() - length ? bytes.mid(offset, length) : QByteArray();
    }
    if (name.isEmpty() && BinaryPart == 0) return {};
    QFile file(QFile::decodeName((name.isEmpty() ? Path : fileOf(name)).c_str()));
    if (!file.open(QIODevice::ReadOnly)) return {};
    auto const start = name.isEmpty() ? BinaryPart : 0;
    if (offset > file.size() - start - length || !file.seek(start + offset)) return {};
    auto bytes = file.read(length);
    return bytes.size() == length ? bytes : QByteArray();
}

QByteArray GltfFile::view(int number) const
{
    if (auto const known = Views.find(number); known != Views.end()) return known->second;
    if (number < 0 || number >= BufferViews.size()) return {};
    auto const view = BufferViews.at(number).toObject();
    return bytesOf(view["buffer"].toInt(-1), wholeNumber(view["byteOffset"]),
                   wholeNumber(view["byteLength"], -1));
}

std::optional<std::vector<float>> GltfFile::floatsOf(int number, int components) const
{
    if (number < 0 || number >= Accessors.size()) return std::nullopt;
    auto const accessor = Accessors.at(number).toObject();
    auto const type = std::ranges::find(Components, accessor["componentType"].toInt(), &Component::code);
    auto const viewNumber = accessor["bufferView"].toInt(-1);
    if (type == std::end(Components) || viewNumber < 0 || viewNumber >= BufferViews.size())
        return std::nullopt;
    auto const bytes = view(viewNumber);
    auto const own = components * type->size;
    auto const stride = wholeNumber(BufferViews.at(viewNumber).toObject()["byteStride"], own);
    auto const offset = wholeNumber(accessor["byteOffset"]);
    auto const count = wholeNumber(accessor["count"], -1);
    if (count < 1 || stride < own || stride > 252 || offset < 0 || offset > bytes.size() - own ||
        count - 1 > (bytes.size() - own - offset) / stride)
        return std::nullopt;
    bool const isShare = accessor["normalized"].toBool();
    std::vector<float> numbers;
    numbers.reserve(static_cast<std::size_t>(count * components));
    for (qint64 i = 0; i < count; ++i) {
        auto const* const element = bytes.constData() + offset + i * stride;
        for (int k = 0; k < components; ++k) {
            auto const value = type->read(element + k * type->size);
            numbers.push_back(isShare ? std::max(value / type->largest, -1.0f) : value);
        }
    }
    return numbers;
}
} // namespace NarMetaInfra
