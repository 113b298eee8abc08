#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>

#include <filesystem>
#include <map>
#include <optional>
#include <vector>

namespace NarMetaInfra
{
/// A .gltf or .glb file: its structure, and the bytes and numbers that this points to.
class GltfFile
{
public:
    explicit GltfFile(std::filesystem::path path);

    /// Empty if the file can't be read.
    QJsonObject const& document() const { return Document; }
    std::filesystem::path const& path() const { return Path; }
    /// Buffers and images that lie in files of their own, once each.
    std::vector<std::filesystem::path> otherFiles() const;
    /// Where a name in the file points to; empty for data that stands in the name itself.
    std::filesystem::path fileOf(QString const& name) const;
    /// Where the binary part of a .glb file begins; 0 for .gltf.
    qint64 binaryPart() const { return BinaryPart; }

    /// Whether an accessor has more elements than there are bytes for it: the kernel would make room for all.
    bool promisesTooMuch() const;
    /// Bytes of a buffer; empty if they are not all there.
    QByteArray bytesOf(int buffer, qint64 offset, qint64 length) const;
    /// Replaces the bytes of a view, which stand compressed in the file.
    void setView(int view, QByteArray bytes) { Views[view] = std::move(bytes); }
    QByteArray view(int number) const;
    /// Numbers of an accessor, `components` for each of its elements, whole ones as the format has them stand
    /// for shares if it says so; nothing if they are not all there.
    std::optional<std::vector<float>> floatsOf(int accessor, int components) const;

private:
    /// At most so many bytes; nothing if the buffer's file can't be found.
    std::optional<qint64> sizeOf(QString const& bufferName) const;

    std::filesystem::path Path;
    QJsonObject Document;
    qint64 BinaryPart = 0;
    QJsonArray Buffers, BufferViews, Accessors;
    std::map<int, QByteArray> Views;
    mutable std::map<int, QByteArray> Inline; // buffers that stand in the structure
};
} // namespace NarMetaInfra
