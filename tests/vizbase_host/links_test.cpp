// What lights up with an annotation, and with a node of a body's topology.

#include "HandMade.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <mora/Settings.h>

using namespace NarMetaPmi;
using ZELVizCore::RenderId;

namespace
{

constexpr NarMeta::Id First = 2'000'000, Second = First + 10, Note = 2'000'100, View = Note + 1,
                      Set = Note + 2;
constexpr unsigned long long Annotations = 10005, Views = 10010, Notes = 10101, Brep = 80000,
                             Topology = 81000, Faces = 10002;

std::shared_ptr<PMIContainer> noteOf(std::wstring const& owner, std::vector<LinkedEntity> const& entities)
{
    auto const note = std::make_shared<PMINote>(Note, L"Note");
    for (LinkedEntity const& entity : entities) note->AddLinkedEntity(entity);
    auto const view = std::make_shared<PMIAnnotationView>(View, L"View");
    view->Content().notes = {note};
    auto const set = std::make_shared<PMIAnnotationSet>(Set, L"Set");
    set->AddView(view);
    auto const container = std::make_shared<PMIContainer>();
    container->AddAnnotationSet(owner, set);
    return container;
}

/// Two plates beside each other, of which the second one's face has a name.
class Links : public testing::Test
{
protected:
    Links()
    {
        ZELVizCore::Settings::Current().DisplayBrepInTree = true;
        ZELVizCore::Settings::Current().DisplayFeaturesInTree = true;
        Part = Made.part(L"part");
        Part->AddBody(plate(First));
        Part->AddBody(plate(Second, {3, 0, 0}));
        Part->NameEntity(L"face", Second + 1);
        Part->NameEntity(L"f", First + 1);
    }
    ~Links() override { ZELVizCore::Settings::Current() = ZELVizCore::Settings::Default(); }

    void show()
    {
        ASSERT_TRUE(Made.document.Render(false));
        Made.window.camera().Left();
        Made.window.camera().ZoomAll();
        Before = Made.picture();
    }
    /// The middle of what looks different now; null if nothing does.
    QRect lit() const
    {
        QImage const now = Made.picture();
        QRect changed;
        for (int y = 0; y < now.height(); ++y)
            for (int x = 0; x < now.width(); ++x)
                if (now.pixel(x, y) != Before.pixel(x, y)) changed |= QRect(x, y, 1, 1);
        return changed;
    }
    /// What lights up with a node, after which all is dark again.
    QRect litBy(RenderId const& id)
    {
        Made.document.Highlight(id, &Made.window.view());
        QRect const found = lit();
        Made.document.UnHighlight(&Made.window.view());
        Made.window.view().Update(MoraCore::UpdateType::Default);
        EXPECT_TRUE(lit().isNull());
        return found;
    }

    HandMade Made;
    std::shared_ptr<NarMetaInfra::ZELReference> Part;
    QImage Before;
};

} // namespace

TEST_F(Links, AnAnnotationOfAPartLightsWhatItSpeaksOf)
{
    Part->SetPmi(noteOf(L"part", {{{}, L"face"}, {{}, L"unknown"}, {{}, L"f"}}));
    auto const root = Made.model.AddRootInstance(Part, L"part.1");
    show();
    QRect const face = litBy(Made.id({root->GetHashedID(), Brep, Second + 1}));
    ASSERT_GT(face.width(), 50);
    for (RenderId const& id : {Made.id({root->GetHashedID(), Annotations, Note}),
                               Made.id({root->GetHashedID(), Annotations, Views, View, Notes, Note})})
        EXPECT_EQ(litBy(id), face) << "a name of one letter is passed over";
    std::vector<std::pair<std::wstring, std::wstring>> properties;
    EXPECT_TRUE(Made.document.GetProperties(
        Made.id({root->GetHashedID(), Annotations, Views, View, Notes, Note}), properties));
    EXPECT_THAT(properties, testing::Contains(testing::Pair(L"Linked entities", L"3")));
    EXPECT_TRUE(litBy(Made.id({root->GetHashedID(), Annotations})).isNull());
    Made.document.Highlight(Made.id({root->GetHashedID(), Annotations, Note}), nullptr);
    EXPECT_TRUE(lit().isNull());
}

TEST_F(Links, AnAnnotationOfAnAssemblyFollowsTheWayToItsEntity)
{
    auto const group = Made.assembly(L"group");
    group->AddInstance(Part, L"left");
    auto const right = group->AddInstance(Part, L"right");
    right->SetTransform(translation(0, 0, 4));
    group->SetPmi(noteOf(L"group", {{{L"right"}, L"face"}, {{L"nobody"}, L"face"}}));
    auto const root = Made.model.AddRootInstance(group, L"group.1");
    show();
    QRect const face = litBy(Made.id({root->GetHashedID(), right->GetHashedID(), Brep, Second + 1}));
    EXPECT_EQ(litBy(Made.id({root->GetHashedID(), Annotations, Note})), face);
}

TEST_F(Links, AnAnnotationOfTheProductNeedsAWholeWay)
{
    auto const left = Made.model.AddRootInstance(Part, L"left");
    auto const right = Made.model.AddRootInstance(Part, L"right");
    right->SetTransform(translation(0, 0, 4));
    Made.model.SetPMI(noteOf(L"plates", {{{L"right"}, L"f"}, {{}, L"face"}}));
    show();
    QRect const face = litBy(Made.id({right->GetHashedID(), Brep, First + 1}));
    EXPECT_EQ(litBy(Made.id({Annotations, Note})), face) << "a short name counts here";
    EXPECT_NE(litBy(Made.id({left->GetHashedID(), Brep, First + 1})), face);
}

TEST_F(Links, TheHandLightsThemToo)
{
    Part->SetPmi(noteOf(L"part", {{{}, L"face"}}));
    auto const root = Made.model.AddRootInstance(Part, L"part.1");
    show();
    QRect const face = litBy(Made.id({root->GetHashedID(), Brep, Second + 1}));
    MoraCore::IViewInteraction& hand = *Made.window.view().GetInteraction();
    hand.Select({Made.id({root->GetHashedID(), Annotations, Note})});
    EXPECT_EQ(lit(), face) << "and not the whole part, on which the note stands";
    // Beside something that is selected itself.
    hand.Select(
        {Made.id({root->GetHashedID(), Brep, First + 1}), Made.id({root->GetHashedID(), Annotations, Note})});
    EXPECT_GT(lit().width(), 2 * face.width());
    hand.Select({Made.id({root->GetHashedID(), Annotations, Note})});
    float before = Pose(Made.window.camera()).distance();
    EXPECT_TRUE(hand.ZoomToSelection());
    EXPECT_LT(Pose(Made.window.camera()).distance(), before);
    Made.window.camera().ZoomAll();
    hand.ClearSelection();
    EXPECT_FALSE(hand.ZoomToSelection());
}

TEST_F(Links, TheTopologyOfABodyLightsUpBelowIt)
{
    auto const root = Made.model.AddRootInstance(Part, L"part.1");
    show();
    EXPECT_THAT(Made.names(),
                testing::IsSupersetOf({L"Topology", L"Faces", L"Face 1", L"Edge 2", L"Vertices"}));
    QRect const face = litBy(Made.id({root->GetHashedID(), Brep, Second + 1}));
    RenderId const one = Made.id({root->GetHashedID(), Brep, Second, Topology, Faces, Second + 1}),
                   all = Made.id({root->GetHashedID(), Brep, Second, Topology, Faces}),
                   top = Made.id({root->GetHashedID(), Brep, Second, Topology});
    EXPECT_EQ(litBy(one), face);
    EXPECT_EQ(litBy(all), face);
    EXPECT_TRUE(litBy(top).isNull()) << "nothing in its list has a key";
    EXPECT_FALSE(Made.document.ZoomTo(top, &Made.window.view()));
    float const before = Pose(Made.window.camera()).distance();
    EXPECT_TRUE(Made.document.ZoomTo(one, &Made.window.view()));
    EXPECT_LT(Pose(Made.window.camera()).distance(), before);
    // Neither an id without a body, nor one of another model's instance.
    EXPECT_FALSE(
        Made.document.ZoomTo(Made.id({root->GetHashedID(), Brep, 7, Topology}), &Made.window.view()));
    EXPECT_FALSE(Made.document.ZoomTo(Made.id({7, Brep, Second, Topology}), &Made.window.view()));
    EXPECT_FALSE(Made.document.ZoomTo(Made.id({root->GetHashedID(), Topology, Brep}), &Made.window.view()));
}

TEST_F(Links, IdsBecomePathsAndPathsIds)
{
    Part->SetPmi(noteOf(L"part", {}));
    auto const group = Made.assembly(L"group");
    auto const inner = group->AddInstance(Part, L"inner");
    auto const root = Made.model.AddRootInstance(group, L"root");
    show();
    auto const keyOf = [this](auto const& name) {
        HPS::Key key;
        EXPECT_TRUE(Made.document.GetRenderer()->GetObjectMapper()->Get(name, key));
        return key;
    };
    HPS::Key body;
    ASSERT_TRUE(Part->GetObjectMapper()->Get(Second, body));
    std::wstring const part = L"part", assembly = L"group";
    unsigned long long const a = root->GetHashedID(), b = inner->GetHashedID();
    struct {
        std::vector<unsigned long long> values;
        HPS::Key front;
    } const cases[] = {
        {{}, Made.document.GetRenderer()->GetRootKey()},
        {{a}, keyOf(assembly)},
        {{a, b}, keyOf(part)},
        {{a, b, Brep}, keyOf(part)},
        {{a, b, Annotations}, keyOf(part)},
        {{a, b, Annotations, Note}, keyOf(part)}, // without a picture
        {{a, b, Brep, Second}, body},
    };
    for (auto const& wanted : cases) {
        SCOPED_TRACE(wanted.values.size());
        HPS::KeyPath path;
        ASSERT_TRUE(Made.document.Convert(Made.id(wanted.values), path));
        EXPECT_EQ(path.Front(), wanted.front);
    }
    HPS::KeyPath path;
    RenderId const whole = Made.id({a, b, Brep, Second});
    RenderId back;
    ASSERT_TRUE(Made.document.Convert(whole, path));
    ASSERT_TRUE(Made.document.Convert(path, back));
    EXPECT_EQ(back, whole);
    for (std::vector<unsigned long long> const& values : std::vector<std::vector<unsigned long long>>{
             {7}, {a, 7}, {a, Brep, Second}, {a, b, Brep, 7}, {a, b, 10006, 7}, {Brep, Second}})
        EXPECT_FALSE(Made.document.Convert(Made.id(values), path));
    EXPECT_FALSE(Made.document.Convert(RenderId({1}, RenderId::OriginEnum::Visualisation), path));
    Made.session().SetView3DEvo(nullptr);
    EXPECT_FALSE(Made.document.Convert(whole, path)) << "nobody shows it";
}

TEST(LinksOfAFile, MostAnnotationsLightSomething)
{
    std::string const file = ZEL_SOURCE_DIR "/../shared/models/nist/nist_ctc_01_asme1_ap242-e1.stp";
    if (!std::filesystem::exists(file)) GTEST_SKIP() << "needs " << file;
    Window window(file);
    ASSERT_TRUE(window.opened());
    auto const& document = static_cast<ZelCad::CadDocument&>(window.document());
    auto const& tree = window.tree().GetTreeBuilder();
    int annotations = 0, linked = 0;
    for (std::int32_t i = 0; i < static_cast<std::int32_t>(tree.Items().size()); ++i) {
        auto const& item = tree.Items()[static_cast<std::size_t>(i)];
        if (item.parent < 0 ||
            tree.Items()[static_cast<std::size_t>(item.parent)].kind != MoraCore::TreeBuilder::Kind::PmiGroup)
            continue;
        ++annotations;
        linked += document.GetCompanions(tree.GetPath(i), HPS::KeyPath()).empty() ? 0 : 1;
    }
    EXPECT_GE(annotations, 20);
    EXPECT_GE(linked * 4, annotations * 3) << linked << " of " << annotations;
}
