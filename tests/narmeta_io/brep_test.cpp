#include "read_support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numbers>
#include <set>

using namespace ReadSupport;

namespace
{
ZELReference const& referenceNamed(ZELProductStructure const& model, std::wstring const& name)
{
    for (auto const& reference : model.GetReferences())
        if (reference->GetReferenceName() == name) return *reference;
    throw std::runtime_error("no such reference");
}
} // namespace

TEST(BrepReading, ACubeIsClosedTurnedOutwardsAndTenLong)
{
    auto const file = modelFolder() / "brep/mayo_cube.brep";
    REQUIRE_MODEL_FILE(file);
    auto const read = ReadSupport::read(file);
    auto const& bodies = read->model.GetReferences().at(0)->GetBodies();
    ASSERT_EQ(bodies.size(), 1u);
    EXPECT_NEAR(volumeOf(bodies[0]), 1000.0, 1e-2);
    EXPECT_EQ(bodies[0].edges.size(), 12u);
    EXPECT_EQ(bodies[0].vertices.size(), 8u);
}

TEST(BrepReading, LengthsComeInMillimetresAndColoursAsBytes)
{
    auto const file = modelFolder() / "parts/red_cube_blue_cylinder.step"; // written in metres
    REQUIRE_MODEL_FILE(file);
    auto const read = ReadSupport::read(file);
    auto const& cube = referenceNamed(read->model, L"red_cube").GetBodies().at(0);
    EXPECT_NEAR(volumeOf(cube), 1000.0, 1e-2);
    ASSERT_TRUE(cube.faces.at(0).colour);
    EXPECT_EQ(*cube.faces.at(0).colour, (Colour{221, 82, 40}));
    auto const& cylinder = referenceNamed(read->model, L"blue_cylinder").GetBodies().at(0);
    EXPECT_EQ(*cylinder.faces.at(0).colour, (Colour{59, 97, 180}));
    // A polygon of at least 12 corners inside the circle of radius 5, ten high.
    EXPECT_GT(volumeOf(cylinder), 0.95 * 785.4);
    EXPECT_LT(volumeOf(cylinder), 785.4);
}

TEST(BrepReading, TrianglesKeepTheDistanceAndTheAngleAskedFor)
{
    auto const file = modelFolder() / "parts/red_cube_blue_cylinder.step";
    REQUIRE_MODEL_FILE(file);
    // The triangles of a cylinder lie inside it, the more so the coarser they are.
    auto const volumeWith = [&](double share, double degrees) {
        ZelIO io;
        io.SetTessellation(share, degrees);
        ZELProductStructure model;
        EXPECT_TRUE(io.Read(file.wstring().c_str(), &model, nullptr));
        return volumeOf(referenceNamed(model, L"blue_cylinder").GetBodies().at(0));
    };
    auto const fine = volumeWith(1e-4, 3), byDistance = volumeWith(0.02, 90), byAngle = volumeWith(0.5, 10);
    EXPECT_NEAR(fine, std::numbers::pi * 5 * 5 * 10, 0.1);
    EXPECT_LT(byAngle, fine - 1);
    EXPECT_LT(byDistance, byAngle - 1);
    EXPECT_NEAR(volumeWith(0.002, 18), byAngle, 0.1 * byAngle);
}

TEST(BrepReading, EdgesLieOnPointsOfTheFaces)
{
    auto const file = modelFolder() / "nist/nist_ctc_01_asme1_ap242-e1.stp";
    REQUIRE_MODEL_FILE(file);
    auto const read = ReadSupport::read(file);
    for (auto const& body : read->model.GetReferences().at(0)->GetBodies()) {
        std::set<std::array<float, 3>> points;
        for (std::size_t i = 0; i < body.points.size(); i += 3)
            points.insert({body.points[i], body.points[i + 1], body.points[i + 2]});
        if (body.faces.empty()) continue;
        for (auto const& edge : body.edges) {
            auto const line = body.PointsOf(edge);
            ASSERT_GE(edge.pointCount, 2u);
            for (std::size_t i = 0; i < line.size(); i += 3)
                EXPECT_TRUE(points.contains({line[i], line[i + 1], line[i + 2]}));
        }
    }
}

TEST(BrepReading, FreeCurvesAndHiddenShapesStay)
{
    auto const curve = modelFolder() / "brep/mayo_bezier_curve.brep";
    REQUIRE_MODEL_FILE(curve);
    auto const wire = ReadSupport::read(curve);
    auto const& body = wire->model.GetReferences().at(0)->GetBodies().at(0);
    EXPECT_TRUE(body.faces.empty());
    ASSERT_EQ(body.edges.size(), 1u);
    EXPECT_GT(body.edges[0].pointCount, 3u);
    EXPECT_EQ(body.vertices.size(), 2u);

    auto const part = ReadSupport::read(modelFolder() / "nist/nist_ctc_01_asme1_ap203.stp");
    ASSERT_EQ(part->model.GetReferences().size(), 1u);
    std::size_t hiddenEdges = 0;
    for (auto const& each : part->model.GetReferences()[0]->GetBodies())
        if (each.hidden) hiddenEdges += each.edges.size();
    EXPECT_EQ(hiddenEdges, 78u);
}

TEST(BrepReading, OnePartIsMeshedOnceHoweverOftenItIsUsed)
{
    auto const file = modelFolder() / "asm/ublox_JODY-W4.step";
    REQUIRE_MODEL_FILE(file);
    auto const read = ReadSupport::read(file);
    EXPECT_EQ(read->model.GetCounts().bodies, 45u);
    EXPECT_EQ(read->model.GetUniqueReferencesCount(), 45u);
}

TEST(BrepReading, NamesInAnOldEncodingAreRepaired)
{
    auto const file = modelFolder() / "parts/sofle_SOLENOID.STEP";
    REQUIRE_MODEL_FILE(file);
    auto const read = ReadSupport::read(file);
    auto const& stem = referenceNamed(read->model, L"v\u00E1stago");
    EXPECT_TRUE(stem.IsPart());
    std::wstring pid;
    ASSERT_TRUE(stem.GetPID(pid));
    EXPECT_TRUE(pid.starts_with(L"v%C3%A1stago#")) << std::string(pid.begin(), pid.end());
}

TEST(BrepReading, IdsComeFromTheFilesWordsNotItsName)
{
    auto const file = modelFolder() / "parts/red_cube_blue_cylinder.step";
    REQUIRE_MODEL_FILE(file);
    TemporaryFolder const folder;
    auto const renamed = folder.write("other.xyz", bytesOf(file));
    EXPECT_EQ(identityOf(read(file)->model), identityOf(read(renamed)->model));
}

TEST(BrepReading, AnOccurrenceWithoutANameBearsThatOfItsPart)
{
    auto const file = modelFolder() / "asm/koch_leader/Leader_Arm.STEP";
    REQUIRE_MODEL_FILE(file);
    auto const done = read(file);
    std::shared_ptr<ZELInstance> child;
    ASSERT_TRUE(done->model.GetRootInstance(0, child));
    EXPECT_EQ(child->GetInstanceName(), child->GetReference()->GetReferenceName());
}

TEST(BrepReading, AMissingExternalFileLeavesAnEmptyReference)
{
    auto const source = modelFolder() / "asm/koch_leader";
    REQUIRE_MODEL_FILE(source);
    TemporaryFolder const folder;
    for (auto const& entry : std::filesystem::directory_iterator(source))
        if (entry.path().filename() != "Leader_Base.STEP")
            std::filesystem::copy_file(entry.path(), folder.path() / entry.path().filename());
    auto const read = ReadSupport::read(folder.path() / "Leader_Arm.STEP");
    ASSERT_EQ(read->result.outcome, IoOutcome::Done);
    std::size_t empty = 0;
    for (auto const& reference : read->model.GetReferences()) {
        if (!reference->IsEmpty()) continue;
        ++empty;
        EXPECT_EQ(reference->GetStorageName(), L"Leader_Base.STEP");
        EXPECT_EQ(reference->GetReferenceName(), L"Leader_Base");
        EXPECT_TRUE(reference->GetBodies().empty());
    }
    EXPECT_EQ(empty, 1u);
    EXPECT_EQ(read->model.GetRootInstancesCount(), 17u);
    EXPECT_TRUE(std::ranges::any_of(read->result.warnings, [](std::wstring const& text) {
        return text.find(L"Leader_Base.STEP") != std::wstring::npos;
    }));
}
