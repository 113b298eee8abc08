// Lines, edges and markers as plain data.
#include "EdgeFinder.h"
#include "StrokeChains.h"
#include "StrokeTable.h"
#include "contours.h"
#include "glyph_drawing.h"
#include <cmath>
#include <gmock/gmock.h>
#include <numbers>

using namespace HPS;
using namespace HPS::render;

namespace
{

double areaOf(FlatMesh const& mesh)
{
    double area = 0;
    for (std::size_t i = 0; i + 2 < mesh.indices.size(); i += 3) {
        auto const &a = mesh.corners[mesh.indices[i]], &b = mesh.corners[mesh.indices[i + 1]],
                   &c = mesh.corners[mesh.indices[i + 2]];
        area += std::abs((b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y)) / 2;
    }
    return area;
}

TEST(Patterns, HoldTheStretchesOfOnePeriod)
{
    StrokeTable table;
    LinePatternKit const dashDot = LinePatternKit::GetDefault(LinePattern::Default::DashDot);
    std::uint32_t const row = table.intern(&dashDot, {});
    ASSERT_NE(row, 0u);
    StrokeTable::Head const& head = table.heads()[row];
    ASSERT_EQ(head.rowCount, 1u);
    StrokeTable::Row const& first = table.rows()[head.firstRow];
    EXPECT_FLOAT_EQ(first.period, 6 + 3 + 1 + 3);
    ASSERT_EQ(first.dashCount, 2u);
    EXPECT_FLOAT_EQ(table.dashes()[first.firstDash].to, 6);
    StrokeTable::Dash const dot = table.dashes()[first.firstDash + 1];
    EXPECT_FLOAT_EQ(dot.from, 9.5f);
    EXPECT_FLOAT_EQ(dot.to, 9.5f);
}

TEST(Patterns, AreSharedIfEqualAndSolidIfPlain)
{
    StrokeTable table;
    LinePatternOptionsKit round;
    round.SetStartCap(LinePattern::Cap::Disc);
    LinePatternKit const dashed = LinePatternKit::GetDefault(LinePattern::Default::Dashed);
    EXPECT_EQ(table.intern(nullptr, {}), 0u);
    std::uint32_t const plain = table.intern(&dashed, {}), capped = table.intern(&dashed, round);
    EXPECT_NE(plain, capped);
    EXPECT_EQ(table.intern(&dashed, round), capped);
    EXPECT_NE(table.intern(nullptr, round), 0u); // caps alone make a style
    EXPECT_EQ(table.heads()[capped].ends & 15u, std::uint32_t(LinePattern::Cap::Disc));
}

TEST(Patterns, OfSeveralRowsTakeRoomForAll)
{
    LinePatternKit rails;
    rails.SetParallels({{{}, -3},
                        {{}, 3},
                        {{{LinePatternElement::Kind::Dash, 1}, {LinePatternElement::Kind::Blank, 2}}, 0}});
    rails.SetJoin(LinePattern::Join::Bevel);
    StrokeTable table;
    std::uint32_t const row = table.intern(&rails, {});
    StrokeTable::Head const& head = table.heads()[row];
    EXPECT_EQ(head.rowCount, 3u);
    EXPECT_FLOAT_EQ(head.reach, 3.5f);
    EXPECT_EQ(head.ends >> 12, std::uint32_t(LinePattern::Join::Bevel));
}

TEST(Patterns, OfBadNumbersStayFinite)
{
    LinePatternKit bad;
    bad.SetParallels({{{{LinePatternElement::Kind::Dash, -1},
                        {LinePatternElement::Kind::Blank, std::nanf("")},
                        {LinePatternElement::Kind::Dot, 1e30f}},
                       std::nanf("")}});
    StrokeTable table;
    std::uint32_t const row = table.intern(&bad, {});
    StrokeTable::Head const& head = table.heads()[row];
    EXPECT_TRUE(std::isfinite(head.reach));
    EXPECT_EQ(table.rows()[head.firstRow].period, 0);
}

TEST(Chains, KnowTheirNeighboursAndLengths)
{
    StrokeChains chains;
    std::array const points{Point(0, 0, 0), Point(3, 4, 0), Point(3, 4, 0), Point(3, 10, 0)};
    chains.add(points);
    ASSERT_EQ(chains.pieces.size(), 2u); // a point that repeats makes no piece
    EXPECT_EQ(chains.pieces[0].kind, StrokeChains::First);
    EXPECT_EQ(chains.pieces[1].kind, StrokeChains::Last);
    EXPECT_FLOAT_EQ(chains.pieces[1].distance, 5);
    EXPECT_FLOAT_EQ(chains.pieces[0].after[1], 10);
    EXPECT_FLOAT_EQ(chains.pieces[1].before[0], 0);
}

TEST(Chains, ThatCloseHaveNoEnds)
{
    StrokeChains chains;
    std::array const square{Point(0, 0, 0), Point(1, 0, 0), Point(1, 1, 0), Point(0, 1, 0), Point(0, 0, 0)};
    chains.add(square);
    ASSERT_EQ(chains.pieces.size(), 4u);
    for (auto const& piece : chains.pieces) EXPECT_EQ(piece.kind, 0u);
    EXPECT_FLOAT_EQ(chains.pieces[0].before[1], 1);
    EXPECT_FLOAT_EQ(chains.pieces[3].after[0], 1);
}

TEST(Chains, AreMeasuredInPixelsAlongTheScreen)
{
    StrokeChains chains;
    std::array const bent{Point(0, 0, 0), Point(1, 0, 0), Point(1, 1, 0), Point(1, 1, 5), Point(0, 1, 5)};
    chains.add(bent);
    // Straight down the z axis, 2 units over 200 pixels.
    std::array<double, 16> const clip{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0.01, 0, 0, 0, 0, 1};
    std::vector<float> lengths(chains.pieces.size());
    measureOnScreen(chains, clip, 200, 200, lengths);
    EXPECT_THAT(lengths, testing::Pointwise(testing::FloatEq(), {0.0f, 100.0f, 200.0f, 200.0f}));
}

TEST(Chains, BehindTheViewerTakeNoPixels)
{
    StrokeChains chains;
    std::array const through{Point(0, 0, -4), Point(0, 1, 4), Point(1, 1, 4), Point(1, 1, -4),
                             Point(1, 2, -4)};
    chains.add(through);
    // A perspective from the origin along -z, near plane at 1.
    std::array<double, 16> const clip{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, -1.2, -1, 0, 0, -2.2, 0};
    std::vector<float> lengths(chains.pieces.size());
    measureOnScreen(chains, clip, 100, 100, lengths);
    for (float length : lengths) EXPECT_TRUE(std::isfinite(length));
    EXPECT_EQ(lengths[1], lengths[2]);
    EXPECT_LT(lengths[1], 100);
}

/// A cube whose faces share no point.
ShellData looseCube()
{
    ShellData cube;
    for (int axis = 0; axis < 3; ++axis)
        for (int side : {0, 1}) {
            int const first = int(cube.points.size());
            for (auto const& [u, v] : {std::pair{0, 0}, {1, 0}, {1, 1}, {0, 1}}) {
                float c[3];
                c[axis] = float(side);
                c[(axis + 1) % 3] = float(u);
                c[(axis + 2) % 3] = float(v);
                cube.points.emplace_back(c[0], c[1], c[2]);
            }
            if (side == 1)
                cube.facelist.insert(cube.facelist.end(), {4, first, first + 1, first + 2, first + 3});
            else
                cube.facelist.insert(cube.facelist.end(), {4, first, first + 3, first + 2, first + 1});
        }
    return cube;
}

ShellData strip(double degrees)
{
    double const a = degrees * std::numbers::pi / 180;
    ShellData shell;
    shell.points = {{0, 0, 0},
                    {0, 1, 0},
                    {-1, 1, 0},
                    {-1, 0, 0},
                    {float(std::cos(a)), 0, float(std::sin(a))},
                    {float(std::cos(a)), 1, float(std::sin(a))}};
    shell.facelist = {4, 0, 1, 2, 3, 4, 0, 4, 5, 1};
    return shell;
}

TEST(Edges, OfACubeMeetAtItsCornersWhateverIndicesSay)
{
    EXPECT_EQ(findEdges(looseCube(), PlainEdge, 30).size(), 12u);
    EXPECT_EQ(findEdges(looseCube(), AdjacentEdge, 30).size(), 12u);
    EXPECT_EQ(findEdges(looseCube(), HardEdge, 30).size(), 12u);
    EXPECT_EQ(findEdges(looseCube(), HardEdge, 91).size(), 0u);
    EXPECT_EQ(findEdges(looseCube(), PerimeterEdge, 30).size(), 0u);
    EXPECT_EQ(findEdges(looseCube(), SilhouetteEdge, 30).size(), 12u);
}

TEST(Edges, AreHardByTheAngleBetweenTheirFaces)
{
    for (double degrees : {0.0, 20.0, 40.0, 100.0, 170.0})
        for (double limit : {10.0, 30.0, 90.0})
            EXPECT_EQ(findEdges(strip(degrees), HardEdge, limit).size(), degrees > limit ? 1u : 0u)
                << degrees << " against " << limit;
}

TEST(Edges, OfOneFaceAloneAreItsPerimeter)
{
    EXPECT_EQ(findEdges(strip(30), PerimeterEdge, 30).size(), 6u);
    EXPECT_EQ(findEdges(strip(30), AdjacentEdge, 30).size(), 1u);
    EXPECT_EQ(findEdges(strip(30), PlainEdge, 30).size(), 7u);
    EXPECT_EQ(findEdges(strip(30), QuadEdge, 30).size(), 0u); // of meshes alone
    EXPECT_EQ(findEdges(strip(30), QuadEdge, 30, true).size(), 7u);
}

TEST(Edges, OfHiddenFacesAreNone)
{
    ShellData cube = looseCube();
    PolyhedronExtras extras;
    char const hidden = 0;
    extras.faceVisibilities.SetRange(2, 1, &hidden);
    cube.extras = std::make_shared<PolyhedronExtras const>(extras);
    EXPECT_EQ(findEdges(cube, PerimeterEdge, 30).size(), 4u);
    EXPECT_EQ(findEdges(cube, AdjacentEdge, 30).size(), 8u);
}

TEST(Edges, KnowBothNormalsInOneSense)
{
    for (FoundEdge const& edge : findEdges(strip(40), AdjacentEdge, 30)) {
        double const cosine = double(edge.normals[0].x) * edge.normals[1].x +
                              double(edge.normals[0].y) * edge.normals[1].y +
                              double(edge.normals[0].z) * edge.normals[1].z;
        EXPECT_NEAR(cosine, std::cos(40 * std::numbers::pi / 180), 1e-5);
    }
}

ShellData slope()
{
    ShellData shell;
    shell.points = {{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0, 10, 0}};
    PolyhedronExtras extras;
    extras.parameterWidth = 1;
    extras.vertexParameters = {0, 10, 10, 0}; // the parameter is x
    shell.extras = std::make_shared<PolyhedronExtras const>(extras);
    return shell;
}

TEST(Contours, LieWhereTheParameterHasThePosition)
{
    std::array<std::uint32_t, 6> const triangles{0, 1, 2, 0, 2, 3};
    ContourLineKit kit;
    kit.SetPositions({2.5f, 7});
    double length = 0;
    for (ContourPiece const& piece : findContours(slope(), triangles, kit.data(), 2)) {
        float const at = piece.number == 0 ? 2.5f : 7.0f;
        EXPECT_NEAR(piece.from.x, at, 1e-5);
        EXPECT_NEAR(piece.to.x, at, 1e-5);
        length += std::abs(piece.from.y - piece.to.y);
    }
    EXPECT_NEAR(length, 20, 1e-4);
}

TEST(Contours, RepeatFromTheirOffset)
{
    std::array<std::uint32_t, 6> const triangles{0, 1, 2, 0, 2, 3};
    ContourLineKit kit;
    kit.SetPositions(2, 1); // 1 3 5 7 9
    double length = 0;
    for (ContourPiece const& piece : findContours(slope(), triangles, kit.data(), 3)) {
        EXPECT_NEAR(std::fmod(piece.from.x, 2.0f), 1, 1e-4);
        EXPECT_EQ(piece.number, std::uint32_t(std::lround((piece.from.x - 1) / 2)) % 3);
        length += std::abs(piece.from.y - piece.to.y);
    }
    EXPECT_NEAR(length, 50, 1e-3);
    kit.SetPositions(1e-30f, 0); // no end of lines
    EXPECT_LE(findContours(slope(), triangles, kit.data(), 3).size(), 1'000'000u);
}

TEST(Drawings, OfEveryBuiltInGlyphCoverSomething)
{
    for (UTF8 const& name : GlyphKit::GetDefaultNames()) {
        FlatMesh const mesh = drawingOf(GlyphKit::GetDefault(name));
        EXPECT_GT(areaOf(mesh), 0.02) << name.GetBytes();
        for (FlatMesh::Corner const& corner : mesh.corners)
            EXPECT_LE(std::hypot(corner.x, corner.y), 1.6) << name.GetBytes();
    }
    EXPECT_NEAR(areaOf(drawingOf(GlyphKit::GetDefault("solid circle"))), std::numbers::pi, 0.02);
    EXPECT_LT(areaOf(drawingOf(GlyphKit::GetDefault("circle"))), 1.5);
}

TEST(Drawings, CountFromTheirOffsetInRadii)
{
    GlyphKit kit;
    kit.SetRadius(50).SetOffset({50, 0}).SetElements(
        {{GlyphElement::Kind::Polygon, {{50, 0}, {100, 0}, {100, 50}, {50, 50}}, 0}});
    FlatMesh const mesh = drawingOf(kit);
    EXPECT_NEAR(areaOf(mesh), 1, 1e-5);
    for (FlatMesh::Corner const& corner : mesh.corners) {
        EXPECT_GE(corner.x, -1e-6);
        EXPECT_LE(corner.x, 1 + 1e-6);
    }
}

} // namespace
