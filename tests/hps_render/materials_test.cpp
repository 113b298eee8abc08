// Materials and images as plain data.
#include "MaterialTable.h"
#include "MeshStore.h"
#include "Texels.h"
#include "surface_material.h"
#include <gtest/gtest.h>

namespace HPS::render
{
namespace
{

SurfaceMaterial shiny(float exponent)
{
    SurfaceMaterial material;
    material.row.exponent = exponent;
    material.kind.features.set(Feature::Material);
    return material;
}

SurfaceMaterial layered(LayerSource source)
{
    SurfaceMaterial material = shiny(8);
    material.layers.push_back({.source = source});
    material.kind.features.layers = 1;
    return material;
}

MaterialKitArray palette()
{
    MaterialKitArray kits(3);
    kits[0].SetDiffuse(RGBAColor(0, 0, 0, 1)).SetGloss(10);
    kits[1].SetDiffuse(RGBAColor(1, 0.5f, 0, 0.5f)).SetGloss(20).SetBump("bumps");
    return kits;
}

} // namespace

TEST(MaterialTable, holdsEachMaterialOnce)
{
    MaterialTable table;
    EXPECT_EQ(table.intern(SurfaceMaterial()).row, 0u);
    EXPECT_EQ(table.intern(SurfaceMaterial()).kind, 0u);
    SurfaceId const first = table.intern(shiny(5)), second = table.intern(shiny(6));
    EXPECT_NE(first.row, second.row);
    EXPECT_EQ(first.kind, second.kind); // one program, one call
    EXPECT_EQ(table.intern(shiny(5)).row, first.row);
    std::uint64_t const version = table.version();
    table.intern(shiny(6));
    EXPECT_EQ(table.version(), version);
    table.intern(layered(LayerSource::Sphere));
    EXPECT_NE(table.version(), version);
    table.intern(layered(LayerSource::Sphere));
    EXPECT_EQ(table.layers().size(), 1u);
}

TEST(MaterialTable, keepsThePlainRowForKindsWithoutOne)
{
    MaterialTable table;
    SurfaceMaterial flat;
    flat.kind.features.set(Feature::Flat);
    SurfaceId const id = table.intern(flat);
    EXPECT_EQ(id.row, 0u);
    EXPECT_NE(id.kind, 0u);
    EXPECT_TRUE(table.kind(id.kind).features.has(Feature::Flat));
}

TEST(MaterialTable, laysPalettesInARow)
{
    MaterialTable table;
    table.intern(shiny(3));
    std::uint32_t const first = table.internPalette(paletteRows(palette()));
    ASSERT_EQ(table.rows().size(), first + 3);
    EXPECT_FLOAT_EQ(table.rows()[first + 1].diffuse[1], 0.5f);
    EXPECT_FLOAT_EQ(table.rows()[first + 1].diffuse[3], 0.5f);
    EXPECT_EQ(table.internPalette(paletteRows(palette())), first);
}

TEST(PlacedMaterials, readParametersOnlyWhereThereAreSome)
{
    MeshPlace mesh;
    mesh.box.add(1, 2, 3);
    mesh.box.add(5, 4, 3);
    mesh.parameters = 77;
    auto features = [&](LayerSource source) { return placed(layered(source), mesh).kind.features; };
    EXPECT_FALSE(features(LayerSource::Parameters).has(Feature::Parameters));
    EXPECT_TRUE(features(LayerSource::Parameters).has(Feature::Projected));
    mesh.hasParameters = true;
    EXPECT_TRUE(features(LayerSource::Parameters).has(Feature::Parameters));
    EXPECT_TRUE(features(LayerSource::Parameters).has(Feature::Projected)); // for the vertices without
    mesh.complete = true;
    EXPECT_FALSE(features(LayerSource::Parameters).has(Feature::Projected));
    EXPECT_FALSE(features(LayerSource::World).has(Feature::Parameters));
    MaterialRow const row = placed(layered(LayerSource::Cylinder), mesh).row;
    EXPECT_FLOAT_EQ(row.scale, 0.25f);
    EXPECT_FLOAT_EQ(row.inverseHeight, 0.5f);
    EXPECT_FLOAT_EQ(row.centre[0], 3);
    EXPECT_EQ(placed(shiny(2), mesh).row, shiny(2).row);
}

TEST(PaletteMaterials, areMixedByTheFractionOfTheIndex)
{
    MaterialKitArray const kits = palette();
    EXPECT_FLOAT_EQ(paletteMaterial(&kits, 0.25f)->diffuseColor->red, 0.25f);
    EXPECT_FLOAT_EQ(*paletteMaterial(&kits, 0.5f)->diffuseAlpha, 0.75f);
    EXPECT_FLOAT_EQ(*paletteMaterial(&kits, 0.5f)->gloss, 15);
    EXPECT_FALSE(paletteMaterial(&kits, 0.25f)->bump);
    EXPECT_TRUE(paletteMaterial(&kits, 0.75f)->bump);
    EXPECT_TRUE(paletteMaterial(&kits, 2.4f));
    for (float outside : {-1.0f, 2.6f, 1e30f, std::numeric_limits<float>::quiet_NaN()})
        EXPECT_FALSE(paletteMaterial(&kits, outside)) << outside;
    EXPECT_FALSE(paletteMaterial(nullptr, 0));
}

TEST(VertexIndices, survivePacking)
{
    for (float index : {0.0f, 1.0f, 2.5f, 255.0f, 256.0f, 65535.0f, 1000.25f}) {
        FaceVertex vertex{};
        putIndex(vertex, index);
        auto const c = vertex.colour;
        EXPECT_FLOAT_EQ(float(c[0] * 256 + c[1]) + float(c[2]) / 256, index);
        EXPECT_LT(vertex.ownColour, 0);
    }
    FaceVertex vertex{};
    putIndex(vertex, std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(vertex.colour[0] + vertex.colour[1] + vertex.colour[2], 0);
}

TEST(Images, areReadWithTheirRowsFromTheTopDown)
{
    ImageKit kit;
    kit.SetSize(1, 2).SetFormat(Image::Format::RGB).SetData(ByteArray{1, 2, 3, 4, 5, 6});
    auto texels = texelsOf(kit);
    ASSERT_TRUE(texels);
    EXPECT_EQ(texels->rgba, (std::vector<std::uint8_t>{1, 2, 3, 255, 4, 5, 6, 255}));
    turnUpsideDown(*texels);
    EXPECT_EQ(texels->rgba[0], 4);
    EXPECT_FALSE(texels->translucent());
    for (ImageKit const& bad : {ImageKit(), ImageKit().SetSize(9, 9).SetData(ByteArray(5)),
                                ImageKit().SetFormat(Image::Format::Png).SetData(ByteArray(50, 1))})
        EXPECT_FALSE(texelsOf(bad));
}

TEST(Images, shrinkToTheMeanOfTheirPixels)
{
    Texels texels{4, 3, std::vector<std::uint8_t>(48, 100)};
    texels.rgba[0] = 200; // one of four
    shrink(texels, 2);
    EXPECT_EQ(texels.width, 2u);
    EXPECT_EQ(texels.height, 1u);
    EXPECT_EQ(texels.rgba[0], 125);
    EXPECT_EQ(texels.rgba[4], 100);
    shrink(texels, 0);
    EXPECT_EQ(texels.rgba.size(), 4u);
    EXPECT_EQ(squared(texels, 3).rgba.size(), 36u);
}

TEST(Images, areMapsOfNormalsIfTheirColoursAreDirections)
{
    auto of = [](std::uint8_t r, std::uint8_t g, std::uint8_t b) {
        Texels texels{2, 2, {}};
        for (int i = 0; i < 4; ++i) texels.rgba.insert(texels.rgba.end(), {r, g, b, 255});
        return texels.holdsNormals();
    };
    EXPECT_TRUE(of(128, 128, 255));
    EXPECT_TRUE(of(190, 128, 240));
    EXPECT_FALSE(of(128, 128, 128));
    EXPECT_FALSE(of(255, 255, 255));
    EXPECT_FALSE(of(0, 0, 0));
    EXPECT_FALSE(of(128, 128, 0)); // away from the viewer
    EXPECT_TRUE(placeholderTexels().rgba.size() == 4u * 16 * 16);
    EXPECT_FALSE(placeholderTexels().holdsNormals());
}

} // namespace HPS::render
