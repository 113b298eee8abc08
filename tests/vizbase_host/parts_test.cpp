// Bodies and parts of a document, and the entries of a host's menu for them.

#include "HandMade.h"

#include "MakePartFromReferenceMenuAction.h"
#include "SaveAsPartAction.h"

#include <QTemporaryDir>
#include <algorithm>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <mora/Settings.h>
#include <stdexcept>

using testing::ElementsAre;
using testing::IsEmpty;
using ZELVizCore::RenderId;

namespace
{

constexpr NarMeta::Id First = 2'000'000, Second = First + 10;
constexpr unsigned long long Brep = 80000;

/// A part of two plates beside each other.
std::shared_ptr<NarMetaInfra::ZELReference> twoPlates(HandMade& made, std::wstring const& pid)
{
    auto const part = made.part(pid);
    part->AddBody(plate(First));
    part->AddBody(plate(Second, {3, 0, 0}));
    return part;
}

int differing(QImage const& a, QImage const& b)
{
    int count = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) count += a.pixel(x, y) != b.pixel(x, y) ? 1 : 0;
    return count;
}

/// Answers every question for a file's name.
class Answers final : public MoraCore::SessionMgr, private MoraCore::IDialogs
{
public:
    /// Empty: cancelled.
    explicit Answers(std::wstring name) : Name(std::move(name))
    {
        CurrentSession().SetDocumentEvo(nullptr);
        Install(this);
    }
    ~Answers() override { Install(nullptr); }
    MoraCore::IDialogs* Dialogs() override { return this; }
    int Asked = 0;

private:
    bool AskFileName(std::wstring& name) override
    {
        ++Asked;
        if (!Name.empty()) name = Name;
        return !Name.empty();
    }
    std::wstring Name;
};

} // namespace

TEST(Parts, ABodyOfOneInstanceGoesAndComesBack)
{
    HandMade made;
    ZELVizCore::Settings::Current().DisplayBrepInTree = true;
    auto const part = twoPlates(made, L"part");
    auto const left = made.model.AddRootInstance(part, L"left");
    auto const right = made.model.AddRootInstance(part, L"right");
    right->SetTransform(translation(0, 0, 4));
    ASSERT_TRUE(made.document.Render(false));
    ZELVizCore::Settings::Current() = ZELVizCore::Settings::Default();
    auto const isMarkedShown = [&made](RenderId const& id) {
        auto const& tree = made.tree.GetTreeBuilder();
        return tree.Items().at(static_cast<std::size_t>(tree.Find(id))).visible;
    };
    made.window.camera().Left();
    made.window.camera().ZoomAll();
    QImage const all = made.picture();
    RenderId const first = made.id({left->GetHashedID(), Brep, First}),
                   second = made.id({left->GetHashedID(), Brep, Second});

    EXPECT_FALSE(made.document.ShowHideBody(first, nullptr));
    EXPECT_TRUE(made.document.ShowHideBody(first, &made.window.view()));
    EXPECT_THAT(made.conditionsOf(L"left"), ElementsAre("hide_#2000000"));
    EXPECT_THAT(made.conditionsOf(L"right"), IsEmpty());
    EXPECT_FALSE(isMarkedShown(first));
    EXPECT_TRUE(isMarkedShown(second));
    QImage const one = made.picture();
    int const gone = differing(all, one);
    EXPECT_GT(gone, 1000);

    EXPECT_TRUE(made.document.ShowHideBody(second, &made.window.view()));
    EXPECT_THAT(made.conditionsOf(L"left"), ElementsAre("hide_#2000000", "hide_#2000010"));
    QImage const none = made.picture();
    none.save(ZEL_BINARY_DIR "/host_hidden_bodies.png");
    EXPECT_NEAR(differing(all, none), 2 * gone, gone / 5);

    EXPECT_TRUE(made.document.ShowHideBody(first, &made.window.view()));
    EXPECT_THAT(made.conditionsOf(L"left"), ElementsAre("hide_#2000010"));
    EXPECT_TRUE(isMarkedShown(first));
    EXPECT_TRUE(made.document.ShowHideBody(second, &made.window.view()));
    EXPECT_THAT(made.conditionsOf(L"left"), IsEmpty());
    EXPECT_EQ(made.picture(), all);
}

// "outer" holds "group" twice, which holds "holder", which holds the part.
TEST(Parts, ABodyInSharedAssembliesHidesWhereTheSharingBegins)
{
    HandMade made;
    auto const part = twoPlates(made, L"part");
    auto const group = made.assembly(L"group"), outer = made.assembly(L"outer"), top = made.assembly(L"top");
    auto const inGroup = group->AddInstance(part, L"in group");
    auto const groupA = outer->AddInstance(group, L"group a");
    auto const groupB = outer->AddInstance(group, L"group b");
    groupB->SetTransform(translation(0, 0, 4));
    auto const inTop = top->AddInstance(outer, L"in top");
    auto const root = made.model.AddRootInstance(top, L"root");
    ASSERT_TRUE(made.document.Render(false));

    auto const of = [](auto const& instance) { return instance->GetHashedID(); };
    EXPECT_TRUE(made.document.ShowHideBody(
        made.id({of(root), of(inTop), of(groupA), of(inGroup), Brep, First}), &made.window.view()));
    EXPECT_THAT(made.conditionsOf(L"group a"), ElementsAre("hide_#2000000"));
    EXPECT_THAT(made.conditionsOf(L"group b"), IsEmpty());
    EXPECT_THAT(made.conditionsOf(L"in group"), IsEmpty());
    // The way ends above the fifth value.
    EXPECT_FALSE(
        made.document.ShowHideBody(made.id({of(groupA), of(inGroup), Brep, First}), &made.window.view()));
    EXPECT_FALSE(made.document.ShowHideBody(made.id({7, Brep, First}), &made.window.view()));
}

TEST(Parts, OnlyADocumentThatIsOnePartLosesBodies)
{
    HandMade made;
    auto const part = twoPlates(made, L"part");
    made.model.AddRootInstance(part, L"part.1");
    ASSERT_TRUE(made.document.Render(false));
    std::shared_ptr<NarMetaInfra::ZELInstance> root;
    made.model.GetRootInstance(0, root);
    RenderId const body = made.id({root->GetHashedID(), Brep, Second});

    part->SetGraphical(true);
    EXPECT_FALSE(made.document.RemoveBodyFromPart(body));
    part->SetGraphical(false);
    auto const other = made.part(L"other");
    made.model.AddRootInstance(other, L"other.1");
    EXPECT_FALSE(made.document.RemoveBodyFromPart(body)) << "an assembly";
    made.model.RemoveRootInstance(1);
    EXPECT_FALSE(made.document.RemoveBodyFromPart(body)) << "two references";
    EXPECT_EQ(part->GetBodies().size(), 2U);
}

TEST(Parts, ARemovedBodyLeavesModelSceneTreeAndFiles)
{
    HandMade made;
    auto const part = twoPlates(made, L"part");
    auto const root = made.model.AddRootInstance(part, L"part.1");
    ASSERT_TRUE(made.document.Render(false));
    EXPECT_FALSE(made.document.RemoveBodyFromPart(made.id({root->GetHashedID(), Brep, 7})));
    EXPECT_FALSE(made.document.IsModified());
    EXPECT_TRUE(made.document.RemoveBodyFromPart(made.id({root->GetHashedID(), Brep, Second})));
    EXPECT_TRUE(made.document.IsModified());
    HPS::Key key;
    EXPECT_TRUE(part->GetObjectMapper()->Get(First, key));
    EXPECT_FALSE(part->GetObjectMapper()->Get(Second, key));

    QTemporaryDir folder;
    std::wstring const file = folder.filePath("left.zel_xml").toStdWString();
    ASSERT_TRUE(made.document.Save(file.c_str()));
    EXPECT_FALSE(made.document.IsModified());
    auto const again = makeDocument();
    ASSERT_TRUE(again->Open(file.c_str()));
    unsigned long long parts = 0, bodies = 0;
    again->GetContentCounts(parts, bodies);
    EXPECT_EQ(bodies, 1U);
}

TEST(Parts, ARemovedBodyIsNotInAnExactFileEither)
{
    std::string const file = ZEL_SOURCE_DIR "/../shared/models/nist/nist_ftc_07_asme1_ap242-e2.stp";
    if (!std::filesystem::exists(file)) GTEST_SKIP() << "needs " << file;
    Window window(file);
    ASSERT_TRUE(window.opened());
    auto& document = static_cast<ZelCad::CadDocument&>(window.document());
    auto const& model = *document.GetProductStructure();
    auto const part = model.GetReferences().front();
    std::size_t const faces = part->GetCounts().faces;
    auto const solid =
        std::ranges::find_if(part->GetBodies(), [](auto const& body) { return !body.faces.empty(); });
    ASSERT_NE(solid, part->GetBodies().end());
    std::size_t const gone = solid->faces.size();
    ASSERT_LT(gone, faces);
    unsigned long long const root = model.GetRootInstances().front()->GetHashedID();
    ASSERT_TRUE(document.RemoveBodyFromPart(
        RenderId({1, 2, root, Brep, solid->id}, RenderId::OriginEnum::Visualisation)));
    QTemporaryDir folder;
    std::string const written = folder.filePath("left.stp").toStdString();
    ASSERT_TRUE(document.Save(std::wstring(written.begin(), written.end()).c_str()));
    Window again(written);
    ASSERT_TRUE(again.opened());
    auto const& left = *static_cast<ZelCad::CadDocument&>(again.document()).GetProductStructure();
    EXPECT_EQ(left.GetCounts().faces, faces - gone);
}

TEST(Parts, OneReferenceBecomesTheWholeDocument)
{
    HandMade made;
    auto const part = twoPlates(made, L"lid");
    auto const other = made.part(L"base");
    other->AddBody(plate(First + 100, {0, 0, 5}));
    auto const lid = made.model.AddRootInstance(part, L"lid.1", L"Lid.1");
    made.model.AddRootInstance(other, L"base.1", L"Base.1");
    ASSERT_TRUE(made.document.Render(false));
    ZelVizBase::MakePartFromReferenceMenuAction make;

    EXPECT_FALSE(make(made.id({12345})));
    EXPECT_EQ(made.lastMessage(), L"Failed to convert requested reference into a Part Document");
    EXPECT_TRUE(made.document.HasScenegraph()) << "nothing is lost for an id that names no part";

    EXPECT_TRUE(make(made.id({lid->GetHashedID()})));
    EXPECT_EQ(made.lastMessage(), L"The requested reference has been converted into a Part Document");
    EXPECT_TRUE(made.session().IsInteractive());
    EXPECT_FALSE(made.document.IsAssembly());
    EXPECT_TRUE(made.document.HasEditablePart());
    EXPECT_TRUE(made.document.IsModified());
    EXPECT_THAT(made.names(), ElementsAre(L"ROOT", L"lid", L"lid"));
    double box[6];
    ASSERT_TRUE(made.window.view().GetBbox(box[0], box[1], box[2], box[3], box[4], box[5]));
    EXPECT_FLOAT_EQ(static_cast<float>(box[5]), 1) << "the base, which stood higher, is gone";
    std::shared_ptr<NarMetaInfra::ZELInstance> root;
    ASSERT_TRUE(made.model.GetRootInstance(0, root));
    EXPECT_TRUE(made.document.RemoveBodyFromPart(made.id({root->GetHashedID(), Brep, Second})));
}

TEST(Parts, APartsFileIsNamedAfterTheFileThatItComesFrom)
{
    HandMade made;
    QTemporaryDir folder;
    auto const part = twoPlates(made, L"lid");
    auto const lid = made.model.AddRootInstance(part, L"lid.1");
    std::wstring name = L"as before";
    made.document.MakeFileNameFromReference(lid->GetHashedID(), name);
    EXPECT_EQ(name, L"as before") << "the part comes from no file";
    made.document.MakeFileNameFromReference(12345, name);
    EXPECT_EQ(name, L"as before");

    std::filesystem::path const before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path().toStdString());
    std::filesystem::path const here = std::filesystem::current_path();
    part->SetStorageName(L"lid.stp");
    made.document.MakeFileNameFromReference(lid->GetHashedID(), name);
    EXPECT_EQ(name, (here / "lid.XKRM").wstring());

    ZelVizBase::SaveAsPartAction save;
    EXPECT_TRUE(save(made.id({lid->GetHashedID()})));
    EXPECT_EQ(made.lastMessage(), L"The requested reference has been saved/exported to a Part Document");
    EXPECT_TRUE(std::filesystem::exists(here / "lid.XKRM"));
    made.document.MakeFileNameFromReference(lid->GetHashedID(), name);
    EXPECT_EQ(name, (here / "Plates_lid.XKRM").wstring());
    std::filesystem::current_path(before);
}

TEST(Parts, APartIsSavedWhereTheUserSaysAndOpensAgain)
{
    HandMade made;
    QTemporaryDir folder;
    auto const part = twoPlates(made, L"lid");
    auto const lid = made.model.AddRootInstance(part, L"lid.1");
    auto const other = made.part(L"base");
    other->AddBody(plate(First + 100));
    made.model.AddRootInstance(other, L"base.1");
    ASSERT_TRUE(made.document.Render(false));
    ZelVizBase::SaveAsPartAction save;
    RenderId const id = made.id({lid->GetHashedID()});
    {
        Answers cancelling(L"");
        cancelling.CurrentSession().SetDocumentEvo(&made.document);
        EXPECT_FALSE(save(id));
        EXPECT_EQ(cancelling.Asked, 1);
        EXPECT_TRUE(cancelling.CurrentSession().Messages().empty());
        EXPECT_TRUE(cancelling.CurrentSession().IsInteractive());
    }
    QString const file = folder.filePath("lid.XKRM");
    Answers naming(file.toStdWString());
    naming.CurrentSession().SetDocumentEvo(&made.document);
    EXPECT_TRUE(save(id));
    Window again(file.toStdString());
    ASSERT_TRUE(again.opened());
    EXPECT_FALSE(again.document().IsAssembly());
    unsigned long long parts = 0, bodies = 0;
    again.document().GetContentCounts(parts, bodies);
    EXPECT_EQ(parts, 1U);
    EXPECT_EQ(bodies, 2U);
    EXPECT_EQ(made.model.GetRootInstancesCount(), 2U) << "the document stays";

    Answers nowhere(folder.filePath("no folder/lid.XKRM").toStdWString());
    nowhere.CurrentSession().SetDocumentEvo(&made.document);
    EXPECT_FALSE(save(id));
    EXPECT_EQ(nowhere.CurrentSession().Messages().back().text,
              L"Failed to save/expport requested reference into a Part Document");
}

TEST(Parts, EntriesAnswerOnlyNodesOfModelsAndNeedADocument)
{
    Answers manager(L"");
    ZelVizBase::MakePartFromReferenceMenuAction make;
    ZelVizBase::SaveAsPartAction save;
    for (MoraCore::IMenuAction* const action :
         {static_cast<MoraCore::IMenuAction*>(&make), static_cast<MoraCore::IMenuAction*>(&save)}) {
        EXPECT_FALSE((*action)(RenderId({1, 2, 3}, RenderId::OriginEnum::Host)));
        try {
            (*action)(RenderId({1, 2, 3}, RenderId::OriginEnum::Visualisation));
            FAIL() << "there is no document";
        } catch (std::runtime_error const& fault) {
            EXPECT_STREQ(fault.what(), "No document present");
        }
        EXPECT_TRUE(manager.CurrentSession().IsInteractive());
    }
}
