// Models beside what their files say in so many words, counted without any reader.
#include "file_counts.h"

#include <narmeta/io/ZelIO.h>

#include <gtest/gtest.h>

#include <set>
#include <string_view>

using namespace NarMetaInfra;

namespace
{
/// A difference that has its reason.
struct Difference {
    char const* file;
    char const* what;
    int ofModel; ///< more in the model than in the file's words
    char const* reason;
};

Difference const Differences[] = {
    {"nist/dt4sm_simple_sign.stp", "dimensions", 2, "drawn only"},
    {"nist/nist_ctc_01_asme1_ap203.stp", "dimensions", 10, "drawn only, known by the names of the drawings"},
    {"nist/nist_ctc_01_asme1_ap203.stp", "tolerances", 6, "drawn only"},
    {"nist/nist_ctc_01_asme1_ap203.stp", "datums", 3, "drawn only"},
    {"nist/nist_ctc_05_asme1_ap242-e1.stp", "dimensions", 2, "drawn only, beside those with a meaning"},
    {"nist/nist_stc_07_asme1_ap242-e3.stp", "dimensions", 6, "drawn only, beside those with a meaning"},
};

std::string textOf(Colour const& colour)
{
    return colourText(colour.red / 255.0, colour.green / 255.0, colour.blue / 255.0);
}

class ModelCounter
{
public:
    explicit ModelCounter(ZELProductStructure const& model)
    {
        for (auto const& root : model.GetRootInstances()) addInstance(*root);
        for (auto const& reference : model.GetReferences()) {
            ++Found["references"];
            for (auto const& instance : reference->GetInstances()) addInstance(*instance);
            for (auto const& body : reference->GetBodies()) addBody(body);
            if (reference->GetSG()) addMeshes(*reference);
            if (reference->GetPmi()) addAnnotations(*reference->GetPmi());
        }
        if (model.GetPMI()) addAnnotations(*model.GetPMI());
        Found["colours"] = static_cast<int>(Colours.size());
    }

    Counts const& found() const { return Found; }

private:
    void addInstance(ZELInstance const& instance)
    {
        ++Found["instances"];
        if (auto const colour = instance.GetColours().GetColour()) Colours.insert(textOf(*colour));
    }

    void addBody(BrepBody const& body)
    {
        if (body.faces.empty()) return; // curves and points by themselves
        ++Found["bodies"];
        Found["faces"] += static_cast<int>(body.faces.size());
        if (body.colour) Colours.insert(textOf(*body.colour));
        for (auto const& face : body.faces)
            if (face.colour) Colours.insert(textOf(*face.colour));
    }

    void addMeshes(ZELReference const& reference)
    {
        std::wstring pid;
        std::vector<std::shared_ptr<NarMetaVisu::MeshRep>> meshes;
        if (reference.GetPID(pid)) reference.GetSG()->GetMeshes(pid, meshes);
        for (auto const& mesh : meshes) Found["faces"] += static_cast<int>(mesh->GetFaces().size());
    }

    template <typename List> void add(char const* what, List const& list)
    {
        for (auto const& one : list)
            if (Annotations.insert(one->GetHashedID()).second) ++Found[what];
    }

    void addAnnotations(NarMetaPmi::PMIContainer const& container)
    {
        for (auto const& [pid, sets] : container.GetOwners()) {
            for (auto const& set : sets) {
                // A camera of the file is a capture; views are made of planes of annotations too.
                Found["views"] += static_cast<int>(set->GetCaptures().size());
                for (auto const& view : set->GetViews()) {
                    add("dimensions", view->GetDimensions());
                    add("tolerances", view->GetGDTs());
                    add("datums", view->GetDatums());
                    add("datum targets", view->GetDatumTargets());
                }
            }
        }
    }

    Counts Found;
    std::set<std::string> Colours;
    std::set<NarMeta::Id> Annotations;
};

class CountsTest : public testing::TestWithParam<char const*>
{
};
} // namespace

TEST_P(CountsTest, OfTheModelAreThoseOfTheFile)
{
    auto const file = std::filesystem::path(ZEL_SOURCE_DIR "/../shared/models") / GetParam();
    if (!std::filesystem::exists(file)) GTEST_SKIP() << "no model file " << file;
    auto const counted = countFile(file);
    ASSERT_FALSE(counted.empty());
    ZelIO io;
    ZELProductStructure model;
    ASSERT_TRUE(io.Read(file.wstring().c_str(), &model, nullptr));
    auto const found = ModelCounter(model).found();
    for (auto const& [what, count] : counted) {
        auto expected = count;
        for (auto const& difference : Differences)
            if (difference.file == std::string_view(GetParam()) && difference.what == what)
                expected += difference.ofModel;
        EXPECT_EQ(found.contains(what) ? found.at(what) : 0, expected) << what;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Files, CountsTest,
    testing::Values("nist/dt4sm_simple_sign.stp", "nist/nist_ctc_01_asme1_ap203.stp",
                    "nist/nist_ctc_01_asme1_ap242-e1.stp", "nist/nist_ctc_05_asme1_ap242-e1.stp",
                    "nist/nist_ftc_07_asme1_ap242-e2.stp", "nist/nist_stc_07_asme1_ap242-e3.stp",
                    "asm/koch_leader/Leader_Platform.STEP", "asm/koch_leader/Robotis_FPX330_S101.STEP",
                    "asm/low_cost_robot_follower_arm.step", "asm/ublox_JODY-W4.step",
                    "parts/red_cube_blue_cylinder.step", "parts/sofle_SOLENOID.STEP",
                    "iges/camera_mount.iges", "gltf/car.glb", "gltf/christmas_challenge.gltf",
                    "gltf/FlightHelmet/FlightHelmet.gltf"));
