#include "read_support.h"

#include "GltfFile.h"
#include "gltf_materials.h"
#include "gltf_nodes.h"
#include "mesh_normals.h"

#include <narmeta/visu/Material.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <set>

using namespace ReadSupport;

namespace
{
// A tetrahedron: corners, and faces turned outwards.
float const Corners[4][3] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
int const Faces[4][3] = {{0, 2, 1}, {0, 1, 3}, {0, 3, 2}, {1, 2, 3}};

std::string textStl()
{
    std::string text = "solid tetrahedron\n";
    for (auto const& face : Faces) {
        text += "facet normal 0 0 0\nouter loop\n";
        for (auto const corner : face) {
            text += "vertex";
            for (auto const x : Corners[corner]) text += " " + std::to_string(x);
            text += "\n";
        }
        text += "endloop\nendfacet\n";
    }
    return text + "endsolid tetrahedron\n";
}

std::string binaryStl()
{
    std::string bytes(80, ' ');
    std::uint32_t const count = 4;
    bytes.append(reinterpret_cast<char const*>(&count), 4);
    for (auto const& face : Faces) {
        bytes.append(12, '\0');
        for (auto const corner : face) bytes.append(reinterpret_cast<char const*>(Corners[corner]), 12);
        bytes.append(2, '\0');
    }
    return bytes;
}

std::string obj()
{
    std::string text = "# a tetrahedron\no tetrahedron\n";
    for (auto const& corner : Corners) {
        text += "v";
        for (auto const x : corner) text += " " + std::to_string(x);
        text += "\n";
    }
    for (auto const& face : Faces) {
        text += "f";
        for (auto const corner : face) text += " " + std::to_string(corner + 1);
        text += "\n";
    }
    return text;
}

struct MeshFile {
    char const* name;
    std::string (*bytes)();
};

class TetrahedronTest : public testing::TestWithParam<MeshFile>
{
};

// A glTF file with one triangle, used by four nodes: plain, mirrored, stretched, and stretched inside a moved
// group.
std::string gltfWithNodes()
{
    return R"({"asset":{"version":"2.0"},"scene":0,"scenes":[{"nodes":[0,1,2,3]}],
"nodes":[{"name":"plain","mesh":0},
{"name":"mirrored","mesh":0,"scale":[1,1,-1],"translation":[1,2,3]},
{"name":"stretched","mesh":0,"scale":[0.5,1,-0.75]},
{"name":"group","translation":[0,0,10],"children":[4,5]},
{"name":"inner","mesh":0,"matrix":[2,0,0,0, 0,3,0,0, 0,0,4,0, 1,0,0,1]},
{"name":"other","mesh":0}],
"materials":[{"pbrMetallicRoughness":{"baseColorFactor":[1,0,0,0.5]},"alphaMode":"BLEND"}],
"meshes":[{"primitives":[{"attributes":{"POSITION":0},"material":0}]}],
"accessors":[{"bufferView":0,"componentType":5126,"count":3,"type":"VEC3","min":[0,0,0],"max":[1,1,0]}],
"bufferViews":[{"buffer":0,"byteLength":36}],
"buffers":[{"byteLength":36,"uri":"data:application/octet-stream;base64,AAAAAAAAAAAAAAAAAACAPwAAAAAAAAAAAAAAAAAAgD8AAAAA"}]})";
}

/// A chain of groups, each of which names the next one twice: a few lines that stand for 2^levels nodes.
std::string gltfThatDoubles(int levels)
{
    std::string nodes;
    for (int i = 0; i < levels; ++i) {
        std::string const next = std::to_string(i + 1);
        nodes += "{\"children\":[" + next + "," + next + "]},\n";
    }
    std::string text = gltfWithNodes();
    auto const first = text.find("[{\"name\":\"plain\"") + 1;
    text.replace(first, text.find("],\n\"materials\"") - first, nodes + "{\"mesh\":0}");
    text.replace(text.find("[0,1,2,3]"), 9, "[0]");
    return text;
}

std::shared_ptr<ZELInstance> instanceNamed(ZELProductStructure const& model, std::wstring const& name)
{
    auto all = model.GetRootInstances();
    for (auto const& reference : model.GetReferences())
        all.insert(all.end(), reference->GetInstances().begin(), reference->GetInstances().end());
    for (auto const& instance : all)
        if (instance->GetInstanceName() == name) return instance;
    return nullptr;
}
} // namespace

TEST_P(TetrahedronTest, HasSharpOutwardNormals)
{
    TemporaryFolder const folder;
    auto const read = ReadSupport::read(folder.write("shape.dat", GetParam().bytes()));
    ASSERT_EQ(read->result.outcome, IoOutcome::Done);
    EXPECT_TRUE(read->result.graphical);
    auto const meshes = meshesOf(read->model);
    ASSERT_EQ(meshes.size(), 1u);
    auto const& face = *meshes[0]->GetFaces().at(0);
    auto const& indices = face.GetPolygons().at(0).GetIndices();
    ASSERT_EQ(indices.size(), 12u);
    for (auto const index : indices) {
        auto const* const n = &face.GetNormals()[static_cast<std::size_t>(index)];
        bool const slanted = std::abs(n[0] - 0.577f) < 1e-3f && std::abs(n[1] - 0.577f) < 1e-3f;
        bool const straight = std::min({n[0], n[1], n[2]}) < -0.999f;
        EXPECT_TRUE(slanted || straight) << n[0] << " " << n[1] << " " << n[2];
    }
}

INSTANTIATE_TEST_SUITE_P(Formats, TetrahedronTest,
                         testing::Values(MeshFile{"TextStl", textStl}, MeshFile{"BinaryStl", binaryStl},
                                         MeshFile{"Obj", obj}),
                         [](auto const& test) { return test.param.name; });

TEST(GltfReading, NodesThatDoubleAtEachLevelAreNotFollowed)
{
    TemporaryFolder const folder;
    EXPECT_FALSE(readGltfNodes(GltfFile(folder.write("doubling.gltf", gltfThatDoubles(60))).document()));
    EXPECT_TRUE(readGltfNodes(GltfFile(folder.write("nodes.gltf", gltfWithNodes())).document()));
}

TEST(GltfReading, NodesKeepMirrorsAndStretches)
{
    TemporaryFolder const folder;
    auto const read = ReadSupport::read(folder.write("nodes.gltf", gltfWithNodes()));
    ASSERT_EQ(read->result.outcome, IoOutcome::Done);
    struct {
        wchar_t const* name;
        double determinant;
        std::array<float, 3> translation; // millimetres, z up
    } const expected[] = {
        {L"plain", 1.0, {0, 0, 0}},        {L"mirrored", -1.0, {1000, -3000, 2000}},
        {L"stretched", -0.375, {0, 0, 0}}, {L"group", 1.0, {0, -10000, 0}},
        {L"inner", 24.0, {1000, 0, 0}},
    };
    for (auto const& [name, determinant, translation] : expected) {
        auto const instance = instanceNamed(read->model, name);
        ASSERT_TRUE(instance) << std::string(name, name + std::wcslen(name));
        auto const& m = instance->GetMatrix();
        EXPECT_NEAR(determinantOf(m), determinant, 1e-4);
        for (std::size_t k = 0; k < 3; ++k) EXPECT_NEAR(m[12 + k], translation[k], 1e-3);
    }
    // y of the file is z of the model: the stretch of 3 along y shows there.
    auto const& inner = instanceNamed(read->model, L"inner")->GetMatrix();
    EXPECT_NEAR(inner[0], 2.0f, 1e-5f);
    EXPECT_NEAR(inner[5], 4.0f, 1e-5f);
    EXPECT_NEAR(inner[10], 3.0f, 1e-5f);
}

TEST(GltfReading, OneMeshOfManyNodesIsOneReferenceWithItsColour)
{
    TemporaryFolder const folder;
    auto const read = ReadSupport::read(folder.write("nodes.gltf", gltfWithNodes()));
    ASSERT_EQ(read->result.outcome, IoOutcome::Done);
    EXPECT_EQ(read->model.GetUniqueReferencesCount(), 1u);
    auto const meshes = meshesOf(read->model);
    ASSERT_EQ(meshes.size(), 1u);
    auto const attributes = meshes[0]->GetFaces().at(0)->GetAttributes();
    ASSERT_TRUE(attributes);
    EXPECT_EQ(*attributes->GetColour(), (Colour{255, 0, 0}));
    EXPECT_NEAR(*attributes->GetAlpha(), 128, 1);
}

TEST(GltfReading, AMirroredNodeOfARealFileStaysMirrored)
{
    auto const file = modelFolder() / "gltf/car.glb";
    REQUIRE_MODEL_FILE(file);
    auto const read = ReadSupport::read(file);
    EXPECT_NEAR(determinantOf(instanceNamed(read->model, L"Front Lights")->GetMatrix()), -1.0, 1e-4);
    EXPECT_NEAR(determinantOf(instanceNamed(read->model, L"Back Lights")->GetMatrix()), -0.375, 1e-4);
}

TEST(MeshNormals, APointOnASharpEdgeIsDoubledAndAFlatOneIsNot)
{
    // Two squares that meet in the y axis, first in a plane, then at a right angle.
    std::vector<std::uint32_t> const triangles = {0, 1, 2, 0, 2, 3, 1, 4, 5, 1, 5, 2};
    std::vector<float> points = {-1, 0, 0, 0, 0, 0, 0, 1, 0, -1, 1, 0, 1, 0, 0, 1, 1, 0};
    EXPECT_EQ(smoothMesh(points, triangles).points.size(), points.size());
    points[12] = points[15] = 0.0f;
    points[14] = points[17] = 1.0f;
    auto const bent = smoothMesh(points, triangles);
    EXPECT_EQ(bent.points.size(), points.size() + 6);
    for (auto const value : bent.normals) EXPECT_TRUE(std::isfinite(value));
}

TEST(MeshNormals, ATriangleWithoutAreaGetsAUsableNormal)
{
    auto const mesh = smoothMesh({0, 0, 0, 1, 0, 0, 2, 0, 0}, {0, 1, 2});
    ASSERT_EQ(mesh.normals.size(), 9u);
    for (std::size_t i = 0; i < 9; i += 3)
        EXPECT_NEAR(std::hypot(mesh.normals[i], mesh.normals[i + 1], mesh.normals[i + 2]), 1.0f, 1e-6f);
}

TEST(Materials, OfARealFileHaveImagesAndCoordinates)
{
    auto const file = modelFolder() / "gltf/FlightHelmet/FlightHelmet.gltf";
    REQUIRE_MODEL_FILE(file);
    auto const read = ReadSupport::read(file);
    ASSERT_EQ(read->result.outcome, IoOutcome::Done);
    std::set<std::wstring> names;
    for (auto const& mesh : meshesOf(read->model)) {
        for (auto const& face : mesh->GetFaces()) {
            EXPECT_EQ(3 * face->GetTextureCoordinates().size(), 2 * face->GetPoints().size());
            ASSERT_TRUE(face->GetAttributes());
            ASSERT_EQ(face->GetAttributes()->GetMaterials().size(), 1u);
            auto const& material = *face->GetAttributes()->GetMaterials().front();
            names.insert(material.GetMaterialName());
            EXPECT_TRUE(material.HasTextures());
            EXPECT_EQ(material.GetDiffuseColorTextures().size(), 1u);
            EXPECT_EQ(material.GetNormalTextures().size(), 1u);
            for (auto const& texture : material.GetDiffuseColorTextures()) {
                std::shared_ptr<NarMetaVisu::TextureImage> image;
                ASSERT_TRUE(texture->GetTextureImage(image));
                EXPECT_GT(image->GetWidth(), 16u);
                NarMetaVisu::Texture::TextureFilter magnification{}, minification{};
                EXPECT_TRUE(texture->GetTextureFilter(magnification, minification));
                EXPECT_EQ(minification, NarMetaVisu::Texture::TextureFilter::LinearMipmapLinear);
            }
        }
    }
    EXPECT_EQ(names.size(), 6u);
    EXPECT_TRUE(names.contains(L"GlassPlasticMat"));
    EXPECT_TRUE(read->result.warnings.empty());
}

TEST(Materials, TextureTransformsTurnAndMoveCoordinates)
{
    TextureUse use;
    EXPECT_FALSE(use.movesCoordinates());
    use.scale = {2, 4};
    use.offset = {0.5, 0.25};
    EXPECT_TRUE(use.movesCoordinates());
    // v counts downwards in the file and upwards in the model.
    EXPECT_EQ(use.moved(0.25f, 0.75f), (std::array{1.0f, -0.25f}));
    use = {};
    use.rotation = std::acos(-1.0) / 2; // a quarter turn, counter-clockwise in the file's own axes
    auto const turned = use.moved(1.0f, 1.0f);
    EXPECT_NEAR(turned[0], 0.0f, 1e-6f);
    EXPECT_NEAR(turned[1], 2.0f, 1e-6f);
}

TEST(Materials, AMissingImageLeavesThePlainColour)
{
    auto const file = modelFolder() / "mesh/cube_with_materials.obj";
    REQUIRE_MODEL_FILE(file);
    TemporaryFolder const folder;
    folder.write("cube_with_materials.mtl", bytesOf(modelFolder() / "mesh/cube_with_materials.mtl"));
    auto const read = ReadSupport::read(folder.write("cube.obj", bytesOf(file)));
    ASSERT_EQ(read->result.outcome, IoOutcome::Done);
    for (auto const& mesh : meshesOf(read->model)) {
        for (auto const& face : mesh->GetFaces()) {
            EXPECT_TRUE(face->GetAttributes()->GetColour());
            EXPECT_FALSE(face->GetAttributes()->GetMaterials().front()->HasTextures());
        }
    }
}

TEST(Vrml, ShapesAndTheirColoursAreRead)
{
    std::string const text =
        "#VRML V2.0 utf8\nShape { appearance Appearance { material Material { diffuseColor 1 0 0 } }\n"
        "geometry IndexedFaceSet { coord Coordinate { point [0 0 0, 1 0 0, 0 1 0, 0 0 1] }\n"
        "coordIndex [0 2 1 -1 0 1 3 -1 0 3 2 -1 1 2 3 -1] } }\n"
        "Transform { translation 5 0 0 children [ Shape { appearance Appearance { material Material {\n"
        "diffuseColor 0 0 1 transparency 0.5 } } geometry Box { size 2 2 2 } } ] }\n";
    TemporaryFolder const folder;
    auto const read = ReadSupport::read(folder.write("scene.wrl", text));
    ASSERT_EQ(read->result.outcome, IoOutcome::Done);
    std::size_t red = 0, blue = 0, clear = 0;
    float right = 0;
    for (auto const& mesh : meshesOf(read->model)) {
        for (auto const& face : mesh->GetFaces()) {
            for (std::size_t i = 0; i < face->GetPoints().size(); i += 3)
                right = std::max(right, face->GetPoints()[i]);
            if (!face->GetAttributes()) continue;
            red += face->GetAttributes()->GetColour() == NarMeta::Colour{255, 0, 0};
            blue += face->GetAttributes()->GetColour() == NarMeta::Colour{0, 0, 255};
            clear += face->GetAttributes()->GetAlpha() == 128;
        }
    }
    EXPECT_EQ(red, 1u);
    EXPECT_EQ(blue, 6u);
    EXPECT_EQ(clear, 6u);
    EXPECT_FLOAT_EQ(right, 6.0f);
    EXPECT_EQ(ReadSupport::read(folder.write("cut.wrl", text.substr(0, 30)))->result.outcome,
              IoOutcome::Damaged);
}
