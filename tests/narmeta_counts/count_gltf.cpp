#include "file_counts.h"

#include <cstdint>
#include <cstring>
#include <fstream>
#include <iterator>
#include <set>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace
{
// Anywhere below the material an object is named for a texture.
bool hasTexture(QJsonObject const& object)
{
    for (auto const& key : object.keys()) {
        if (key.endsWith("Texture")) return true;
        if (object[key].isObject() && hasTexture(object[key].toObject())) return true;
    }
    return false;
}
} // namespace

Counts countGltf(std::string const& text)
{
    Counts counts;
    auto const root = QJsonDocument::fromJson(QByteArray::fromStdString(text)).object();
    std::set<int> used;
    for (auto const& node : root["nodes"].toArray()) {
        auto const object = node.toObject();
        if (!object.contains("mesh")) continue;
        ++counts["instances"];
        used.insert(object["mesh"].toInt());
    }
    counts["references"] = static_cast<int>(used.size());
    auto const meshes = root["meshes"].toArray();
    for (int const mesh : used)
        counts["faces"] += static_cast<int>(meshes.at(mesh).toObject()["primitives"].toArray().size());
    for (auto const& material : root["materials"].toArray())
        if (hasTexture(material.toObject())) ++counts["textured materials"];
    return counts;
}

std::string bytesOfFile(std::filesystem::path const& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

Counts countFile(std::filesystem::path const& file)
{
    auto const text = bytesOfFile(file);
    if (text.starts_with("glTF") && text.size() > 20) {
        std::uint32_t length = 0;
        std::memcpy(&length, text.data() + 12, sizeof length);
        return countGltf(text.substr(20, length));
    }
    if (file.extension() == ".gltf") return countGltf(text);
    if (text.starts_with("ISO-10303-21")) return countStep(text, file.parent_path());
    if (text.size() > 80 && text[72] == 'S') return countIges(text);
    if (text.starts_with("DBRep_DrawableShape")) return countBrep(text);
    if (file.extension() == ".obj") return countObj(text, file.parent_path());
    if (file.extension() == ".stl" && text.size() > 84) return countStl(text);
    return {};
}
