#include "gltf_compression.h"

#include <algorithm>

#include <draco/compression/decode.h>
#include <meshoptimizer.h>

namespace NarMetaInfra
{
namespace
{
constexpr std::size_t LargestView = std::size_t{1} << 31;
constexpr std::size_t MostGain = 64; // bytes for a packed one: two bits may stand for sixteen of them

bool isFiltered(QString const& filter, QByteArray& bytes, std::size_t count, std::size_t stride)
{
    if (filter.isEmpty() || filter == "NONE") return true;
    if (filter == "OCTAHEDRAL" && (stride == 4 || stride == 8))
        meshopt_decodeFilterOct(bytes.data(), count, stride);
    else if (filter == "QUATERNION" && stride == 8)
        meshopt_decodeFilterQuat(bytes.data(), count, stride);
    else if (filter == "EXPONENTIAL" && stride % 4 == 0)
        meshopt_decodeFilterExp(bytes.data(), count, stride);
    else
        return false;
    return true;
}
} // namespace

std::optional<QByteArray> unpackView(QJsonObject const& settings, QByteArray const& bytes)
{
    auto const count = static_cast<std::size_t>(
        std::clamp(settings["count"].toDouble(), 0.0, static_cast<double>(LargestView)));
    auto const stride = static_cast<std::size_t>(std::max(settings["byteStride"].toInt(), 0));
    auto const mode = settings["mode"].toString();
    bool const isPoints = mode == "ATTRIBUTES";
    bool const isStride =
        isPoints ? stride % 4 == 0 && stride >= 4 && stride <= 256 : stride == 2 || stride == 4;
    if (count == 0 || !isStride || count > LargestView / stride) return std::nullopt;
    auto const size = static_cast<std::size_t>(bytes.size());
    if (count * stride / MostGain > size) return std::nullopt;
    QByteArray made(static_cast<qsizetype>(count * stride), '\0');
    auto const* const source = reinterpret_cast<unsigned char const*>(bytes.constData());
    int failure = -1;
    if (isPoints)
        failure = meshopt_decodeVertexBuffer(made.data(), count, stride, source, size);
    else if (mode == "TRIANGLES" && count % 3 == 0)
        failure = meshopt_decodeIndexBuffer(made.data(), count, stride, source, size);
    else if (mode == "INDICES")
        failure = meshopt_decodeIndexSequence(made.data(), count, stride, source, size);
    if (failure || !isFiltered(isPoints ? settings["filter"].toString() : QString(), made, count, stride))
        return std::nullopt;
    return made;
}

std::optional<UnpackedMesh> unpackMesh(std::map<std::string, int> const& ids, QByteArray const& bytes)
{
    draco::DecoderBuffer buffer;
    buffer.Init(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    auto decoded = draco::Decoder().DecodeMeshFromBuffer(&buffer);
    if (!decoded.ok()) return std::nullopt;
    auto const& mesh = *decoded.value();
    UnpackedMesh made;
    made.pointCount = mesh.num_points();
    for (auto const& [name, id] : ids) {
        auto const* const source = id < 0 ? nullptr : mesh.GetAttributeByUniqueId(static_cast<unsigned>(id));
        if (!source) return std::nullopt;
        auto& attribute = made.attributes[name];
        attribute.components = source->num_components();
        attribute.values.resize(made.pointCount * source->num_components());
        for (std::size_t i = 0; i < made.pointCount; ++i) {
            auto const place = source->mapped_index(draco::PointIndex(static_cast<unsigned>(i)));
            auto* const values = attribute.values.data() + i * source->num_components();
            if (!source->ConvertValue<float>(place, source->num_components(), values)) return std::nullopt;
        }
    }
    made.indices.reserve(std::size_t{3} * mesh.num_faces());
    for (unsigned i = 0; i < mesh.num_faces(); ++i)
        for (auto const& point : mesh.face(draco::FaceIndex(i))) made.indices.push_back(point.value());
    return made;
}
} // namespace NarMetaInfra
