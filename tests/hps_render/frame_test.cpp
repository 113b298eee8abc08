#include "pictures.h"

namespace HPS::render
{
namespace
{

using FramePictures = Pictures;

TEST_F(FramePictures, ASquareCoversItsPixelsAndNoOthers)
{
    Mesh const mesh = square();
    add(mesh, placed(0, 0, 0), coloured(red));
    Image const image = picture();
    // Two of four units on 80 pixels: columns and rows 20 to 59.
    for (int y = 0; y < 80; ++y)
        for (int x = 0; x < 80; ++x) {
            bool const inside = x >= 20 && x < 60 && y >= 20 && y < 60;
            ASSERT_EQ(image.at(x, y), inside ? red : black) << x << ' ' << y;
        }
}

TEST_F(FramePictures, RowsRunFromTheTopDown)
{
    Mesh const mesh = square();
    add(mesh, placed(0, 1.5, 0, 0.5), coloured(green));
    Image const image = picture();
    EXPECT_EQ(image.at(40, 5), green);
    EXPECT_EQ(image.at(40, 75), black);
}

TEST_F(FramePictures, TheBackgroundRunsFromTopToBottom)
{
    scene.background.from[2] = 1;
    scene.background.to[0] = 1;
    Image const image = picture(10, 100);
    EXPECT_LE(image.at(5, 0).red, 2);
    EXPECT_GE(image.at(5, 0).blue, 253);
    EXPECT_NEAR(image.at(5, 50).red, 128, 3);
    EXPECT_GE(image.at(5, 99).red, 253);
}

// Whatever the order of the list and the kind of the projection.
struct DepthCase {
    bool perspective, nearFirst;
};
class Depth : public Pictures, public testing::WithParamInterface<DepthCase>
{
};
INSTANTIATE_TEST_SUITE_P(All, Depth,
                         testing::Values(DepthCase{false, false}, DepthCase{false, true},
                                         DepthCase{true, false}, DepthCase{true, true}));

TEST_P(Depth, TheNearerFaceHidesTheFarther)
{
    Mesh const nearer = square(), farther = square();
    scene.camera.perspective = GetParam().perspective;
    auto addNear = [&] { add(nearer, placed(0, 0, 1, 0.5), coloured(red)); };
    if (GetParam().nearFirst) addNear();
    add(farther, placed(0, 0, -1), coloured(blue));
    if (!GetParam().nearFirst) addNear();
    Image const image = picture();
    EXPECT_EQ(image.at(40, 40), red);
    EXPECT_EQ(image.at(25, 40), blue);
}

TEST_F(FramePictures, APerspectiveShowsTheFieldAtTheTargetAndMakesDistantThingsSmaller)
{
    Mesh const mesh = square();
    scene.camera.perspective = true;
    add(mesh, placed(0, 0, 0), coloured(red));
    add(mesh, placed(0, 0, -10, 1.5), coloured(blue)); // twice as far: 1.5 units show as 0.75
    Image const image = picture();
    EXPECT_EQ(image.at(21, 40), red);
    EXPECT_EQ(image.at(18, 40), black);
    list.clear();
    add(mesh, placed(0, 0, -10, 1.5), coloured(blue));
    Image const far = picture();
    EXPECT_EQ(far.at(26, 40), blue);
    EXPECT_EQ(far.at(23, 40), black);
}

TEST_F(FramePictures, AWideWindowKeepsTheScaleEqualInBothDirections)
{
    Mesh const mesh = square();
    add(mesh, placed(0, 0, 0), coloured(red));
    Image const image = picture(200, 80);
    EXPECT_EQ(image.at(81, 40), red);
    EXPECT_EQ(image.at(118, 40), red);
    EXPECT_EQ(image.at(78, 40), black);
    EXPECT_EQ(image.at(121, 40), black);
}

struct LitCase {
    bool culled, perspective;
};
class Lit : public Pictures, public testing::WithParamInterface<LitCase>
{
};
INSTANTIATE_TEST_SUITE_P(All, Lit,
                         testing::Values(LitCase{false, false}, LitCase{true, false}, LitCase{false, true},
                                         LitCase{true, true}));

TEST_P(Lit, AMirroredShapeIsLitAndCulledLikeTheShapeItself)
{
    Mesh const plain = wedge(), made = wedge(-1);
    scene.camera.position = {4, 5, 6};
    scene.camera.perspective = GetParam().perspective;
    scene.lights.distant.push_back({{1, 0, -1.5}, {0.5f, 0.5f, 0.5f}, true});
    Pipeline pipeline;
    pipeline.cullBack = GetParam().culled;
    Mat4 mirror = identity;
    mirror[0] = -1;
    add(plain, mirror, coloured({200, 180, 40}), pipeline);
    Image const byMatrix = picture();
    list.clear();
    add(made, identity, coloured({200, 180, 40}), pipeline);
    Image const byVertices = picture();
    EXPECT_NE(byVertices.at(38, 38), black);
    EXPECT_LE(difference(byMatrix, byVertices), 2);
}

TEST_F(FramePictures, CullingClosedShapesChangesNothing)
{
    Mesh const shape = wedge();
    scene.camera.position = {4, 5, 6};
    scene.lights.distant.push_back({});
    add(shape, identity, coloured(green));
    Image const open = picture();
    list.clear();
    Pipeline culled;
    culled.cullBack = true;
    add(shape, identity, coloured(green), culled);
    EXPECT_EQ(difference(open, picture()), 0);
}

TEST_F(FramePictures, BothSidesOfAFaceAreLitAlike)
{
    Mesh const mesh = square();
    scene.lights.distant.push_back({{0, 0, -1}, {0.5f, 0.5f, 0.5f}, true});
    add(mesh, identity, coloured({100, 150, 200}));
    Image const front = picture();
    scene.camera.position = {0, 0, -10};
    EXPECT_LE(difference(front, picture()), 1);
}

TEST_F(FramePictures, EverySideOfALitShapeHasAShadeOfItsOwn)
{
    Mesh const mesh = square();
    scene.lights.distant.push_back({{1, 0, -1.5}, {0.5f, 0.5f, 0.5f}, true});
    auto shade = [&](Vec3 const& toViewer) { // of a square turned away from the viewer
        scene.camera.position = toViewer;
        list.clear();
        add(mesh, identity, coloured({200, 200, 200}));
        return picture().at(40, 40).red;
    };
    int const left = shade({8, 0, 5}), right = shade({-8, 0, 5}), straight = shade({0, 0, 10});
    EXPECT_GT(straight, left);
    EXPECT_GT(left, right + 20);
    EXPECT_GT(right, 40);
}

TEST_F(FramePictures, TransparentFacesBlendOverOpaqueOnes)
{
    Mesh const mesh = square();
    add(mesh, placed(0, 0, 1, 0.5), coloured({255, 0, 0, 128}));
    add(mesh, placed(0, 0, 0), coloured(blue));
    Image const image = picture();
    EXPECT_NEAR(image.at(40, 40).red, 128, 1);
    EXPECT_NEAR(image.at(40, 40).blue, 127, 1);
    EXPECT_EQ(image.at(25, 40), blue);
}

TEST_F(FramePictures, TransparentFacesBlendFromBackToFrontWhateverTheirOrder)
{
    Mesh const a = square(), b = square();
    for (bool swapped : {false, true}) {
        list.clear();
        for (int i = 0; i < 2; ++i)
            if ((i == 0) != swapped)
                add(a, placed(0, 0, 1), coloured({255, 0, 0, 128}));
            else
                add(b, placed(0, 0, -1), coloured({0, 0, 255, 128}));
        Pixel const p = picture().at(40, 40);
        EXPECT_NEAR(p.red, 128, 1);
        EXPECT_NEAR(p.blue, 64, 1);
    }
}

TEST_F(FramePictures, ATransparentBodyShowsItsBackThroughItsFront)
{
    Mesh const shape = wedge();
    scene.camera.position = {4, 5, 6};
    add(shape, identity, coloured({255, 0, 0, 128}));
    // Two layers of one half each.
    EXPECT_NEAR(picture().at(44, 36).red, 191, 3);
}

TEST_F(FramePictures, WhatLiesOutsideTheWindowIsNotDrawn)
{
    Mesh const mesh = square();
    add(mesh, placed(0, 0, 0), coloured(red));
    add(mesh, placed(50, 0, 0), coloured(red));
    add(mesh, placed(0, -4, 0), coloured(red));
    add(mesh, placed(2.5, 0, 0), coloured(green)); // half a unit is in
    Image const image = picture();
    EXPECT_EQ(counts.records, 2u);
    EXPECT_EQ(counts.culledRecords, 2u);
    EXPECT_EQ(image.at(75, 40), green);
}

TEST_F(FramePictures, ShowingsOfOneMeshAreOneCall)
{
    Mesh const one = square(), other = square();
    for (int i = 0; i < 500; ++i) add(i % 2 == 0 ? one : other, placed(0, 0, 0.01 * i), coloured(red));
    picture();
    EXPECT_EQ(counts.records, 500u);
    EXPECT_LE(counts.calls, 2u); // the background and all the faces
}

TEST_F(FramePictures, ACameraMoveUploadsNoInstances)
{
    Mesh const mesh = square();
    add(mesh, placed(0, 0, 0), coloured(red));
    picture();
    EXPECT_GT(counts.uploadedInstances, 0u);
    scene.camera.position = {3, 2, 10};
    target.resize(80, 80, 4);
    EXPECT_EQ(frame.draw(target, list, scene).uploadedInstances, 0u);
}

TEST_F(FramePictures, TheSameListGivesTheSameBytes)
{
    Mesh const shape = wedge();
    scene.camera.position = {4, 5, 6};
    scene.lights.distant.push_back({{1, 0, -1.5}, {0.5f, 0.5f, 0.5f}, true});
    for (int i = 0; i < 40; ++i)
        add(shape, placed(0.03 * i - 0.6, 0.02 * i, 0), coloured({6 * i, 200, 90, i % 3 == 0 ? 120 : 255}));
    Image const first = picture(160, 120);
    Frame another;
    another.draw(target, list, scene);
    target.resolve();
    std::vector<std::uint8_t> again;
    target.read(again);
    EXPECT_EQ(first.bytes, again);
}

TEST_F(FramePictures, AResizedTargetShowsAllOfTheNewSize)
{
    Mesh const mesh = square();
    add(mesh, placed(0, 0, 0, 100), coloured(red));
    for (auto [width, height] : {std::pair{1, 1}, {7, 300}, {640, 480}, {33, 17}}) {
        Image const image = picture(width, height);
        ASSERT_EQ(image.bytes.size(), std::size_t(width * height * 4));
        EXPECT_EQ(image.at(width - 1, height - 1), red) << width;
        EXPECT_EQ(image.at(0, 0), red) << width;
    }
}

TEST_F(FramePictures, OneSampleAPixelWorksToo)
{
    Mesh const mesh = square();
    add(mesh, placed(0, 0, 0), coloured(red));
    EXPECT_EQ(picture(80, 80, 1).at(21, 21), red);
}

TEST_F(FramePictures, FaceStylesHideOrDropFaces)
{
    Mesh const nearer = square(), farther = square();
    LineSegment const across{{-2, 0, -1}, {2, 0, -1}};
    Mesh const line = MeshStore::instance().addLines({&across, 1});
    Pipeline lines;
    lines.primitive = Primitive::Lines;
    Instance wide = coloured(green);
    wide.size = 4;
    add(nearer, placed(0, 0, 1), coloured(red));
    add(line, identity, wide, lines);
    scene.faceStyle = FaceStyle::HiddenLine;
    Image const hidden = picture();
    EXPECT_EQ(hidden.at(40, 40), black);
    EXPECT_EQ(hidden.at(10, 40), green);
    scene.faceStyle = FaceStyle::None;
    EXPECT_EQ(picture().at(40, 40), green);
}

} // namespace
} // namespace HPS::render
