// Views and captures of a model: which is active, what the tree says of it, and how it looks.

#include "HandMade.h"

#include "ActivateViewOrCaptureAction.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <stdexcept>

using namespace NarMetaPmi;
using ZELVizCore::RenderId;

namespace
{

constexpr unsigned long long Annotations = 10005, Views = 10010, Captures = 10012;
constexpr NarMeta::Id Set = 2'000'100, Front = 2'000'101, Side = 2'000'102, Exploded = 2'000'103,
                      Closed = 2'000'104, Overall = 2'000'201;

/// A set of two views and two captures, the first of each active.
std::shared_ptr<PMIContainer> annotations(std::wstring const& owner)
{
    auto const set = std::make_shared<PMIAnnotationSet>(Set, L"Set");
    for (NarMeta::Id const id : {Front, Side})
        set->AddView(std::make_shared<PMIAnnotationView>(id, id == Front ? L"Front" : L"Side"));
    for (NarMeta::Id const id : {Exploded, Closed})
        set->AddCapture(std::make_shared<PMICapture>(id, id == Exploded ? L"Exploded" : L"Closed"));
    set->GetViews()[0]->SetActive(true);
    set->GetCaptures()[0]->SetActive(true);
    auto const container = std::make_shared<PMIContainer>();
    container->AddAnnotationSet(owner, set);
    return container;
}

class ViewsAndCaptures : public testing::Test
{
protected:
    ViewsAndCaptures()
    {
        Part = Made.part(L"part");
        Part->AddBody(plate(2'000'000));
        Part->SetPmi(annotations(L"part"));
        Instance = Made.model.AddRootInstance(Part, L"part.1", L"Part.1");
        EXPECT_TRUE(Made.document.Render(false));
    }

    RenderId node(std::vector<unsigned long long> values) const
    {
        values.insert(values.begin(), Instance->GetHashedID());
        return Made.id(values);
    }
    /// Those that the tree marks as active.
    std::vector<std::wstring> starred() const
    {
        std::vector<std::wstring> names;
        for (std::wstring const& name : Made.names())
            if (name.starts_with(L"*")) names.push_back(name);
        return names;
    }

    HandMade Made;
    std::shared_ptr<NarMetaInfra::ZELReference> Part;
    std::shared_ptr<NarMetaInfra::ZELInstance> Instance;
};

} // namespace

TEST_F(ViewsAndCaptures, SwitchingOneKindLeavesTheOther)
{
    EXPECT_THAT(starred(), testing::ElementsAre(L"*Front", L"*Exploded"));
    EXPECT_TRUE(Made.document.ActivateViewOrCapture(node({Annotations, Views, Side})));
    EXPECT_THAT(starred(), testing::ElementsAre(L"*Side", L"*Exploded"));
    EXPECT_TRUE(Made.document.ActivateViewOrCapture(node({Annotations, Captures, Closed})));
    EXPECT_THAT(starred(), testing::ElementsAre(L"*Side", L"*Closed"));
    EXPECT_TRUE(Made.document.ActivateViewOrCapture(node({Annotations, Captures, Closed})));
    EXPECT_THAT(starred(), testing::ElementsAre(L"*Side", L"*Closed"));
}

TEST_F(ViewsAndCaptures, ThePathOfTheTreesOwnNodeIsTheOneThatWorks)
{
    auto const& tree = Made.tree.GetTreeBuilder();
    int activated = 0;
    for (std::int32_t i = 0; i < static_cast<std::int32_t>(tree.Items().size()); ++i) {
        MoraCore::TreeBuilder::Kind const kind = tree.Items()[static_cast<std::size_t>(i)].kind;
        bool const can =
            kind == MoraCore::TreeBuilder::Kind::View || kind == MoraCore::TreeBuilder::Kind::Capture;
        EXPECT_EQ(Made.document.ActivateViewOrCapture(tree.GetPath(i)), can) << "node " << i;
        activated += can;
    }
    EXPECT_EQ(activated, 4);
}

TEST_F(ViewsAndCaptures, OtherNodesChangeNothing)
{
    for (std::vector<unsigned long long> const& values : std::vector<std::vector<unsigned long long>>{
             {},
             {Annotations},
             {Annotations, Views},
             {Annotations, Views, Exploded},
             {Annotations, Captures, Front},
             {Annotations, 10103, Front},
             {Annotations, Set, Views, Front},
             {80000, Annotations, Views, Side},
             {10006, Annotations, Views, Side},
             {7, Annotations, Views, Side},
         })
        EXPECT_FALSE(Made.document.ActivateViewOrCapture(node(values)));
    EXPECT_FALSE(Made.document.ActivateViewOrCapture(Made.id({Annotations, Views, Side})))
        << "of the product";
    EXPECT_FALSE(Made.document.ActivateViewOrCapture(RenderId()));
    EXPECT_THAT(starred(), testing::ElementsAre(L"*Front", L"*Exploded"));
}

TEST_F(ViewsAndCaptures, AViewOfTheProductTakesTheActivePlaceOfAPartsView)
{
    auto const set = std::make_shared<PMIAnnotationSet>(Overall - 1, L"Product set");
    set->AddView(std::make_shared<PMIAnnotationView>(Overall, L"Overall"));
    auto const container = std::make_shared<PMIContainer>();
    container->AddAnnotationSet(L"plates", set);
    Made.model.SetPMI(container);
    EXPECT_TRUE(Made.document.ActivateViewOrCapture(Made.id({Annotations, Views, Overall})));
    EXPECT_THAT(starred(), testing::UnorderedElementsAre(L"*Overall", L"*Exploded"));
}

TEST_F(ViewsAndCaptures, TheEntryOfTheMenuTellsWhatCameOfIt)
{
    ZelVizBase::ActivateViewOrCaptureAction activate;
    RenderId const side = node({Annotations, Views, Side});
    EXPECT_FALSE(activate(RenderId({1, 2, 3}, RenderId::OriginEnum::Host)));
    EXPECT_EQ(Made.lastMessage(), L"");
    EXPECT_TRUE(activate(side));
    EXPECT_EQ(Made.lastMessage(), L"The requested View/Capture been activated");
    EXPECT_FALSE(activate(node({})));
    EXPECT_EQ(Made.lastMessage(), L"Failed to activate requested View/Capture");
    Made.session().SetDocumentEvo(nullptr);
    EXPECT_THROW(activate(side), std::runtime_error);
}

// The part stands turned and moved: its view looks along the part's own y axis.
TEST_F(ViewsAndCaptures, AViewLooksAlongItsOwnDirectionInItsInstance)
{
    NarMetaInfra::Matrix turned{0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 10, 20, 30, 1}; // x to y, y to -x
    Instance->SetTransform(turned);
    PMICamera camera;
    camera.position = {0, -50, 0};
    camera.direction = {0, 1, 0};
    camera.up = {0, 0, 1};
    camera.width = 8;
    camera.height = 6;
    std::shared_ptr<PMIAnnotationView> side;
    ASSERT_TRUE(Part->GetPmi()->GetAnnotationView(Side, side));
    side->SetCamera(camera);
    ASSERT_TRUE(Made.document.Render(true));
    ASSERT_TRUE(Made.document.ActivateViewOrCapture(node({Annotations, Views, Side})));
    Pose const pose(Made.window.camera());
    EXPECT_NEAR(pose.back()[0], 1, 1e-5);
    EXPECT_NEAR(pose.up[2], 1, 1e-5);
    EXPECT_NEAR(pose.target[0], 10, 1e-3) << "as deep as the middle of the plate";
    EXPECT_NEAR(pose.target[1], 20, 1e-3);
    EXPECT_NEAR(pose.target[2], 30, 1e-3);
    EXPECT_TRUE(Made.window.camera().IsOrthographic());
    QImage const straight = Made.picture();

    // A capture with the same camera and a plane through the middle of the plate shows half of it.
    std::shared_ptr<PMICapture> closed;
    ASSERT_TRUE(Part->GetPmi()->GetAnnotationCapture(Closed, closed));
    closed->SetCamera(camera);
    closed->SetClippingPlanes({{{0, 0, 0}, {1, 0, 0}}});
    ASSERT_TRUE(Made.document.ActivateViewOrCapture(node({Annotations, Captures, Closed})));
    QImage const cut = Made.picture();
    cut.save(ZEL_BINARY_DIR "/host_cut_capture.png");
    int const middle = Window::height / 2;
    EXPECT_EQ(cut.pixel(280, middle), straight.pixel(280, middle));
    EXPECT_NE(cut.pixel(360, middle), straight.pixel(360, middle));
    ASSERT_TRUE(Made.document.ActivateViewOrCapture(node({Annotations, Views, Side})));
    EXPECT_EQ(Made.picture().pixel(360, middle), straight.pixel(360, middle));
}

// Those of this file that show the same from the same side differ in nothing.
TEST_F(ViewsAndCaptures, ACaptureShowsOnlyTheReferencesThatItNames)
{
    auto const group = Made.assembly(L"group");
    auto const inner = Made.part(L"inner");
    inner->AddBody(plate(2'000'010, {0, 0, 4}));
    group->AddInstance(inner, L"group.inner");
    Made.model.AddRootInstance(group, L"group.1");
    ASSERT_TRUE(Made.document.Render(true));
    Made.window.camera().Left();
    auto const isShown = [this](std::wstring const& pid) {
        HPS::Key key;
        EXPECT_TRUE(Made.document.GetRenderer()->GetObjectMapper()->Get(pid, key));
        HPS::VisibilityKit kit;
        bool faces = true;
        HPS::SegmentKey(key).ShowVisibility(kit);
        return !kit.ShowFaces(faces) || faces;
    };
    std::shared_ptr<PMICapture> closed;
    ASSERT_TRUE(Part->GetPmi()->GetAnnotationCapture(Closed, closed));
    struct {
        std::vector<std::wstring> names;
        bool part, inner;
    } const cases[] = {{{L"group"}, false, true},
                       {{L"part"}, true, false},
                       {{}, true, true},
                       {{L"inner", L"part"}, true, true}};
    for (auto const& wanted : cases) {
        closed->SetVisibleReferences(wanted.names);
        ASSERT_TRUE(Made.document.ActivateViewOrCapture(node({Annotations, Captures, Closed})));
        EXPECT_EQ(isShown(L"part"), wanted.part);
        EXPECT_EQ(isShown(L"inner"), wanted.inner);
    }
    closed->SetVisibleReferences({L"group"});
    ASSERT_TRUE(Made.document.ActivateViewOrCapture(node({Annotations, Captures, Closed})));
    ASSERT_TRUE(Made.document.ActivateViewOrCapture(node({Annotations, Views, Side})));
    EXPECT_TRUE(isShown(L"part")) << "a view shows all";
}

TEST(ViewsOfAFile, ShowTheirAnnotationsFromTheirSide)
{
    std::string const file = ZEL_SOURCE_DIR "/../shared/models/nist/nist_ftc_07_asme1_ap242-e2.stp";
    if (!std::filesystem::exists(file)) GTEST_SKIP() << "needs " << file;
    Window window(file);
    ASSERT_TRUE(window.opened());
    MoraCore::ASession& session = MoraCore::SessionMgr::Instance().CurrentSession();
    session.SetView3DEvo(&window.view());
    auto const& tree = window.tree().GetTreeBuilder();
    std::vector<RenderId> views;
    for (std::int32_t i = 0; i < static_cast<std::int32_t>(tree.Items().size()); ++i)
        if (tree.Items()[static_cast<std::size_t>(i)].kind == MoraCore::TreeBuilder::Kind::View)
            views.push_back(tree.GetPath(i));
    ASSERT_EQ(views.size(), 16U);
    std::set<std::vector<uchar>> different;
    for (std::size_t i = 0; i < views.size(); ++i) {
        ASSERT_TRUE(window.document().ActivateViewOrCapture(views[i]));
        QImage const shown = window.picture();
        QString const name = QString("/host_view_%1.png").arg(i + 1, 2, 10, QLatin1Char('0'));
        shown.save(ZEL_BINARY_DIR + name);
        different.emplace(shown.bits(), shown.bits() + shown.sizeInBytes());
        int dark = 0; // the part is there, whatever the file says of its window
        for (int y = 0; y < shown.height(); ++y)
            for (int x = 0; x < shown.width(); ++x) dark += qGray(shown.pixel(x, y)) < 140 ? 1 : 0;
        EXPECT_GT(dark, 2000) << "view " << i + 1;
    }
    EXPECT_GE(different.size(), 12U);
    session.SetView3DEvo(nullptr);
}
