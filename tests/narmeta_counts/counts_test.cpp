// Models beside what their files say in so many words, counted without any reader.
#include "file_counts.h"

#include <narmeta/io/ZelIO.h>

#include <gtest/gtest.h>

#include <algorithm>
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
    {"nist/dt4sm_simple_sign.stp", "dimensions", 2, "drawn only, known by the names of the drawings"},
    {"nist/dt4sm_simple_sign.stp", "notes", -2, "the same two"},
    {"nist/nist_ctc_01_asme1_ap203.stp", "dimensions", 10, "drawn only, known by the names of the drawings"},
    {"nist/nist_ctc_01_asme1_ap203.stp", "tolerances", 6, "drawn only"},
    {"nist/nist_ctc_01_asme1_ap203.stp", "datums", 3, "drawn only"},
    {"nist/nist_ctc_01_asme1_ap203.stp", "notes", -19, "all of these"},
    {"nist/nist_ctc_05_asme1_ap242-e1.stp", "dimensions", 2, "drawn only, beside those with a meaning"},
    {"nist/nist_ctc_05_asme1_ap242-e1.stp", "notes", -2, "the same two"},
    {"nist/nist_stc_07_asme1_ap242-e3.stp", "dimensions", 4, "one size drawn by five annotations"},
    {"nist/nist_stc_07_asme1_ap242-e3.stp", "views", 4, "planes with annotations that have no picture"},
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
        for (auto const& [name, material] : NarMetaVisu::MaterialContainer::Instance().GetMaterials())
            if (isTextured(material->GetSettings())) ++Found["textured materials"];
    }

    static bool isTextured(NarMetaVisu::Material::Settings const& look)
    {
        auto const lists = {&look.diffuseColorTextures,  &look.diffuseCoeffTextures,
                            &look.ambientCoeffTextures,  &look.specularColorTextures,
                            &look.specularCoeffTextures, &look.bumpColorTextures,
                            &look.bumpCoeffTextures,     &look.normalTextures,
                            &look.emissiveColorTextures, &look.emissiveCoeffTextures};
        return std::ranges::any_of(lists, [](auto const* list) { return !list->empty(); });
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
        Found["edges"] += static_cast<int>(body.edges.size());
        Found["vertices"] += static_cast<int>(body.vertices.size());
        if (body.hidden) Found["hidden faces"] += static_cast<int>(body.faces.size());
        if (body.hidden && body.faces.empty()) Found["hidden curves"] += static_cast<int>(body.edges.size());
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
        for (auto const& mesh : meshes) {
            Found["faces"] += static_cast<int>(mesh->GetFaces().size());
            for (auto const& face : mesh->GetFaces())
                for (auto const& polygon : face->GetPolygons())
                    Found["triangles"] += static_cast<int>(polygon.GetIndices().size() / 3);
        }
        std::vector<std::shared_ptr<NarMetaVisu::PmiRep>> pictures;
        reference.GetSG()->GetPmis(pid, pictures);
        Found["drawn"] += static_cast<int>(pictures.size());
        for (auto const& picture : pictures)
            if (isHidden(reference, picture->GetHashedID())) ++Found["hidden drawn"];
    }

    static bool isHidden(ZELReference const& reference, NarMeta::Id annotation)
    {
        if (!reference.GetPmi()) return false;
        auto const hidden = reference.GetPmi()->GetHiddenAnnotations();
        return std::ranges::find(hidden, annotation) != hidden.end();
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
                Found["captures"] += static_cast<int>(set->GetCaptures().size());
                for (auto const& view : set->GetViews()) {
                    // What no drawing holds stands together under a name of ours.
                    if (view->GetName() != L"Without view") ++Found["views"];
                    add("notes", view->GetNotes());
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
    NarMetaVisu::MaterialContainer::Instance().Clear();
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
    testing::Values(
        "nist/dt4sm_simple_sign.stp", "nist/nist_ctc_01_asme1_ap203.stp",
        "nist/nist_ctc_01_asme1_ap242-e1.stp", "nist/nist_ctc_05_asme1_ap242-e1.stp",
        "nist/nist_ftc_07_asme1_ap242-e2.stp", "nist/nist_stc_07_asme1_ap242-e3.stp",
        "asm/koch_leader/Leader_Arm.STEP", "asm/koch_leader/Leader_Base.STEP",
        "asm/koch_leader/Leader_Elbow_To_Wrist.STEP", "asm/koch_leader/Leader_Elbow_To_Wrist_Extension.STEP",
        "asm/koch_leader/Leader_Gripper_Handle.STEP", "asm/koch_leader/Leader_Gripper_Trigger.STEP",
        "asm/koch_leader/Leader_Platform.STEP", "asm/koch_leader/Leader_Robotis_FPX330_H101.STEP",
        "asm/koch_leader/Leader_Shoulder_To_Elbow.STEP",
        "asm/koch_leader/Robotis_DYNAMIXEL_XL330_M077_T.STEP", "asm/koch_leader/Robotis_FPX330_S101.STEP",
        "asm/low_cost_robot_follower_arm.step", "asm/ublox_JODY-W4.step", "parts/red_cube_blue_cylinder.step",
        "parts/sofle_SOLENOID.STEP", "iges/camera_mount.iges", "gltf/car.glb",
        "gltf/christmas_challenge.gltf", "gltf/FlightHelmet/FlightHelmet.gltf",
        "mesh/cube_with_materials.obj", "mesh/low_cost_robot_gripper_static_part.stl", "brep/mayo_cube.brep",
        "brep/mayo_bezier_curve.brep"));
