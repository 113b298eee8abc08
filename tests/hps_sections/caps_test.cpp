#include "bodies.h"
#include <gtest/gtest.h>

namespace HPS::render
{
namespace
{

constexpr Vec3 X{1, 0, 0}, Y{0, 1, 0}, Z{0, 0, 1};

struct AreaCase {
    char const* name;
    Body body;
    std::vector<CutSection> sections;
    double area;
};

void PrintTo(AreaCase const& c, std::ostream* out)
{
    *out << c.name;
}

class CapArea : public testing::TestWithParam<AreaCase>
{
};

TEST_P(CapArea, IsThatOfTheSection)
{
    AreaCase const& c = GetParam();
    CutMesh const mesh = c.body.mesh();
    EXPECT_NEAR(capArea(mesh, c.sections), c.area, 1e-5 * std::max(1.0, c.area));
}

std::vector<CutSection> sixteen(double radius)
{
    // A drill of sixteen sides, seen along z: each plane takes what lies on the axis' side of it.
    CutSection section;
    for (int i = 0; i < 16; ++i) {
        double const angle = 2 * 3.14159265358979 * i / 16;
        Vec3 const inwards{-std::cos(angle), -std::sin(angle), 0};
        section.push_back(beyond(inwards, -radius));
    }
    return {section};
}

Body turnedCube()
{
    Body body = cube(1);
    double const c = std::cos(0.7), s = std::sin(0.7);
    for (auto& p : body.points) {
        float const x = p[0], y = p[1];
        p = {float(c * x - s * y), float(s * x + c * y), p[2]};
    }
    return body;
}

Body step() // a low half beside a high one, as one body of two boxes
{
    return box({0, 0, 0}, {1, 1, 1}).add(box({1, 0, 0}, {2, 1, 2}));
}

std::vector<AreaCase> areaCases()
{
    double const side16 = 2 * 0.5 * std::tan(3.14159265358979 / 16);
    return {
        {"NoSection", cube(1), {}, 0},
        {"SectionWithoutPlanes", cube(1), {{}}, 0},
        {"CubeAcross", cube(1), {{beyond(Z, 0.25)}}, 4},
        {"CubeSlanting", cube(1), {{beyond({1, 1, 0}, 0)}}, 2 * std::sqrt(8.0)},
        {"CubeSixSided", cube(1), {{beyond({1, 1, 1}, 0)}}, 0.75 * std::sqrt(3.0) * 4},
        {"Beside", cube(1), {{beyond(Z, 3)}}, 0},
        {"AllGone", cube(1), {{beyond(Z, -3)}}, 0},
        {"ThroughFourCorners", cube(1), {{beyond({1, 0, 1}, 0)}}, 2 * std::sqrt(8.0)},
        {"AlongTheTopFace", cube(1), {{beyond(Z, 1)}}, 0},
        {"AlongTheBottomFace", cube(1), {{beyond(Z, -1)}}, 0},
        {"AlongATurnedFace", turnedCube(), {{beyond({std::cos(0.7), std::sin(0.7), 0}, 1)}}, 0},
        {"AtTheStep", step(), {{beyond(Z, 1)}}, 1},
        {"AtTheStepFromBelow", step(), {{{{0, 0, -1}, 1}}}, 1},
        {"ThroughTheRowsOfABall", ball({}, 1, 16), {{beyond(Z, 0)}}, polygonArea(16, 1)},
        {"PrismAcross", prism(7, 2, 3, true), {{beyond(Z, 1)}}, polygonArea(7, 2)},
        {"OpenTube", prism(7, 2, 3, false), {{beyond(Z, 1)}}, 0},
        {"OpenTubeLengthwise", prism(8, 2, 3, false), {{beyond(X, 0.1)}}, 0},
        {"Hollow", cube(2).add(cube(1).insideOut()), {{beyond(Z, 0.3)}}, 16 - 4},
        {"BodyInBody", cube(2).add(cube(1)), {{beyond(Z, 0.3)}}, 16},
        {"OverlappingBodies", box({0, 0, 0}, {2, 2, 2}).add(box({1, 1, 0}, {3, 3, 2})), {{beyond(Z, 1)}}, 7},
        {"SharedFace", box({0, 0, 0}, {1, 1, 1}).add(box({1, 0, 0}, {2, 1, 1})), {{beyond(Z, 0.5)}}, 2},
        {"SharedFaceAlongThePlane",
         box({0, 0, 0}, {1, 1, 1}).add(box({1, 0, 0}, {2, 1, 1})),
         {{beyond(X, 1)}},
         1},
        {"InsideOut", cube(1).insideOut(), {{beyond(Z, 0.25)}}, 4},
        {"Corner", cube(1), {{beyond(X, 0), beyond(Y, 0), beyond(Z, 0)}}, 3},
        {"CornerAndFarAway", cube(1), {{beyond(X, 0), beyond(Y, 0), beyond(Z, 5)}}, 0},
        {"TwoInARow", cube(1), {{beyond(X, 0.5)}, {beyond(Y, 0.5)}}, 2 * (2 * 1.5)},
        {"OneSwallowsTheOther", cube(1), {{beyond(X, 0.5)}, {beyond(X, 0)}}, 4},
        {"SamePlaneTwiceInASection", cube(1), {{beyond(X, 0.5), beyond(X, 0.5)}}, 8},
        {"Slab", cube(1), {{beyond(X, 0.5)}, {beyond(X * -1, 0.5)}}, 8},
        {"Groove", cube(1), {{beyond(X, -0.5), beyond(X * -1, -0.5)}}, 8},
        {"SixteenPlanes", box({-1, -1, 0}, {1, 1, 2}), sixteen(0.5), 16 * side16 * 2},
        {"SixteenSections", cube(1),
         [] {
             std::vector<CutSection> sections;
             for (int i = 0; i < 16; ++i) sections.push_back({beyond(X, 0.9 - 0.1 * i)});
             return sections;
         }(),
         4},
        {"FarFromTheOrigin", box({1000, 1000, 1000}, {1002, 1002, 1002}), {{beyond(Z, 1001)}}, 4},
    };
}

INSTANTIATE_TEST_SUITE_P(Bodies, CapArea, testing::ValuesIn(areaCases()),
                         [](auto const& row) { return std::string(row.param.name); });

TEST(Caps, LieInTheirPlaneAndLookAwayFromWhatIsKept)
{
    CapFiller filler;
    CutPlane const plane{{1, 2, 3}, -0.4};
    std::vector<CutSection> const sections{{plane}};
    Caps const caps = makeCaps(ball({}, 1, 20).mesh(), sections, filler);
    ASSERT_EQ(caps.faces.size(), 1u);
    auto const& t = caps.faces[0].triangles;
    for (std::size_t i = 0; i + 2 < t.size(); i += 3) {
        EXPECT_NEAR(plane.at(t[i]), 0, 1e-6);
        EXPECT_GT(dot(cross(t[i + 1] - t[i], t[i + 2] - t[i]), plane.normal), -1e-12);
    }
    EXPECT_GT(dot(caps.faces[0].normal, plane.normal), 0);
}

double edgeLength(Caps const& caps)
{
    double sum = 0;
    for (std::size_t i = 0; i + 1 < caps.edges.size(); i += 2)
        sum += length(caps.edges[i + 1] - caps.edges[i]);
    return sum;
}

TEST(Caps, EdgesGoRoundTheCut)
{
    CapFiller filler;
    std::vector<CutSection> const across{{beyond(Z, 0.25)}};
    EXPECT_NEAR(edgeLength(makeCaps(cube(1).mesh(), across, filler)), 8, 1e-6);
    // A sheet has no cap, but where it is cut there is a line.
    Body sheet = cube(1);
    sheet.triangles.resize(6 * 4); // without the faces at the ends of x
    EXPECT_NEAR(edgeLength(makeCaps(sheet.mesh(), across, filler)), 4, 1e-6);
    // Only what neither section takes away.
    std::vector<CutSection> const both{{beyond(X, 0.5)}, {beyond(Y, 0.5)}};
    EXPECT_NEAR(edgeLength(makeCaps(cube(1).mesh(), both, filler)), 2 * (2 + 1.5 + 1.5), 1e-6);
}

TEST(Caps, SmallCracksCountAsRounding)
{
    Body cracked = cube(1);
    for (std::size_t i = 0; i < 4; ++i) cracked.points[i][0] *= 1.0000003f; // one face a little off
    EXPECT_NEAR(capArea(cracked.mesh(), {{beyond(Z, 0.25)}}), 4, 1e-4);
    Body gaping = cube(1);
    for (std::size_t i = 0; i < 4; ++i) gaping.points[i][2] -= 0.01f;
    EXPECT_EQ(capArea(gaping.mesh(), {{beyond(Z, 0.25)}}), 0);
    EXPECT_NEAR(capArea(gaping.mesh(0.02), {{beyond(Z, 0.25)}}), 4, 1e-4);
}

TEST(Caps, AreTheSameThroughAMirror)
{
    // The mesh stays, the plane comes back through the matrix: a mirror in x, a stretch and a shift.
    Mat4 const matrix{-2, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 5, 0, 0, 1};
    CutPlane const world = beyond(X, 6);
    std::vector<CutSection> const local = pulledBack(std::vector<CutSection>{{world}}, matrix);
    CutMesh const mesh = cube(1).mesh();
    EXPECT_NEAR(capArea(mesh, local), 4, 1e-6);
    Vec3 const kept{-0.4, 0, 0}, gone{-0.6, 0, 0}; // at 5.8 and 6.2 in the world
    EXPECT_TRUE(isKept(local, kept));
    EXPECT_FALSE(isKept(local, gone));
    CutPlane const there = pushedForward(local[0][0], matrix);
    EXPECT_NEAR(there.at({6, 3, 4}), 0, 1e-9);
    EXPECT_GT(there.at({7, 0, 0}), 0);
}

TEST(CutReach, TellsBoxesApart)
{
    Box box;
    box.add(0, 0, 0);
    box.add(1, 1, 1);
    auto reach = [&](std::vector<CutSection> const& sections) { return reachOf(sections, box); };
    EXPECT_EQ(reach({}), CutReach::Whole);
    EXPECT_EQ(reach({{}}), CutReach::Whole);
    EXPECT_EQ(reach({{beyond(X, 2)}}), CutReach::Whole);
    EXPECT_EQ(reach({{beyond(X, 0.5)}}), CutReach::Cut);
    EXPECT_EQ(reach({{beyond(X, -1)}}), CutReach::Gone);
    EXPECT_EQ(reach({{beyond(X, -1), beyond(Y, 3)}}), CutReach::Whole);
    EXPECT_EQ(reach({{beyond(X, 0.5)}, {beyond(Z, -1)}}), CutReach::Gone);
}

TEST(CutMesh, MeetsFewTrianglesOfMany)
{
    CutMesh const mesh = ball({}, 1, 200).mesh();
    std::size_t met = 0;
    mesh.near(beyond(Z, 0.37), 0, [&](CutMesh::Triangle const&) { ++met; });
    EXPECT_GT(met, 200u);
    EXPECT_LT(met, mesh.triangleCount() / 20);
}

} // namespace
} // namespace HPS::render
