// glTF files whose meshes are compressed, quantised or instanced, or lie beside them under escaped names:
// each gives the model of the plain file.
#include "read_support.h"

#include <array>
#include <cmath>
#include <cstring>
#include <functional>
#include <random>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <draco/compression/encode.h>
#include <draco/mesh/triangle_soup_mesh_builder.h>
#include <meshoptimizer.h>

using namespace ReadSupport;

namespace
{
constexpr int Cells = 8;
constexpr int Float = 5126, Short = 5122, UnsignedInt = 5125;

struct Grid {
    std::vector<std::array<float, 3>> points;
    std::vector<std::uint32_t> indices;
};

// A square of one metre with a bend, so that a lost sign or axis shows.
Grid grid()
{
    Grid made;
    for (int row = 0; row <= Cells; ++row)
        for (int column = 0; column <= Cells; ++column) {
            float const x = static_cast<float>(column) / Cells, y = static_cast<float>(row) / Cells;
            made.points.push_back({x, y, 0.5f * x * x});
        }
    for (unsigned row = 0; row < Cells; ++row)
        for (unsigned column = 0; column < Cells; ++column) {
            unsigned const a = row * (Cells + 1) + column, b = a + Cells + 1;
            for (auto const index : {a, a + 1, b, a + 1, b + 1, b}) made.indices.push_back(index);
        }
    return made;
}

/// A file in the making: the structure, and the bytes of its one buffer.
struct File {
    QJsonObject json;
    std::string bytes;

    /// Appends bytes as a view, and gives its number.
    int view(void const* data, std::size_t size, QJsonObject extra = {})
    {
        bytes.resize((bytes.size() + 3) / 4 * 4);
        extra["buffer"] = 0;
        extra["byteOffset"] = static_cast<qint64>(bytes.size());
        extra["byteLength"] = static_cast<qint64>(size);
        bytes.append(static_cast<char const*>(data), size);
        return append("bufferViews", extra);
    }
    int accessor(int viewNumber, int type, char const* shape, std::size_t count, QJsonObject extra = {})
    {
        if (viewNumber >= 0) extra["bufferView"] = viewNumber;
        extra["componentType"] = type;
        extra["type"] = shape;
        extra["count"] = static_cast<qint64>(count);
        return append("accessors", extra);
    }
    int append(char const* list, QJsonObject const& entry)
    {
        auto entries = json[QLatin1String(list)].toArray();
        entries.append(entry);
        json[QLatin1String(list)] = entries;
        return static_cast<int>(entries.size() - 1);
    }
    void mesh(int position, int indices, QJsonObject extra = {})
    {
        extra["attributes"] = QJsonObject{{"POSITION", position}};
        extra["indices"] = indices;
        append("meshes", {{"primitives", QJsonArray{extra}}});
    }
    void use(char const* extension)
    {
        json["extensionsUsed"] = QJsonArray{extension};
        json["extensionsRequired"] = QJsonArray{extension};
    }
    void node(QJsonObject const& node)
    {
        append("nodes", node);
        json["asset"] = QJsonObject{{"version", "2.0"}};
        json["scene"] = 0;
        json["scenes"] = QJsonArray{QJsonObject{{"nodes", QJsonArray{0}}}};
    }

    std::filesystem::path writeBeside(TemporaryFolder const& folder, char const* name, char const* uri)
    {
        folder.write(name, bytes);
        json["buffers"] =
            QJsonArray{QJsonObject{{"byteLength", static_cast<qint64>(bytes.size())}, {"uri", uri}}};
        return folder.write("model.gltf", QJsonDocument(json).toJson().toStdString());
    }
    std::filesystem::path writeInside(TemporaryFolder const& folder)
    {
        json["buffers"] = QJsonArray{QJsonObject{{"byteLength", static_cast<qint64>(bytes.size())}}};
        auto text = QJsonDocument(json).toJson(QJsonDocument::Compact).toStdString();
        text.resize((text.size() + 3) / 4 * 4, ' ');
        bytes.resize((bytes.size() + 3) / 4 * 4);
        std::string whole = "glTF";
        auto const number = [&](std::size_t value) {
            auto const word = static_cast<std::uint32_t>(value);
            whole.append(reinterpret_cast<char const*>(&word), 4);
        };
        number(2);
        number(28 + text.size() + bytes.size());
        number(text.size());
        whole += "JSON" + text;
        number(bytes.size());
        whole.append("BIN\0", 4);
        return folder.write("model.glb", whole + bytes);
    }
};

void plain(File& file)
{
    auto const shape = grid();
    auto const points = file.view(shape.points.data(), 12 * shape.points.size());
    auto const indices = file.view(shape.indices.data(), 4 * shape.indices.size());
    auto const position = file.accessor(points, Float, "VEC3", shape.points.size());
    file.mesh(position, file.accessor(indices, UnsignedInt, "SCALAR", shape.indices.size()));
    file.node({{"mesh", 0}, {"name", "grid"}});
}

// The numbers of a quantised point stand four bytes aligned, its scale in the node.
void quantised(File& file)
{
    auto const shape = grid();
    std::vector<std::array<std::int16_t, 4>> points;
    for (auto const& [x, y, z] : shape.points)
        points.push_back({static_cast<std::int16_t>(std::lround(x * 1024)),
                          static_cast<std::int16_t>(std::lround(y * 1024)),
                          static_cast<std::int16_t>(std::lround(z * 1024)), 0});
    auto const view = file.view(points.data(), 8 * points.size(), {{"byteStride", 8}});
    auto const indices = file.view(shape.indices.data(), 4 * shape.indices.size());
    auto const position = file.accessor(view, Short, "VEC3", points.size());
    file.mesh(position, file.accessor(indices, UnsignedInt, "SCALAR", shape.indices.size()));
    auto const scale = 1.0 / 1024;
    file.node({{"mesh", 0}, {"name", "grid"}, {"scale", QJsonArray{scale, scale, scale}}});
    file.use("KHR_mesh_quantization");
}

void meshoptPacked(File& file)
{
    auto const shape = grid();
    auto const pack = [&](std::vector<unsigned char> const& packed, std::size_t count, std::size_t stride,
                          char const* mode) {
        auto const number = file.view(packed.data(), packed.size());
        auto views = file.json["bufferViews"].toArray();
        auto view = views.at(number).toObject();
        QJsonObject settings = view;
        settings["byteStride"] = static_cast<qint64>(stride);
        settings["count"] = static_cast<qint64>(count);
        settings["mode"] = mode;
        view["byteLength"] = static_cast<qint64>(count * stride);
        view["extensions"] = QJsonObject{{"EXT_meshopt_compression", settings}};
        views[number] = view;
        file.json["bufferViews"] = views;
        return number;
    };
    auto const pointCount = shape.points.size(), indexCount = shape.indices.size();
    std::vector<unsigned char> packed(meshopt_encodeVertexBufferBound(pointCount, 12));
    meshopt_encodeVertexVersion(0);
    packed.resize(
        meshopt_encodeVertexBuffer(packed.data(), packed.size(), shape.points.data(), pointCount, 12));
    auto const points = pack(packed, pointCount, 12, "ATTRIBUTES");
    packed.resize(meshopt_encodeIndexBufferBound(indexCount, pointCount));
    packed.resize(meshopt_encodeIndexBuffer(packed.data(), packed.size(), shape.indices.data(), indexCount));
    auto const indices = pack(packed, indexCount, 4, "TRIANGLES");
    auto const position = file.accessor(points, Float, "VEC3", pointCount);
    file.mesh(position, file.accessor(indices, UnsignedInt, "SCALAR", indexCount));
    file.node({{"mesh", 0}, {"name", "grid"}});
    file.use("EXT_meshopt_compression");
}

void dracoPacked(File& file)
{
    auto const shape = grid();
    ::draco::TriangleSoupMeshBuilder builder;
    builder.Start(static_cast<int>(shape.indices.size() / 3));
    auto const id = builder.AddAttribute(::draco::GeometryAttribute::POSITION, 3, ::draco::DT_FLOAT32);
    for (std::size_t i = 0; i < shape.indices.size(); i += 3)
        builder.SetAttributeValuesForFace(
            id, ::draco::FaceIndex(static_cast<unsigned>(i / 3)), shape.points[shape.indices[i]].data(),
            shape.points[shape.indices[i + 1]].data(), shape.points[shape.indices[i + 2]].data());
    auto const mesh = builder.Finalize();
    ::draco::Encoder encoder;
    encoder.SetAttributeQuantization(::draco::GeometryAttribute::POSITION, 16);
    ::draco::EncoderBuffer packed;
    ASSERT_TRUE(encoder.EncodeMeshToBuffer(*mesh, &packed).ok());
    auto const view = file.view(packed.data(), packed.size());
    auto const position = file.accessor(-1, Float, "VEC3", mesh->num_points());
    auto const unique = static_cast<int>(mesh->attribute(id)->unique_id());
    QJsonObject const settings{{"bufferView", view}, {"attributes", QJsonObject{{"POSITION", unique}}}};
    file.mesh(position, file.accessor(-1, UnsignedInt, "SCALAR", shape.indices.size()),
              {{"extensions", QJsonObject{{"KHR_draco_mesh_compression", settings}}}});
    file.node({{"mesh", 0}, {"name", "grid"}});
    file.use("KHR_draco_mesh_compression");
}

constexpr int Uses = 3;

void instanced(File& file)
{
    plain(file);
    float const places[Uses][3] = {{0, 0, 0}, {2, 0, 0}, {4, 1, 0}};
    float const turn = std::sqrt(0.5f);
    float const turns[Uses][4] = {{0, 0, 0, 1}, {0, 0, turn, turn}, {0, 0, 0, 1}};
    auto const place = file.accessor(file.view(places, sizeof places), Float, "VEC3", Uses);
    auto const rotation = file.accessor(file.view(turns, sizeof turns), Float, "VEC4", Uses);
    QJsonObject const attributes{{"TRANSLATION", place}, {"ROTATION", rotation}};
    QJsonObject const settings{{"attributes", attributes}};
    file.json["nodes"] = QJsonArray();
    file.node(
        {{"mesh", 0}, {"name", "grid"}, {"extensions", QJsonObject{{"EXT_mesh_gpu_instancing", settings}}}});
    file.use("EXT_mesh_gpu_instancing");
}

struct Figures {
    std::size_t triangles = 0;
    std::array<double, 3> least{1e9, 1e9, 1e9}, most{-1e9, -1e9, -1e9};
    double area = 0;
};

// In millimetres, with the matrix of the only instance of each mesh left out.
Figures figuresOf(ZELProductStructure const& model)
{
    Figures figures;
    for (auto const& mesh : meshesOf(model))
        for (auto const& face : mesh->GetFaces())
            for (auto const& polygon : face->GetPolygons()) {
                auto const& indices = polygon.GetIndices();
                auto const point = [&](std::size_t i, std::size_t k) {
                    return double(face->GetPoints()[static_cast<std::size_t>(indices[i]) + k]);
                };
                for (std::size_t i = 0; i < indices.size(); i += 3, ++figures.triangles) {
                    double a[3], b[3];
                    for (std::size_t k = 0; k < 3; ++k) {
                        a[k] = point(i + 1, k) - point(i, k);
                        b[k] = point(i + 2, k) - point(i, k);
                        for (std::size_t corner = i; corner < i + 3; ++corner) {
                            figures.least[k] = std::min(figures.least[k], point(corner, k));
                            figures.most[k] = std::max(figures.most[k], point(corner, k));
                        }
                    }
                    figures.area += 0.5 * std::hypot(a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2],
                                                     a[0] * b[1] - a[1] * b[0]);
                }
            }
    return figures;
}

struct Kind {
    char const* name;
    void (*make)(File&);
    double scale = 1.0;     ///< of the mesh's own numbers
    std::size_t places = 1; ///< of the mesh
};

void PrintTo(Kind const& kind, std::ostream* stream)
{
    *stream << kind.name;
}

class PackedGltfTest : public testing::TestWithParam<Kind>
{
};

void expectGrid(std::filesystem::path const& path, Kind const& kind)
{
    SCOPED_TRACE(path);
    auto const read = ReadSupport::read(path);
    ASSERT_EQ(read->result.outcome, IoOutcome::Done) << std::filesystem::path(read->result.error);
    EXPECT_TRUE(read->result.warnings.empty());
    auto const figures = figuresOf(read->model);
    EXPECT_EQ(figures.triangles, 2u * Cells * Cells);
    double const metre = 1000.0 * kind.scale;
    std::array<double, 3> const least{0, -0.5, 0}, most{1, 0, 1}; // y of the file is z of the model
    for (std::size_t k = 0; k < 3; ++k) {
        EXPECT_NEAR(figures.least[k], metre * least[k], 1e-4 * metre) << k;
        EXPECT_NEAR(figures.most[k], metre * most[k], 1e-4 * metre) << k;
    }
    EXPECT_NEAR(figures.area / metre / metre, 1.14733, 1e-3);
    EXPECT_EQ(meshesOf(read->model).size(), 1u);
    std::size_t places = 0;
    for (auto const& reference : read->model.GetReferences())
        if (reference->IsPart()) places += read->model.GetOccurrencesCount(*reference);
    EXPECT_EQ(places, kind.places);
}
} // namespace

TEST_P(PackedGltfTest, GivesThePlainModel)
{
    TemporaryFolder const folder;
    File beside, inside;
    GetParam().make(beside);
    GetParam().make(inside);
    expectGrid(beside.writeBeside(folder, "my buffer%1.bin", "my%20buffer%251.bin"), GetParam());
    expectGrid(inside.writeInside(folder), GetParam());
}

TEST_P(PackedGltfTest, DamageIsAnErrorOrAModelAndNothingElse)
{
    TemporaryFolder const folder;
    File inside;
    GetParam().make(inside);
    auto const whole = bytesOf(inside.writeInside(folder));
    std::mt19937 random(7);
    for (int turn = 0; turn < 12; ++turn) {
        auto damaged = whole;
        for (int i = 0; i < 4; ++i) damaged[random() % damaged.size()] = static_cast<char>(random());
        if (turn % 3 == 0) damaged.resize(random() % damaged.size());
        auto const path = folder.write("damaged.glb", damaged);
        ZelIO io;
        io.SetReadIsolated(true, 60);
        ZELProductStructure model;
        bool const read = io.Read(path.wstring().c_str(), &model, nullptr);
        EXPECT_EQ(read, io.GetErrorMessage().empty()) << turn;
        EXPECT_NE(io.GetOutcome(), IoOutcome::Cancelled) << turn;
        EXPECT_EQ(io.GetErrorMessage().find(L"crash"), std::wstring::npos) << turn;
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, PackedGltfTest,
                         testing::Values(Kind{"Plain", plain}, Kind{"Quantised", quantised, 1024.0},
                                         Kind{"Meshopt", meshoptPacked}, Kind{"Draco", dracoPacked},
                                         Kind{"Instanced", instanced, 1.0, Uses}),
                         [](auto const& test) { return std::string(test.param.name); });

TEST(PackedGltf, InstancesStandAtTheirPlaces)
{
    TemporaryFolder const folder;
    File file;
    instanced(file);
    auto const read = ReadSupport::read(file.writeInside(folder));
    ASSERT_EQ(read->result.outcome, IoOutcome::Done);
    std::vector<std::array<float, 3>> places;
    for (auto const& reference : read->model.GetReferences())
        for (auto const& instance : reference->GetInstances()) {
            auto const& m = instance->GetMatrix();
            places.push_back({m[12], m[13], m[14]});
        }
    for (auto const& instance : read->model.GetRootInstances())
        if (read->model.GetRootInstances().size() == Uses)
            places.push_back(
                {instance->GetMatrix()[12], instance->GetMatrix()[13], instance->GetMatrix()[14]});
    ASSERT_EQ(places.size(), std::size_t{Uses});
    for (std::size_t i = 0; i < Uses; ++i) {
        std::array<float, 3> const expected[] = {{0, 0, 0}, {2000, 0, 0}, {4000, 0, 1000}};
        for (std::size_t k = 0; k < 3; ++k) EXPECT_NEAR(places[i][k], expected[i][k], 1e-2) << i << " " << k;
    }
}

TEST(PackedGltf, AnUnknownDemandIsAWarning)
{
    TemporaryFolder const folder;
    File file;
    plain(file);
    file.use("VENDOR_unheard_of");
    auto const read = ReadSupport::read(file.writeInside(folder));
    ASSERT_EQ(read->result.outcome, IoOutcome::Done);
    ASSERT_EQ(read->result.warnings.size(), 1u);
    EXPECT_NE(read->result.warnings[0].find(L"VENDOR_unheard_of"), std::wstring::npos);
}
