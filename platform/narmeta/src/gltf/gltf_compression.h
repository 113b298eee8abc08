#pragma once

#include <QByteArray>
#include <QJsonObject>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace NarMetaInfra
{
/// What stands uncompressed in the place of a compressed view.
/// @p settings: of the extension "EXT_meshopt_compression". Nothing if the bytes are damaged.
std::optional<QByteArray> unpackView(QJsonObject const& settings, QByteArray const& bytes);

/// A mesh of the extension "KHR_draco_mesh_compression".
struct UnpackedMesh {
    struct Attribute {
        int components = 0;
        std::vector<float> values;
    };
    std::size_t pointCount = 0;
    std::map<std::string, Attribute> attributes; ///< by the names of the format
    std::vector<std::uint32_t> indices;
};
/// @p ids: of the mesh's attributes, by the names of the format. Nothing if the bytes are damaged.
std::optional<UnpackedMesh> unpackMesh(std::map<std::string, int> const& ids, QByteArray const& bytes);
} // namespace NarMetaInfra
