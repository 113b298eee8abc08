#include "TestTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace NarMetaInfra;
using Kind = ZELReference::Kind;
using testing::EndsWith;
using testing::HasSubstr;

namespace
{

/// A car with two wheels of one part, an engine as sub-assembly, and an assembly without contents.
class Car : public testing::Test
{
protected:
    Car()
    {
        wheel->AddBody({}).name = L"rim";
        engine->AddInstance(piston, L"engine.piston", L"Piston.1");
        engineInstance = model.AddRootInstance(engine, L"car.engine", L"Engine.1");
        left = model.AddRootInstance(wheel, L"car.left", L"Left");
        right = model.AddRootInstance(wheel, L"car.right");
        model.AddRootInstance(model.AddReference(Kind::Assembly, L"empty", L"Empty"), L"car.empty",
                              L"Empty.1");
    }
    std::wstring render()
    {
        EXPECT_TRUE(tree.Render());
        return tree.Text();
    }

    ZELProductStructure model{L"car", L"Car"};
    std::shared_ptr<ZELReference> wheel = model.AddReference(Kind::Part, L"wheel", L"Wheel");
    std::shared_ptr<ZELReference> piston = model.AddReference(Kind::Part, L"piston", L"Piston");
    std::shared_ptr<ZELReference> engine = model.AddReference(Kind::Assembly, L"engine", L"Engine");
    std::shared_ptr<ZELInstance> engineInstance, left, right;
    TestTree tree{model};
};

} // namespace

TEST_F(Car, ShowsInstancesByNameAndLeavesOutEmptyAssemblies)
{
    EXPECT_EQ(render(), LR"(
Car
  Engine.1
    Piston.1
  Left
    body rim
  Wheel
    body rim
)");
    EXPECT_FALSE(tree.Path(L"ROOT").Length() == 0);
    EXPECT_TRUE(tree.IsRendered());
}

TEST_F(Car, PathsRunFromTheRootOverTheModelToTheInstance)
{
    render();
    EXPECT_EQ(tree.Path(L"Car"), path({1, tree.RootId}));
    EXPECT_EQ(tree.Path(L"Piston.1"), path({1, tree.RootId, engineInstance->GetHashedID(),
                                            engine->GetInstances()[0]->GetHashedID()}));
}

TEST_F(Car, WithoutAViewNothingIsRendered)
{
    tree.SetView(nullptr);
    EXPECT_FALSE(tree.Render());
    EXPECT_FALSE(tree.IsRendered());
    EXPECT_TRUE(tree.Items().Items().empty());
}

TEST_F(Car, AModelWithoutInstancesIsOnlyTheRoot)
{
    ZELProductStructure nothing;
    TestTree bare(nothing);
    EXPECT_TRUE(bare.Render());
    EXPECT_EQ(bare.Items().Items().size(), 1u);
    EXPECT_EQ(bare.Items().Items()[0].name, L"ROOT");
}

TEST_F(Car, ToolTipsSayWhatANodeIs)
{
    render();
    EXPECT_EQ(tree.GetToolTip(tree.Path(L"Car")), L"Product \"Car\"");
    EXPECT_EQ(tree.GetToolTip(tree.Path(L"Engine.1")),
              L"Instance of Assembly Reference \"Engine\" RefID : " + std::to_wstring(engine->GetUniqueID()));
    EXPECT_EQ(tree.GetToolTip(tree.Path(L"Left")),
              L"Instance of Part Reference \"Wheel\" RefID : " + std::to_wstring(wheel->GetUniqueID()));
    EXPECT_EQ(tree.GetToolTip(path({1})), L"");
    EXPECT_EQ(tree.GetToolTip(path({1, 2, 3})), L"");
}

TEST_F(Car, AHiddenInstanceLosesItsOwnMarkOnly)
{
    engineInstance->SetHidden(true);
    right->SetHidden(false);
    EXPECT_EQ(render(), LR"(
Car
  Engine.1 (hidden) -
    Piston.1
  Left
    body rim
  Wheel
    body rim
)");
}

TEST_F(Car, ASuppressedInstanceTakesItsWholeBranchAlong)
{
    auto const inner = model.AddReference(Kind::Assembly, L"inner", L"Inner");
    inner->AddInstance(piston, L"inner.piston", L"Deep");
    engine->AddInstance(inner, L"engine.inner", L"Inner.1");
    engineInstance->SetSuppressed(true);
    left->SetSuppressed(true);
    EXPECT_EQ(render(), LR"(
Car
  Engine.1 (suppressed) -
    Piston.1 -
    Inner.1 -
      Deep -
  Left (suppressed) -
    body rim
  Wheel
    body rim
)");
    EXPECT_FALSE(tree.SuppressedBranch);
}

TEST_F(Car, ASuppressedChildLeavesItsSiblingsAlone)
{
    engine->GetInstances()[0]->SetSuppressed(true);
    engine->AddInstance(piston, L"engine.second", L"Piston.2");
    EXPECT_THAT(render(), HasSubstr(L"    Piston.1 (suppressed) -\n    Piston.2\n"));
}

TEST_F(Car, NamesThatReadersMakeUpAreReplaced)
{
    left->SetInstanceName(L"KRMPartDummyInstance");
    left->SetHidden(true);
    left->SetSuppressed(true);
    right->SetInstanceName(L"ZELKNarPSPartDummyInstance");
    model.SetProductName(L"ZELKNarPSProductDummyReference");
    piston->SetReferenceName(L"");
    engine->GetInstances()[0]->SetInstanceName(L"");
    EXPECT_EQ(render(),
              L"\nProductStructure\n  Engine.1\n    " + std::to_wstring(piston->GetUniqueID()) + LR"(
  Wheel (hidden) (suppressed) -
    body rim
  Wheel
    body rim
)");
    model.SetProductName(L"");
    EXPECT_THAT(render(), testing::StartsWith(L"\n" + std::to_wstring(tree.RootId) + L"\n"));
}

TEST_F(Car, AMissingFileIsAnItemThatSaysSo)
{
    auto const known = model.AddReference(Kind::Missing, L"known", L"Door");
    known->SetStorageName(L"door.stp");
    auto const lost = model.AddRootInstance(known, L"car.door", L"Door.1");
    lost->SetHidden(true);
    model.AddRootInstance(model.AddReference(Kind::Missing, L"unknown", L"Seat"), L"car.seat", L"Seat.1");
    EXPECT_THAT(render(), EndsWith(L"  Door.1 (hidden)\n  Seat.1\n")) << "without a mark";
    auto const door = tree.Path(L"Door.1 (hidden)");
    EXPECT_EQ(tree.Items().Items()[tree.Items().Find(door)].style, MoraCore::TreeItemStyles{116});
    EXPECT_EQ(tree.GetToolTip(door), L"Instance of Assembly Reference \"Door\" is Missing File \"door.stp\"");
    EXPECT_EQ(tree.GetToolTip(tree.Path(L"Seat.1")),
              L"Instance of Assembly Reference \"Seat\" external file missing");
}

TEST_F(Car, ASharedAssemblyShowsInEveryPlaceAndIsEnteredOncePerParent)
{
    model.AddRootInstance(engine, L"car.spare", L"Spare");
    EXPECT_THAT(render(), HasSubstr(L"  Spare\n    Piston.1\n"));
    auto const id = engine->GetInstances()[0]->GetHashedID();
    EXPECT_EQ(tree.EntityRenderIds.count(
                  TestTree::EntityId(engineInstance->GetHashedID(), TestTree::EntityType::Instance, id)),
              1u);
    // The same instance a second time below one parent: the first entry stays.
    TestTree::EntityId entity;
    EXPECT_TRUE(
        tree.addToLinkMap(nullptr, 5, id, path({1, 2, 3, engineInstance->GetHashedID(), id}), entity));
    EXPECT_EQ(tree.EntityRenderIds.at(entity), tree.Path(L"Piston.1"));
    EXPECT_EQ(tree.EntityReferenceIds.at(entity), piston->GetUniqueID());
    EXPECT_FALSE(tree.addToLinkMap(nullptr, 5, id, path({1}), entity));
}

TEST_F(Car, RenderingAgainGivesTheSameTree)
{
    std::wstring const first = render();
    EXPECT_EQ(render(), first);
    tree.ClearAll();
    EXPECT_FALSE(tree.IsRendered());
    EXPECT_TRUE(tree.Items().Items().empty());
    EXPECT_TRUE(tree.EntityRenderIds.empty());
    EXPECT_EQ(tree.RootId, 0u);
    EXPECT_EQ(render(), first);
}
