#include "obj_materials.h"
#include "read_support.h"
#include "texture_images.h"

#include <narmeta/visu/Material.h>

#include <gtest/gtest.h>

#include <cmath>

using namespace ReadSupport;

TEST(ObjMaterials, HaveTheImageOnOneFace)
{
    auto const file = modelFolder() / "mesh/cube_with_materials.obj";
    REQUIRE_MODEL_FILE(file);
    auto const read = ReadSupport::read(file);
    std::size_t textured = 0, faces = 0;
    for (auto const& mesh : meshesOf(read->model)) {
        for (auto const& face : mesh->GetFaces()) {
            ++faces;
            ASSERT_TRUE(face->GetAttributes() && !face->GetAttributes()->GetMaterials().empty());
            textured += face->GetAttributes()->GetMaterials().front()->HasTextures();
            for (float const x : face->GetTextureCoordinates()) EXPECT_TRUE(x >= 0.0f && x <= 1.0f);
        }
    }
    EXPECT_EQ(faces, 5u);
    EXPECT_EQ(textured, 1u);
}

TEST(ObjMaterials, HaveImagesForAllThatTheyAreMadeOf)
{
    TemporaryFolder const folder;
    auto const image = [&](char const* name, std::initializer_list<int> pixels) {
        std::string bytes = "P6 1 " + std::to_string(pixels.size() / 3) + " 255\n";
        for (int const channel : pixels) bytes += static_cast<char>(channel);
        folder.write(name, bytes);
    };
    image("colour image.ppm", {10, 20, 30, 40, 50, 60});
    image("mask.ppm", {0, 0, 0, 255, 255, 255});
    image("normal.ppm", {128, 128, 255});
    image("bump.ppm", {7, 7, 7});
    image("rough.ppm", {64, 64, 64});
    folder.write("paint.mtl",
                 "newmtl paint\nKd 1 0 0\nPr 0.25\nPm 1\n"
                 "map_Kd -s 2 4 1 -o 0.5 0.25 -clamp on colour image.ppm\nmap_d mask.ppm\n"
                 "norm .\\normal.ppm\nmap_Bump -bm 0.2 bump.ppm\nmap_Pr rough.ppm\nmap_Ks gone.ppm\n");
    auto const read = ReadSupport::read(
        folder.write("sheet.obj", "mtllib paint.mtl\nv 0 0 0\nv 1 0 0\nv 0 1 0\nvt 0 0\nvt 1 0\nvt 0 1\n"
                                  "usemtl paint\nf 1/1 2/2 3/3"));
    ASSERT_EQ(read->result.outcome, IoOutcome::Done);
    ASSERT_EQ(read->result.warnings.size(), 1u);
    EXPECT_NE(read->result.warnings[0].find(L"gone.ppm"), std::wstring::npos);
    auto const meshes = meshesOf(read->model);
    ASSERT_EQ(meshes.size(), 1u);
    auto const& face = *meshes[0]->GetFaces().at(0);
    // Scaled, then moved.
    EXPECT_EQ(face.GetTextureCoordinates(), (std::vector<float>{0.5f, 0.25f, 2.5f, 0.25f, 0.5f, 4.25f}));
    auto const name = face.GetAttributes()->GetMaterials().at(0);
    ASSERT_TRUE(name);
    auto const& settings = name->GetSettings();
    EXPECT_EQ(settings.metallic, 1.0f);
    EXPECT_EQ(settings.roughness, 0.25f);
    EXPECT_EQ(settings.specular.colour, (Colour{255, 0, 0})) << "a metal mirrors in its own colour";
    struct {
        NarMetaVisu::Material::Textures const& list;
        std::vector<int> pixels;
    } const expected[] = {{settings.diffuseColorTextures, {10, 20, 30, 0, 40, 50, 60, 255}},
                          {settings.normalTextures, {128, 128, 255, 255}},
                          {settings.bumpCoeffTextures, {7}},
                          {settings.specularCoeffTextures, {191}}};
    for (auto const& [list, pixels] : expected) {
        ASSERT_EQ(list.size(), 1u);
        unsigned char const* data = nullptr;
        std::size_t size = 0;
        ASSERT_TRUE(list[0]->GetSettings().image->GetMipmap(0, data, size));
        EXPECT_EQ(std::vector<int>(data, data + size), pixels);
    }
    using Wrap = NarMetaVisu::Texture::TextureWrapMode;
    EXPECT_EQ(settings.diffuseColorTextures[0]->GetSettings().wrap->at(0), Wrap::ClampToEdge);
    EXPECT_EQ(settings.normalTextures[0]->GetSettings().wrap->at(0), Wrap::Repeat);
}

TEST(ObjMaterials, TakeNoNumbersThatAreNone)
{
    TemporaryFolder const folder;
    MaterialDetailMap materials;
    readObjMaterials(
        folder.write("odd.mtl", "newmtl a\nPr nan\nPm 1e999\nmap_Kd -s nan inf -o 1 nan x.png\n"), materials);
    auto const& odd = materials.at("a");
    EXPECT_FALSE(odd.roughnessShare);
    EXPECT_FALSE(odd.metallicShare);
    ASSERT_TRUE(odd.baseColour);
    for (double const number : {odd.baseColour->scale[0], odd.baseColour->scale[1], odd.baseColour->offset[0],
                                odd.baseColour->offset[1]})
        EXPECT_TRUE(std::isfinite(number));
}

TEST(ObjMaterials, AreReadOnceAndFromFilesOnly)
{
    TemporaryFolder const folder;
    auto const obj = folder.write("a.obj", "mtllib a.mtl\nmtllib /dev/zero\nmtllib a.mtl\n# mtllib b.mtl\n");
    auto const files = objMaterialFiles(obj);
    EXPECT_EQ(files, (std::vector<std::filesystem::path>{folder.path() / "a.mtl", "/dev/zero"}));
    MaterialDetailMap materials;
    for (auto const& file : files) readObjMaterials(file, materials);
    EXPECT_TRUE(materials.empty());
    EXPECT_TRUE(imageBytes("/dev/zero").isEmpty());
    EXPECT_TRUE(imageBytes("/dev/zero", 0, 8).isEmpty());
}
