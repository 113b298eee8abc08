#include "closed_mesh.h"
#include "pictures.h"

namespace HPS::render
{
namespace
{

using Triangles = std::vector<std::array<int, 3>>;

/// Corners of a tetrahedron at `x`, turned outwards unless the corners of the triangles run the other way.
struct Soup {
    std::vector<FaceVertex> vertices;
    std::vector<std::uint32_t> indices;

    void add(Triangles const& triangles, float x = 0, float size = 1, bool inward = false)
    {
        float const corners[4][3] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
        for (auto triangle : triangles) {
            if (inward) std::swap(triangle[1], triangle[2]);
            for (int const corner : triangle) {
                // Every triangle has corners of its own, as faces of a body have.
                indices.push_back(std::uint32_t(vertices.size()));
                auto const& c = corners[corner];
                vertices.push_back({{x + size * c[0], size * c[1], size * c[2]}, {}, 0, {}});
            }
        }
    }
    bool closed() const { return boundsVolumes(vertices, indices); }
};

Triangles const tetrahedron{{0, 2, 1}, {0, 1, 3}, {0, 3, 2}, {1, 2, 3}};

TEST(ClosedMesh, IsOneWithoutGapsThatIsTurnedOutwards)
{
    Soup closed, open, inward, twice, mixed, hollow, needles, none;
    closed.add(tetrahedron);
    open.add({tetrahedron.begin(), tetrahedron.end() - 1});
    inward.add(tetrahedron, 0, 1, true);
    twice.add(tetrahedron);
    twice.add(tetrahedron, 5);
    mixed.add(tetrahedron, 0, 2);
    mixed.add(tetrahedron, 5, 1, true);
    hollow.add(tetrahedron, -1, 10);
    hollow.add(tetrahedron, 0, 1, true);
    needles.add(tetrahedron);
    needles.add({{1, 1, 2}, {2, 2, 2}});
    EXPECT_TRUE(closed.closed());
    EXPECT_FALSE(open.closed());
    EXPECT_FALSE(inward.closed());
    EXPECT_TRUE(twice.closed());
    EXPECT_FALSE(mixed.closed()) << "one of two turned inside out";
    EXPECT_FALSE(hollow.closed()) << "what lies in what is not looked at";
    EXPECT_TRUE(needles.closed()) << "triangles without area are no gap";
    EXPECT_FALSE(none.closed());
}

TEST(ClosedMesh, BothZerosAreOnePlace)
{
    Soup soup;
    soup.add(tetrahedron);
    for (std::size_t i = 0; i < 3; ++i)
        for (float& coordinate : soup.vertices[i].position)
            if (coordinate == 0) coordinate = -0.0f;
    EXPECT_TRUE(soup.closed());
}

using ClosedPictures = Pictures;

TEST_F(ClosedPictures, LeavingBackFacesOutChangesNothingMirroredOrNot)
{
    scene.camera.position = {6, 5, 8};
    Mesh const plain = wedge();
    for (double const side : {1.0, -1.0}) {
        Mat4 matrix = placed(0, 0, 0);
        matrix[0] = side;
        Image pictures[2];
        for (bool const closed : {false, true}) {
            list.clear();
            Pipeline pipeline;
            pipeline.closed = closed;
            add(plain, matrix, coloured(red), pipeline);
            pictures[closed] = picture();
        }
        Image const nothing{80, 80, std::vector<std::uint8_t>(pictures[0].bytes.size())};
        EXPECT_GT(difference(pictures[0], nothing), 100);
        EXPECT_EQ(difference(pictures[0], pictures[1]), 0) << side;
    }
}

TEST_F(ClosedPictures, FromWithinABodyItsBackFacesAreSeen)
{
    scene.camera.perspective = true;
    scene.camera.position = {0.15, 0.15, 0.15};
    scene.camera.target = {0.15, 0.15, 0};
    Pipeline pipeline;
    pipeline.closed = true;
    add(wedge(), placed(0, 0, 0), coloured(red), pipeline);
    EXPECT_EQ(picture().at(40, 40), red);
}

} // namespace
} // namespace HPS::render
