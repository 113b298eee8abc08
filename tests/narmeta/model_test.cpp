#include "full_model.h"
#include "model_check.h"

#include <gmock/gmock.h>

#include <cmath>
#include <set>

// The scene library's class, which the model only passes on.
namespace HPS
{
class Key
{
public:
    NarMeta::Id id = 0;
};
class KeyPath
{
};
} // namespace HPS

using namespace NarMetaInfra;
using NarMeta::HashId;

namespace
{

TEST(HashIdTest, IsStableAndApartFromGroupNumbers)
{
    // Hosts keep ids beside their files: the function must never change.
    EXPECT_EQ(HashId("full.arm.1"), 12369352892562007755ULL);
    EXPECT_EQ(HashId("full.arm.1"), HashId(L"full.arm.1"));
    EXPECT_EQ(HashId("Größe 🚀"), HashId(L"Größe 🚀"));
    EXPECT_GE(HashId(""), NarMeta::FirstObjectId);
    std::set<NarMeta::Id> seen;
    for (int i = 0; i < 20'000; ++i) {
        seen.insert(HashId("part." + std::to_string(i)));
        seen.insert(HashId(HashId("part"), "face", static_cast<NarMeta::Id>(i)));
        seen.insert(HashId(HashId("part"), "edge", static_cast<NarMeta::Id>(i)));
    }
    EXPECT_EQ(seen.size(), 60'000u);
    EXPECT_GE(*seen.begin(), NarMeta::FirstObjectId);
}

class ModelTest : public testing::Test
{
protected:
    void SetUp() override { FillFullModel(model_); }

    ZELProductStructure model_;
};

TEST_F(ModelTest, FindsInstancesAndParts)
{
    std::shared_ptr<ZELInstance> instance;
    std::shared_ptr<ZELReference> part;
    EXPECT_TRUE(model_.GetInstance(HashId("arm.screw.1"), instance));
    EXPECT_FALSE(model_.GetInstance(10005, instance));
    EXPECT_TRUE(model_.GetPartReference(HashId("screw"), part));
    EXPECT_TRUE(model_.GetPartReference(HashId("arm.screw.1"), part));
    EXPECT_EQ(part->GetReferenceName(), L"Schraube");
    EXPECT_FALSE(model_.GetPartReference(HashId("full.arm.1"), part));
    EXPECT_FALSE(model_.GetPartReference(HashId("arm.lost.1"), part));
    EXPECT_EQ(model_.GetUniqueReferencesCount(), 2u);
    EXPECT_FALSE(model_.GetUniqueReference(2, part));
    EXPECT_TRUE(model_.IsAssembly());
    EXPECT_EQ(model_.GetOccurrencesCount(*part), 3u);
}

TEST_F(ModelTest, KnowsWhichInstancesAreShared)
{
    EXPECT_TRUE(model_.IsRootInstance(HashId("full.arm.1")));
    EXPECT_FALSE(model_.IsRootInstance(HashId("arm.screw.1")));
    EXPECT_TRUE(model_.IsInstanceReferencedFromSubAssembly(HashId("arm.screw.1"))) << "the arm is used twice";
    EXPECT_FALSE(model_.IsInstanceReferencedFromSubAssembly(HashId("full.screw.1")));
    model_.RemoveRootInstance(1);
    EXPECT_FALSE(model_.IsInstanceReferencedFromSubAssembly(HashId("arm.screw.1"))) << "now it is used once";
}

TEST_F(ModelTest, ListsAssembliesBehindTheirContents)
{
    auto wrist = model_.AddReference(ZELReference::Kind::Assembly, L"wrist");
    auto const arm = model_.GetRootInstances()[0]->GetReference();
    ASSERT_EQ(model_.GetSubAssemblyReferences().size(), 1u);
    arm->AddInstance(wrist, L"arm.wrist.1");
    EXPECT_THAT(model_.GetSubAssemblyReferences(), testing::ElementsAre(wrist, arm))
        << "an added instance is noticed";
}

TEST_F(ModelTest, ResolvesLinkedEntities)
{
    std::vector<std::shared_ptr<ZELInstance>> path;
    std::shared_ptr<ZELReference> holder;
    ASSERT_TRUE(model_.GetReference({{L"full.arm.2", L"arm.screw.1"}, L"top face"}, path, holder));
    EXPECT_EQ(path.size(), 2u);
    EXPECT_EQ(holder->GetReferenceName(), L"Schraube");
    ASSERT_TRUE(model_.GetReference(path[0]->GetReference(), {{L"arm.screw.1"}, L"top face"}, path, holder));
    EXPECT_EQ(path.size(), 1u);
    EXPECT_FALSE(model_.GetReference({{L"full.arm.2", L"nobody"}, L"top face"}, path, holder));
    EXPECT_EQ(path.size(), 1u) << "nothing is written on failure";

    HPS::Key key;
    EXPECT_FALSE(holder->GetLinkedEntityKey({{}, L"top face"}, key)) << "no scene yet";
    holder->SetKeyFinder([](NarMeta::Id id, HPS::Key& out) {
        out.id = id;
        return true;
    });
    ASSERT_TRUE(holder->GetLinkedEntityKey({{}, L"top face"}, key));
    EXPECT_EQ(key.id, holder->GetBodies()[0].faces[3].id);
    EXPECT_FALSE(holder->GetLinkedEntityKey({{}, L"bottom face"}, key));
    std::shared_ptr<PMIAnnotation> annotation;
    EXPECT_TRUE(holder->GetPMIKey(5'000'003, annotation, key, PMIAnnotationType::Datum));
    EXPECT_EQ(annotation->GetName(), L"A");
    EXPECT_FALSE(holder->GetPMIAnnotation(HPS::KeyPath(), 5'000'003, annotation, PMIAnnotationType::Note));
}

TEST_F(ModelTest, ActivatesOnlyItsOwnViews)
{
    std::shared_ptr<ZELReference> holder = model_.GetReferences()[0];
    std::shared_ptr<PMIAnnotationView> view;
    ASSERT_TRUE(model_.GetActiveView(holder, view));
    EXPECT_FALSE(holder) << "the product's own view comes first";
    EXPECT_TRUE(model_.DeactivateView(holder, view));
    ASSERT_TRUE(model_.GetActiveView(holder, view));
    ASSERT_TRUE(holder);
    EXPECT_FALSE(model_.DeactivateView(nullptr, view)) << "a part's view is not the product's";
    EXPECT_TRUE(model_.DeactivateView(holder, view));
    EXPECT_FALSE(model_.GetActiveView(holder, view));
    EXPECT_TRUE(model_.ActivateView(holder, view));
    EXPECT_TRUE(view->GetActive());
    std::shared_ptr<PMICapture> capture;
    EXPECT_TRUE(model_.GetActiveCapture(holder, capture));
}

TEST_F(ModelTest, BecomesAPart)
{
    auto const screw = model_.GetReferences()[0];
    EXPECT_FALSE(model_.MakePartModel(std::make_shared<ZELReference>(ZELReference::Kind::Part, L"foreign")));
    EXPECT_FALSE(model_.MakePartModel(model_.GetRootInstances()[0]->GetReference()))
        << "an assembly is no part";
    EXPECT_TRUE(model_.IsAssembly());
    ASSERT_TRUE(model_.MakePartModel(screw));
    EXPECT_FALSE(model_.IsAssembly());
    EXPECT_EQ(model_.GetReferences().size(), 1u);
    std::shared_ptr<ZELInstance> instance;
    ASSERT_TRUE(model_.GetRootInstance(0, instance));
    EXPECT_EQ(instance->GetReference(), screw);
    EXPECT_EQ(instance->GetMatrix(), IdentityMatrix);
    auto const id = screw->GetBodies()[0].id;
    EXPECT_TRUE(screw->RemoveBodyFromPart(id));
    EXPECT_FALSE(screw->RemoveBodyFromPart(id));
}

TEST(ModelMemory, RingsAreFreed)
{
    std::weak_ptr<ZELReference> seen;
    {
        ZELProductStructure model(L"p");
        auto a = model.AddReference(ZELReference::Kind::Assembly, L"a");
        a->AddInstance(a, L"a.a.1");
        seen = a;
    }
    EXPECT_TRUE(seen.expired());
}

TEST(ModelCheck, LeavesOutWhatCannotBeDrawn)
{
    constexpr float nan = NAN;
    struct Case {
        char const* name;
        void (*spoil)(ZELProductStructure&, BrepBody&, ZELInstance&);
        std::size_t faces, edges, vertices, roots;
    };
    Case const cases[] = {
        {"nothing wrong", [](auto&, auto&, auto&) {}, 4, 3, 4, 1},
        {"invalid point", [](auto&, BrepBody& b, auto&) { b.points[0] = nan; }, 3, 3, 4, 1},
        {"invalid normal", [](auto&, BrepBody& b, auto&) { b.normals[35] = nan; }, 3, 3, 4, 1},
        {"wrong index", [](auto&, BrepBody& b, auto&) { b.triangles[4] = 3; }, 3, 3, 4, 1},
        {"wrong run", [](auto&, BrepBody& b, auto&) { b.faces[2].pointCount = 4'000'000'000u; }, 3, 3, 4, 1},
        {"no triangles", [](auto&, BrepBody& b, auto&) { b.faces[2].triangleCount = 0; }, 3, 3, 4, 1},
        {"edge of one place", [](auto&, BrepBody& b, auto&) { b.edgePoints.assign(18, 5); }, 4, 0, 4, 1},
        {"invalid vertex", [](auto&, BrepBody& b, auto&) { b.vertices[0].point[1] = nan; }, 4, 3, 3, 1},
        {"flat placing",
         [](auto&, auto&, ZELInstance& i) {
             i.SetTransform({1, 0, 0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 0, 0, 0, 1});
         },
         4, 3, 4, 0},
        {"invalid placing",
         [](auto&, auto&, ZELInstance& i) {
             i.SetTransform({1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, nan, 0, 0, 1});
         },
         4, 3, 4, 0},
        {"tiny placing",
         [](auto&, auto&, ZELInstance& i) {
             i.SetTransform({1e-6f, 0, 0, 0, 0, 1e-6f, 0, 0, 0, 0, 1e-6f, 0, 0, 0, 0, 1});
         },
         4, 3, 4, 1},
    };
    for (auto const& test : cases) {
        ZELProductStructure model(L"p");
        auto part = model.AddReference(ZELReference::Kind::Part, L"a", L"Teil");
        auto& body = part->AddBody(Tetrahedron(1'000'007));
        auto instance = model.AddRootInstance(part, L"i");
        test.spoil(model, body, *instance);
        std::vector<std::wstring> warnings;
        CheckModel(model, warnings);
        auto const& kept = part->GetBodies().at(0);
        EXPECT_EQ(kept.faces.size(), test.faces) << test.name;
        EXPECT_EQ(kept.edges.size(), test.edges) << test.name;
        EXPECT_EQ(kept.vertices.size(), test.vertices) << test.name;
        EXPECT_EQ(model.GetRootInstancesCount(), test.roots) << test.name;
        bool const whole = test.faces + test.edges + test.vertices + test.roots == 12;
        EXPECT_EQ(warnings.empty(), whole) << test.name;
    }
}

TEST(ModelCheck, MakesNamesAndPidsValid)
{
    ZELProductStructure model(L"Größe/1", L" two\nlines\x01 ");
    auto part = model.AddReference(ZELReference::Kind::Part, L"a b");
    auto same = std::make_shared<ZELReference>(ZELReference::Kind::Part, L"a b", std::wstring(5000, L'x'));
    auto container = std::make_shared<SGContainer>();
    container->SetScaleFactor(L"a b", 2);
    same->SetSG(container);
    model.AddReference(same);
    model.AddRootInstance(part, L"");
    model.AddRootInstance(same, L"", std::wstring(1, static_cast<wchar_t>(0xd800)));
    EXPECT_TRUE(model.IsRootInstance(HashId(""))) << "asked before the PIDs change";
    std::vector<std::wstring> warnings;
    CheckModel(model, warnings);
    EXPECT_TRUE(model.IsRootInstance(model.GetRootInstances()[1]->GetHashedID()));
    EXPECT_FALSE(model.IsRootInstance(HashId("")));
    EXPECT_EQ(model.GetProductName(), L"two lines");
    EXPECT_EQ(same->GetReferenceName().size(), 1000u);
    EXPECT_EQ(model.GetRootInstances()[1]->GetInstanceName(), L"\ufffd");
    std::set<std::wstring> pids;
    std::wstring pid;
    ASSERT_TRUE(model.GetPID(pid));
    pids.insert(pid);
    for (auto const& reference : model.GetReferences()) {
        EXPECT_TRUE(reference->GetPID(pid));
        pids.insert(pid);
    }
    EXPECT_EQ(container->GetScaleFactor(pid), 2) << "the group follows its owner's PID";
    for (auto const& root : model.GetRootInstances()) {
        EXPECT_TRUE(root->GetPID(pid));
        pids.insert(pid);
    }
    EXPECT_EQ(pids.size(), 5u);
    for (auto const& each : pids)
        for (wchar_t c : each) EXPECT_TRUE(c > L' ' && c < L'\x7f' && c != L'/' && c != L'\\');
}

} // namespace
