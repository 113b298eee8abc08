#pragma once

#include "GltfFile.h"
#include "MemoryFile.h"

#include <memory>
#include <string>

namespace NarMetaInfra
{
/// A glTF file in a form that the modelling kernel reads: no compressed meshes, no numbers in few bits, a
/// node for each use of an instanced mesh, other files under names without escapes. Where the file has none
/// of that it stands for itself, else for a copy in memory that lives as long as this object.
class PlainGltf
{
public:
    explicit PlainGltf(std::filesystem::path const& file);

    /// Why the file can't be shown, in words for the user; empty if it can.
    std::string const& refusal() const { return Refusal; }
    /// What does not keep it from being shown.
    std::vector<std::string> const& warnings() const { return Warnings; }
    /// To be opened by the kernel.
    std::filesystem::path const& path() const { return Path; }
    QJsonObject const& document() const { return Document; }
    std::vector<std::filesystem::path> otherFiles() const { return File.otherFiles(); }

private:
    bool isPlain() const;
    void warnOfExtensions();
    void unpackViews();
    void unpackMeshes();
    void widenNumbers();
    void spreadInstances();
    bool unpackPrimitive(QJsonObject& primitive);
    void nameFiles();
    void writeCopy();
    int addFloats(std::vector<float> const& values, int components);
    int addAccessor(char const* bytes, std::size_t size, int componentType, char const* type,
                    std::size_t count);

    GltfFile File;
    std::filesystem::path Path;
    QJsonObject Document;
    QJsonArray Buffers, Views, Accessors;
    QByteArray Added; ///< the bytes of a buffer behind the file's own
    std::string Refusal;
    std::vector<std::string> Warnings;
    std::unique_ptr<MemoryFile> AddedFile, Copy;
};
} // namespace NarMetaInfra
