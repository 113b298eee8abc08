#include "PlainGltf.h"

#include "gltf_compression.h"
#include "gltf_nodes.h"

#include <algorithm>
#include <array>

#include <QFile>
#include <QJsonDocument>

namespace NarMetaInfra
{
namespace
{
constexpr int FloatType = 5126, IndexType = 5125;
constexpr qsizetype MostInstances = 1'000'000;
constexpr qsizetype MostAdded = qsizetype{1} << 31; // bytes
constexpr QLatin1String Meshopt("EXT_meshopt_compression");
constexpr QLatin1String Draco("KHR_draco_mesh_compression");
constexpr QLatin1String Quantised("KHR_mesh_quantization");
constexpr QLatin1String Instancing("EXT_mesh_gpu_instancing");

// The attributes of points that a model takes.
struct AttributeKind {
    char const* name;
    int components;
};
constexpr AttributeKind Attributes[] = {{"POSITION", 3}, {"NORMAL", 3}, {"TEXCOORD_0", 2}};
constexpr char const* Types[] = {"", "SCALAR", "VEC2", "VEC3", "VEC4"};

// What the kernel can't read, and the copy does without.
bool isUnpacked(QString const& extension)
{
    return extension == Meshopt || extension == Draco || extension == Quantised || extension == Instancing;
}

bool isHandled(QString const& extension)
{
    return isUnpacked(extension) || extension.startsWith("KHR_materials_") ||
           extension == "KHR_texture_transform";
}

QString nameFromCopy(std::filesystem::path const& file)
{
    return QFile::decodeName(MemoryFile::nameOf(file).c_str());
}

// Changes every primitive of every mesh by `change`, which gives false to leave it out.
template <class Change> void changePrimitives(QJsonObject& document, Change change)
{
    auto meshes = document.value("meshes").toArray();
    for (qsizetype i = 0; i < meshes.size(); ++i) {
        auto mesh = meshes.at(i).toObject();
        QJsonArray kept;
        for (auto const& value : mesh.value("primitives").toArray()) {
            auto primitive = value.toObject();
            if (change(primitive)) kept.append(primitive);
        }
        mesh["primitives"] = kept;
        meshes[i] = mesh;
    }
    document["meshes"] = meshes;
}
} // namespace

PlainGltf::PlainGltf(std::filesystem::path const& file) : File(file), Path(file), Document(File.document())
{
    Refusal = File.promisesTooMuch() ? "it has more numbers than bytes" : refusalOfGltf(Document);
    warnOfExtensions();
    if (!Refusal.empty() || isPlain()) return;
    Buffers = Document.value("buffers").toArray();
    Views = Document.value("bufferViews").toArray();
    Accessors = Document.value("accessors").toArray();
    nameFiles();
    unpackViews();
    unpackMeshes();
    widenNumbers();
    spreadInstances();
    if (Refusal.empty()) writeCopy();
}

bool PlainGltf::isPlain() const
{
    for (auto const& extension : Document.value("extensionsUsed").toArray())
        if (isUnpacked(extension.toString())) return false;
    auto const hasEscape = [](QJsonValue const& entry) {
        auto const name = entry.toObject().value("uri").toString();
        return !name.startsWith("data:") && name.contains('%');
    };
    return std::ranges::none_of(Document.value("buffers").toArray(), hasEscape) &&
           std::ranges::none_of(Document.value("images").toArray(), hasEscape);
}

void PlainGltf::warnOfExtensions()
{
    for (auto const& extension : Document.value("extensionsRequired").toArray())
        if (auto const name = extension.toString(); !isHandled(name))
            Warnings.push_back("the glTF file asks for \"" + name.toStdString() +
                               "\", which is not supported; it may look different");
}

void PlainGltf::nameFiles()
{
    for (qsizetype i = 0; i < Buffers.size(); ++i) {
        auto buffer = Buffers.at(i).toObject();
        auto const name = buffer.value("uri").toString();
        if (auto const file = File.fileOf(name); !file.empty()) buffer["uri"] = nameFromCopy(file);
        if (name.isEmpty() && i == 0 && File.binaryPart() > 0) {
            buffer["uri"] = nameFromCopy(File.path());
            buffer["byteLength"] =
                buffer.value("byteLength").toDouble() + static_cast<double>(File.binaryPart());
        }
        Buffers[i] = buffer;
    }
    auto images = Document.value("images").toArray();
    for (qsizetype i = 0; i < images.size(); ++i) {
        auto image = images.at(i).toObject();
        if (auto const file = File.fileOf(image.value("uri").toString()); !file.empty()) {
            image["uri"] = nameFromCopy(file);
            images[i] = image;
        }
    }
    if (!images.isEmpty()) Document["images"] = images;
    bool const isContained = File.binaryPart() > 0 && !Buffers.isEmpty() &&
                             File.document()["buffers"].toArray().at(0).toObject().value("uri").isUndefined();
    for (qsizetype i = 0; isContained && i < Views.size(); ++i) {
        auto view = Views.at(i).toObject();
        if (view.value("buffer").toInt(-1) != 0) continue;
        view["byteOffset"] = view.value("byteOffset").toDouble() + static_cast<double>(File.binaryPart());
        Views[i] = view;
    }
}

void PlainGltf::unpackViews()
{
    auto const source = File.document()["bufferViews"].toArray();
    for (qsizetype i = 0; i < source.size(); ++i) {
        auto const settings = source.at(i).toObject().value("extensions")[Meshopt].toObject();
        if (settings.isEmpty()) continue;
        auto const made = unpackView(settings, File.bytesOf(settings.value("buffer").toInt(-1),
                                                            settings.value("byteOffset").toInteger(),
                                                            settings.value("byteLength").toInteger(-1)));
        if (!made || made->size() > MostAdded - Added.size()) {
            Refusal = "a compressed part of it is damaged or too large";
            return;
        }
        auto view = Views.at(i).toObject();
        view.remove("extensions");
        view["buffer"] = Buffers.size();
        view["byteOffset"] = Added.size();
        view["byteLength"] = made->size();
        Views[i] = view;
        Added += *made;
        File.setView(static_cast<int>(i), *made);
    }
}

int PlainGltf::addAccessor(char const* bytes, std::size_t size, int componentType, char const* type,
                           std::size_t count)
{
    Views.append(QJsonObject{
        {"buffer", Buffers.size()}, {"byteOffset", Added.size()}, {"byteLength", static_cast<qint64>(size)}});
    Accessors.append(QJsonObject{{"bufferView", Views.size() - 1},
                                 {"componentType", componentType},
                                 {"type", type},
                                 {"count", static_cast<qint64>(count)}});
    Added.append(bytes, static_cast<qsizetype>(size));
    return static_cast<int>(Accessors.size() - 1);
}

int PlainGltf::addFloats(std::vector<float> const& values, int components)
{
    return addAccessor(reinterpret_cast<char const*>(values.data()), values.size() * sizeof(float), FloatType,
                       Types[components], values.size() / static_cast<std::size_t>(components));
}

void PlainGltf::unpackMeshes()
{
    if (!Refusal.empty()) return;
    changePrimitives(Document, [&](QJsonObject& primitive) {
        if (!primitive.value("extensions")[Draco].isObject() || unpackPrimitive(primitive)) return true;
        Refusal = "a compressed mesh of it is damaged";
        return false;
    });
}

bool PlainGltf::unpackPrimitive(QJsonObject& primitive)
{
    auto extensions = primitive.value("extensions").toObject();
    auto const settings = extensions.take(Draco).toObject();
    primitive["extensions"] = extensions;
    std::map<std::string, int> ids;
    for (auto const& kind : Attributes)
        if (auto const id = settings.value("attributes")[QLatin1String(kind.name)]; !id.isUndefined())
            ids[kind.name] = id.toInt(-1);
    auto const mesh = unpackMesh(ids, File.view(settings.value("bufferView").toInt(-1)));
    if (!mesh) return false;
    QJsonObject attributes;
    for (auto const& kind : Attributes) {
        auto const found = mesh->attributes.find(kind.name);
        if (found == mesh->attributes.end()) continue;
        if (found->second.components != kind.components) return false;
        attributes[kind.name] = addFloats(found->second.values, kind.components);
    }
    primitive["attributes"] = attributes;
    primitive["indices"] =
        addAccessor(reinterpret_cast<char const*>(mesh->indices.data()),
                    mesh->indices.size() * sizeof(std::uint32_t), IndexType, "SCALAR", mesh->indices.size());
    primitive["mode"] = 4; // triangles, whatever they stood for when compressed
    return true;
}

void PlainGltf::widenNumbers()
{
    if (!Refusal.empty()) return;
    std::map<int, int> widened;
    auto const source = File.document()["accessors"].toArray();
    changePrimitives(Document, [&](QJsonObject& primitive) {
        auto attributes = primitive.value("attributes").toObject();
        for (auto const& kind : Attributes) {
            auto const number = attributes.value(QLatin1String(kind.name)).toInt(-1);
            if (number < 0 || number >= source.size()) continue;
            if (source.at(number).toObject().value("componentType").toInt() == FloatType) continue;
            auto const [entry, isNew] = widened.try_emplace(number, -1);
            if (isNew) {
                auto const values = File.floatsOf(number, kind.components);
                if (values) entry->second = addFloats(*values, kind.components);
            }
            if (entry->second < 0)
                Refusal = "points of it are missing";
            else
                attributes[kind.name] = entry->second;
        }
        primitive["attributes"] = attributes;
        return true;
    });
}

void PlainGltf::spreadInstances()
{
    if (!Refusal.empty()) return;
    auto nodes = Document.value("nodes").toArray();
    qsizetype const count = nodes.size();
    for (qsizetype i = 0; i < count; ++i) {
        auto node = nodes.at(i).toObject();
        auto const attributes = node.value("extensions")[Instancing]["attributes"].toObject();
        if (attributes.isEmpty() || !node.contains("mesh")) continue;
        struct Part {
            char const* attribute;
            QLatin1String property;
            std::size_t components;
            std::optional<std::vector<float>> values;
        };
        std::array<Part, 3> parts = {{{"TRANSLATION", QLatin1String("translation"), 3, {}},
                                      {"ROTATION", QLatin1String("rotation"), 4, {}},
                                      {"SCALE", QLatin1String("scale"), 3, {}}}};
        std::size_t uses = 0;
        for (auto& part : parts) {
            if (!attributes.contains(part.attribute)) continue;
            part.values = File.floatsOf(attributes.value(QLatin1String(part.attribute)).toInt(-1),
                                        static_cast<int>(part.components));
            if (!part.values) {
                Refusal = "places of instances are missing";
                return;
            }
            auto const own = part.values->size() / part.components;
            uses = uses == 0 ? own : std::min(uses, own);
        }
        if (static_cast<qsizetype>(uses) > MostInstances - nodes.size()) {
            Refusal = "it has more than " + std::to_string(MostInstances) + " instances";
            return;
        }
        auto children = node.value("children").toArray();
        for (std::size_t use = 0; use < uses; ++use) {
            QJsonObject child{{"mesh", node.value("mesh")}};
            if (node.contains("name")) child["name"] = node.value("name");
            for (auto const& part : parts) {
                if (!part.values) continue;
                QJsonArray numbers;
                for (std::size_t k = 0; k < part.components; ++k)
                    numbers.append((*part.values)[use * part.components + k]);
                child[part.property] = numbers;
            }
            children.append(nodes.size());
            nodes.append(child);
        }
        node.remove("mesh");
        node["children"] = children;
        nodes[i] = node;
    }
    Document["nodes"] = nodes;
}

void PlainGltf::writeCopy()
{
    auto const bytesIn = [](QByteArray const& bytes) {
        return std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    };
    AddedFile = std::make_unique<MemoryFile>(bytesIn(Added));
    auto const addedName = nameFromCopy(AddedFile->path());
    for (qsizetype i = 0; i < Buffers.size(); ++i) { // the place of what was compressed has no bytes
        auto buffer = Buffers.at(i).toObject();
        if (buffer.value("uri").isUndefined()) buffer["uri"] = addedName;
        Buffers[i] = buffer;
    }
    if (!Added.isEmpty()) Buffers.append(QJsonObject{{"uri", addedName}, {"byteLength", Added.size()}});
    Document["buffers"] = Buffers;
    Document["bufferViews"] = Views;
    Document["accessors"] = Accessors;
    Document.remove("extensionsRequired");
    Copy = std::make_unique<MemoryFile>(bytesIn(QJsonDocument(Document).toJson(QJsonDocument::Compact)));
    Path = Copy->path();
    if (Path.empty() || AddedFile->path().empty()) Refusal = "there is no memory for its unpacked form";
}
} // namespace NarMetaInfra
