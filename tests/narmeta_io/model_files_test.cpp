#include "read_support.h"

#include <gtest/gtest.h>

#include <algorithm>

#include <cmath>
#include <set>

using namespace ReadSupport;

namespace
{
/// What a real file must come to. References, instances and faces are those of the file's own entities.
struct ModelFile {
    char const* path;
    std::size_t roots;
    std::size_t references;
    std::size_t instances;
    std::size_t faces;
    bool hasColours;
    bool isMesh = false;
};

ModelFile const ModelFiles[] = {
    {"nist/dt4sm_simple_sign.stp", 1, 1, 1, 9, true},
    {"nist/nist_ctc_01_asme1_ap203.stp", 1, 1, 1, 139, true},
    {"nist/nist_ctc_01_asme1_ap242-e1.stp", 1, 1, 1, 117, true},
    {"nist/nist_ctc_05_asme1_ap242-e1.stp", 1, 1, 1, 156, true},
    {"nist/nist_ftc_07_asme1_ap242-e2.stp", 1, 1, 1, 306, true},
    {"nist/nist_stc_07_asme1_ap242-e3.stp", 1, 1, 1, 306, true},
    {"asm/koch_leader/Leader_Arm.STEP", 17, 10, 17, 1983, false},
    {"asm/low_cost_robot_follower_arm.step", 11, 37, 126, 1480, true},
    {"asm/ublox_JODY-W4.step", 142, 230, 613, 341, true},
    {"parts/red_cube_blue_cylinder.step", 2, 2, 2, 9, true},
    {"parts/sofle_SOLENOID.STEP", 9, 9, 9, 262, true},
    {"iges/camera_mount.iges", 1, 1, 1, 145, true},
    {"brep/mayo_cube.brep", 1, 1, 1, 6, false},
    {"gltf/car.glb", 7, 7, 7, 9, true, true},
    {"gltf/christmas_challenge.gltf", 101, 2, 101, 3, true, true},
    {"gltf/FlightHelmet/FlightHelmet.gltf", 6, 6, 6, 6, true, true},
    {"mesh/cube_with_materials.obj", 1, 1, 1, 5, true, true},
    {"mesh/low_cost_robot_gripper_static_part.stl", 1, 1, 1, 1, false, true},
};

struct Contents {
    std::size_t faces = 0, triangles = 0;
    bool hasColours = false;
};

Contents contentsOf(ZELProductStructure const& model)
{
    Contents contents;
    for (auto const& reference : model.GetReferences()) {
        for (auto const& body : reference->GetBodies()) {
            contents.hasColours |= body.colour.has_value();
            for (auto const& face : body.faces) contents.hasColours |= face.colour.has_value();
        }
    }
    auto const counts = model.GetCounts();
    contents.faces = counts.faces;
    contents.triangles = counts.triangles;
    for (auto const& mesh : meshesOf(model)) {
        for (auto const& face : mesh->GetFaces()) {
            ++contents.faces;
            contents.hasColours |= face->GetAttributes() && face->GetAttributes()->GetColour();
            for (auto const& polygon : face->GetPolygons())
                contents.triangles += polygon.GetIndices().size() / 3;
        }
    }
    return contents;
}

void expectSoundBody(BrepBody const& body)
{
    ASSERT_EQ(body.points.size(), body.normals.size());
    std::size_t against = 0;
    for (auto const& face : body.faces) {
        auto const points = body.PointsOf(face), normals = body.NormalsOf(face);
        auto const triangles = body.TrianglesOf(face);
        for (std::size_t i = 0; i < normals.size(); i += 3)
            ASSERT_NEAR(std::hypot(normals[i], normals[i + 1], normals[i + 2]), 1.0f, 1e-3f);
        double sum = 0.0;
        for (std::size_t t = 0; t < triangles.size(); t += 3) {
            ASSERT_LT(std::max({triangles[t], triangles[t + 1], triangles[t + 2]}), face.pointCount);
            auto const a = 3 * triangles[t], b = 3 * triangles[t + 1], c = 3 * triangles[t + 2];
            std::array<double, 3> u, v;
            for (std::size_t k = 0; k < 3; ++k) {
                u[k] = double(points[b + k]) - points[a + k];
                v[k] = double(points[c + k]) - points[a + k];
            }
            for (std::size_t k = 0; k < 3; ++k) {
                auto const area = u[(k + 1) % 3] * v[(k + 2) % 3] - u[(k + 2) % 3] * v[(k + 1) % 3];
                sum += area * (normals[a + k] + normals[b + k] + normals[c + k]);
            }
        }
        if (sum < 0.0) ++against;
    }
    EXPECT_EQ(against, 0u) << "faces whose triangles turn against their normals";
}

class ModelFileTest : public testing::TestWithParam<ModelFile>
{
};
} // namespace

TEST_P(ModelFileTest, HasWhatTheFileHolds)
{
    auto const& expected = GetParam();
    auto const file = modelFolder() / expected.path;
    REQUIRE_MODEL_FILE(file);
    auto const read = ReadSupport::read(file);
    ASSERT_EQ(read->result.outcome, IoOutcome::Done);
    EXPECT_EQ(read->result.graphical, expected.isMesh);
    auto const& model = read->model;
    EXPECT_EQ(model.GetRootInstancesCount(), expected.roots);
    EXPECT_EQ(model.GetReferences().size(), expected.references);
    auto instances = model.GetRootInstancesCount();
    for (auto const& reference : model.GetReferences()) {
        instances += reference->GetInstancesCount();
        EXPECT_FALSE(reference->GetReferenceName().empty());
        EXPECT_FALSE(reference->GetReferenceName().starts_with(L"=>["));
        for (auto const& body : reference->GetBodies()) expectSoundBody(body);
    }
    EXPECT_EQ(instances, expected.instances);
    auto const contents = contentsOf(model);
    EXPECT_EQ(contents.faces, expected.faces);
    EXPECT_GE(contents.triangles, 2 * contents.faces - 2);
    EXPECT_EQ(contents.hasColours, expected.hasColours);
}

TEST_P(ModelFileTest, HasTheSameIdsOnEveryRead)
{
    auto const file = modelFolder() / GetParam().path;
    REQUIRE_MODEL_FILE(file);
    auto const first = identityOf(read(file)->model), second = identityOf(read(file)->model);
    EXPECT_EQ(first, second);
    std::set<Id> const distinct(first.ids.begin(), first.ids.end());
    EXPECT_EQ(distinct.size(), first.ids.size());
    std::set<std::wstring> const pids(first.pids.begin(), first.pids.end());
    EXPECT_EQ(pids.size(), first.pids.size());
    for (auto const& pid : first.pids)
        for (auto const c : pid) EXPECT_TRUE(c > 0x20 && c < 0x7F && c != L'/' && c != L'\\') << int(c);
}

TEST_P(ModelFileTest, ShowsTheSameFacesInGraphicalMode)
{
    auto const file = modelFolder() / GetParam().path;
    REQUIRE_MODEL_FILE(file);
    auto const read = ReadSupport::read(file, true);
    ASSERT_EQ(read->result.outcome, IoOutcome::Done);
    EXPECT_TRUE(read->result.graphical);
    EXPECT_EQ(read->model.GetCounts().bodies, 0u);
    std::size_t faces = 0;
    for (auto const& mesh : meshesOf(read->model)) {
        for (auto const& face : mesh->GetFaces()) {
            ++faces;
            ASSERT_EQ(face->GetPoints().size(), face->GetNormals().size());
            for (auto const index : face->GetPolygons().front().GetIndices()) {
                ASSERT_EQ(index % 3, 0);
                ASSERT_LT(static_cast<std::size_t>(index), face->GetPoints().size());
            }
        }
    }
    std::size_t hidden = 0;
    auto const bodies = ReadSupport::read(file);
    for (auto const& reference : bodies->model.GetReferences())
        for (auto const& body : reference->GetBodies()) hidden += body.hidden ? body.faces.size() : 0;
    EXPECT_EQ(faces + hidden, GetParam().faces);
}

INSTANTIATE_TEST_SUITE_P(Files, ModelFileTest, testing::ValuesIn(ModelFiles), [](auto const& test) {
    auto name = std::filesystem::path(test.param.path).stem().string();
    std::ranges::replace_if(
        name, [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); }, '_');
    return name;
});
