#include "pictures.h"

namespace HPS::render
{
namespace
{

class LinePictures : public Pictures
{
protected:
    void addLine(LineSegment const& segment, float width, Pixel const& colour = green)
    {
        meshes.push_back(MeshStore::instance().addLines({&segment, 1}));
        Pipeline pipeline;
        pipeline.primitive = Primitive::Lines;
        Instance instance = coloured(colour);
        instance.size = width;
        add(meshes.back(), identity, instance, pipeline);
    }
    std::vector<Mesh> meshes;
};

int greenRows(Image const& image, int column)
{
    int sum = 0;
    for (int y = 0; y < image.height; ++y) sum += image.at(column, y).green;
    return (sum + 127) / 255;
}

class Widths : public LinePictures, public testing::WithParamInterface<int>
{
};
INSTANTIATE_TEST_SUITE_P(All, Widths, testing::Values(1, 2, 3, 5, 12));

TEST_P(Widths, ALineCoversAsManyPixelsAsItIsWide)
{
    for (bool perspective : {false, true}) {
        list.clear();
        scene.camera.perspective = perspective;
        // Through pixel centres for odd widths, between pixels for even ones.
        float const y = GetParam() % 2 == 0 ? 0.0f : 0.025f;
        addLine({{-1.5f, y, 0}, {1.5f, y, 0}}, float(GetParam()));
        Image const image = picture();
        EXPECT_EQ(greenRows(image, 40), GetParam());
        EXPECT_EQ(greenRows(image, 2), 0);
    }
}

TEST_F(LinePictures, AThinLineIsOnePixelWideInEveryDirection)
{
    LineSegment const segments[] = {{{-1.5f, 0.025f, 0}, {1.5f, 0.025f, 0}},
                                    {{0.025f, -1.5f, 0}, {0.025f, 1.5f, 0}},
                                    {{-1.5f, -1, 0}, {1.5f, 1.1f, 0}}};
    for (LineSegment const& segment : segments) {
        list.clear();
        meshes.push_back(MeshStore::instance().addLines({&segment, 1}));
        Pipeline pipeline;
        pipeline.primitive = Primitive::ThinLines;
        add(meshes.back(), identity, coloured(green), pipeline);
        Image const image = picture();
        double sum = 0;
        for (int y = 0; y < 80; ++y)
            for (int x = 0; x < 80; ++x) sum += image.at(x, y).green / 255.0;
        double const pixels =
            20 * std::hypot(segment.to[0] - segment.from[0], segment.to[1] - segment.from[1]);
        EXPECT_NEAR(sum, pixels, 0.12 * pixels);
    }
}

TEST_F(LinePictures, ASlantedLineHasTheSameWidth)
{
    addLine({{-2, -2, 0}, {2, 2, 0}}, 5);
    EXPECT_NEAR(greenRows(picture(), 40), 7, 1); // 5 times the root of 2
}

TEST_F(LinePictures, ALineThatRunsBehindTheEyeIsCutNotTurnedRound)
{
    scene.camera.perspective = true;
    addLine({{1, 0, 30}, {1, 0, -30}}, 3);
    Image const image = picture();
    EXPECT_GT(greenRows(image, 70), 0); // towards the right rim
    for (int x = 0; x < 40; ++x) EXPECT_EQ(greenRows(image, x), 0) << x;
}

TEST_F(LinePictures, EdgesOfDisplacedFacesShowUnbroken)
{
    Mesh const face = square();
    scene.camera.position = {6, 3, 4};
    Pipeline pushed;
    pushed.displacement = 16;
    add(face, identity, coloured(red), pushed);
    addLine({{-1, 0, 0}, {1, 0, 0}}, 1);
    Image const image = picture(200, 200);
    int seen = 0;
    for (int x = 0; x < 200; ++x) seen += greenRows(image, x) > 0;
    list.clear();
    meshes.clear();
    addLine({{-1, 0, 0}, {1, 0, 0}}, 1);
    Image const alone = picture(200, 200);
    int expected = 0;
    for (int x = 0; x < 200; ++x) expected += greenRows(alone, x) > 0;
    EXPECT_EQ(seen, expected);
}

TEST_F(LinePictures, WidthsInWorldUnitsGrowWithTheZoom)
{
    LineSegment const segment{{-2, 0, 0}, {2, 0, 0}};
    meshes.push_back(MeshStore::instance().addLines({&segment, 1}));
    Pipeline pipeline;
    pipeline.primitive = Primitive::Lines;
    Instance instance = coloured(green);
    instance.size = 0.5f;
    instance.flags = SizeInWorld;
    add(meshes.back(), identity, instance, pipeline);
    EXPECT_EQ(greenRows(picture(), 40), 10);
    scene.camera.fieldWidth = scene.camera.fieldHeight = 2;
    EXPECT_EQ(greenRows(picture(), 40), 20);
}

struct GlyphCase {
    std::uint32_t parts;
    std::array<bool, 4> covered;
};
class Glyphs : public Pictures, public testing::WithParamInterface<GlyphCase>
{
};
// Whether a glyph of 40 pixels covers its middle, a place two thirds to the right, one half way to the upper
// right corner, and one at the middle of its upper rim.
INSTANTIATE_TEST_SUITE_P(All, Glyphs,
                         testing::Values(GlyphCase{Disc, {true, true, true, true}},
                                         GlyphCase{SmallDisc, {true, false, false, false}},
                                         GlyphCase{Ring, {false, false, false, true}},
                                         GlyphCase{SolidSquare, {true, true, true, true}},
                                         GlyphCase{Square, {false, false, false, true}},
                                         GlyphCase{Plus, {true, true, false, true}},
                                         GlyphCase{Times, {true, false, true, false}},
                                         GlyphCase{Plus | Times, {true, true, true, true}},
                                         GlyphCase{SolidTriangle, {true, false, false, true}},
                                         GlyphCase{SolidTriangle | UpsideDown, {true, false, false, false}},
                                         GlyphCase{Ring | SmallDisc, {true, false, false, true}},
                                         GlyphCase{RisingStroke, {true, false, true, false}},
                                         GlyphCase{FallingStroke, {true, false, false, false}}));

TEST_P(Glyphs, HaveTheirShape)
{
    MarkerVertex const middle{{0.025f, 0.025f, 0}};
    Mesh const mesh = MeshStore::instance().addMarkers({&middle, 1});
    Pipeline pipeline;
    pipeline.primitive = Primitive::Markers;
    Instance instance = coloured(green);
    instance.size = 40;
    instance.flags = GetParam().parts << glyphShift;
    add(mesh, identity, instance, pipeline);
    Image const image = picture();
    EXPECT_EQ(image.at(40, 39) == green, GetParam().covered[0]);
    EXPECT_EQ(image.at(53, 39) == green, GetParam().covered[1]);
    EXPECT_EQ(image.at(50, 29) == green, GetParam().covered[2]);
    EXPECT_EQ(image.at(40, 21) == green, GetParam().covered[3]);
    EXPECT_EQ(image.at(40, 62), black);
}

} // namespace
} // namespace HPS::render
