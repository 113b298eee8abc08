#include "TestTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace NarMetaInfra;
using Kind = ZELReference::Kind;
using EntityId = ZELVizCore::EntityId;
using EntityType = ZELVizCore::EntityType;
using testing::ElementsAre;
using ZELVizCore::RenderId;
using ZELVizCore::Settings;

namespace
{

class Identity : public testing::Test
{
protected:
    Identity()
    {
        instance = model.AddRootInstance(part, L"file.plate", L"Plate.1");
        tree.Render();
        root = tree.RootId;
        a = instance->GetHashedID();
    }
    EntityId entity(std::vector<unsigned long long> const& values)
    {
        EntityId result;
        EXPECT_TRUE(tree.Convert(path(values), result));
        return result;
    }
    RenderId render(EntityId const& id)
    {
        RenderId result = path({9});
        EXPECT_TRUE(tree.Convert(id, result));
        return result;
    }

    ZELProductStructure model{L"file", L"File"};
    std::shared_ptr<ZELReference> part = model.AddReference(Kind::Part, L"plate", L"Plate");
    std::shared_ptr<ZELInstance> instance;
    TestTree tree{model};
    unsigned long long root = 0, a = 0;
};

} // namespace

TEST_F(Identity, TreeNodesAreEntitiesByTheShapeOfTheirIds)
{
    struct {
        std::vector<unsigned long long> values;
        EntityId entity;
    } const rows[] = {
        {{1, root}, {1, EntityType::Instance, root}},
        {{1, root, a}, {root, EntityType::Instance, a}},
        {{1, root, a, 77}, {a, EntityType::Instance, 77}},
        {{1, root, a, 80000, 5}, {80000, EntityType::Body, 5}},
        {{1, root, a, 80000}, {a, EntityType::Brep, 80000}},
        {{1, root, a, 80000, 5, 6}, {5, EntityType::Brep, 6}},
        {{1, root, a, 10006}, {a, EntityType::Visualisation, 10006}},
        {{1, root, a, 10006, 5}, {10006, EntityType::Visualisation, 5}},
        {{1, root, a, 10005}, {10005, EntityType::Group, 10005}},
        {{1, root, a, 10005, 10101}, {10101, EntityType::Note, 10101}},
        {{1, root, a, 10005, 10010, 5}, {10010, EntityType::Views, 5}},
        {{1, root, a, 10005, 10012, 5}, {10012, EntityType::Captures, 5}},
        {{1, root, a, 10005, 10103, 5, 6, 7}, {10103, EntityType::Dimension, 5}},
        {{1, root, a, 10005, 2'000'000, 10010}, {2'000'000, EntityType::Undefined, 10010}},
    };
    for (auto const& row : rows) EXPECT_EQ(entity(row.values), row.entity) << &row - rows;
    EntityId none;
    EXPECT_FALSE(tree.Convert(path({1}), none));
}

TEST_F(Identity, TheConversionLeavesThePidAbove)
{
    entity({1, root, a, 80000, 5});
    EXPECT_EQ(tree.GetInstancePID(), L"file.plate");
    entity({1, root, 10006, 5});
    EXPECT_EQ(tree.GetInstancePID(), L"file");
    entity({1, root, a, 5});
    EXPECT_EQ(tree.GetInstancePID(), L"") << "no root instance";
    EXPECT_TRUE(tree.IsInPmiTree(path({1, root, a, 10005, 5})));
    EXPECT_EQ(tree.GetInstancePID(), L"file.plate");
    EXPECT_FALSE(tree.IsInPmiTree(path({1, root, a})));
    EXPECT_EQ(tree.GetInstancePID(), L"");
}

TEST_F(Identity, EntitiesOfAPartLeadToTheirNodes)
{
    EntityId const body(a, EntityType::Body, 5);
    EXPECT_EQ(render(body), path({1, root, 1, 5}));
    EXPECT_EQ(render({5, EntityType::Face, 6}), path({1, root, 1, 6}));
    EXPECT_EQ(render({0, EntityType::Visualisation, 6}), path({1, root, 1000, 10006, 6}));
    tree.BodyRenderIds["plate"][EntityId(5, EntityType::Body, 5)] = path({1, root, a, 80000, 5});
    for (EntityType type : {EntityType::Vertex, EntityType::Edge, EntityType::Face})
        EXPECT_EQ(render({5, type, 6}), path({1, root, a, 80000, 5, 6}));
    EXPECT_EQ(render({5, EntityType::Body, 5}), path({1, root, a, 80000, 5}));
    RenderId id = path({9});
    EXPECT_FALSE(tree.Convert(EntityId(root, EntityType::Instance, a), id));
    EXPECT_EQ(id.Length(), 0);
}

TEST_F(Identity, EntitiesOfAnAssemblyAreLookedUp)
{
    model.AddRootInstance(part, L"file.second", L"Plate.2");
    tree.Render();
    EXPECT_EQ(render({root, EntityType::Instance, a}), path({1, root, a}));
    RenderId id;
    EXPECT_FALSE(tree.Convert(EntityId(root, EntityType::Instance, a + 1), id));
    EXPECT_FALSE(tree.Convert(EntityId(a, EntityType::Body, 5), id));
}

TEST_F(Identity, HighlightMarksTheNodeAboveUnlessTheTreeShowsBodies)
{
    tree.Highlight(path({1, root, a, 5}));
    EXPECT_EQ(tree.view.GetHighlighted(), path({1, root, a}));
    tree.UnHighlight();
    for (bool Settings::*flag : {&Settings::DisplayBrepInTree, &Settings::DisplayFeaturesInTree}) {
        Settings::Current().*flag = true;
        tree.Highlight(path({1, root, a, 5}));
        EXPECT_FALSE(tree.view.GetHighlighted());
        Settings::Current().*flag = false;
    }
}

TEST_F(Identity, APickInTheSceneMarksItsNode)
{
    std::vector<unsigned long long> values{a, 7};
    tree.ReverseHighlight(values);
    EXPECT_THAT(values, ElementsAre(1, root, a, 7));
    EXPECT_EQ(tree.view.GetHighlighted(), path({1, root, a, 7}));
    tree.SetView(nullptr);
    tree.Highlight(path({1}));
    tree.UnHighlight();
    tree.ReverseHighlight(values);
}

TEST_F(Identity, MarkersAnywhereDecideTheSubTree)
{
    EXPECT_TRUE(tree.IsInFeatureTree(path({1, 2, 30000, 5})));
    EXPECT_FALSE(tree.IsInFeatureTree(path({1, 2, 81000})));
    EXPECT_TRUE(tree.IsInTopologyTree(path({1, 2, 81000})));
    RenderId three = path({1, 2, 3}), four = path({1, 2, 3, 4});
    EXPECT_TRUE(tree.Activate(three));
    EXPECT_FALSE(tree.Activate(four));
}
