#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <mora/AViewTree.h>

using namespace MoraCore;
using testing::ElementsAre;
using ZELVizCore::RenderId;

namespace
{

std::vector<unsigned long long> values(RenderId const& id)
{
    std::vector<unsigned long long> result;
    for (int i = 0; i < id.Length(); ++i) result.push_back(id[i]);
    return result;
}

std::vector<std::wstring> childNames(TreeBuilder const& tree, std::int32_t parent)
{
    std::vector<std::wstring> names;
    for (auto i = tree.Items()[parent].firstChild; i != TreeBuilder::NoItem; i = tree.Items()[i].nextSibling)
        names.push_back(tree.Items()[i].name);
    return names;
}

void buildSmallTree(TreeBuilder& tree)
{
    tree.BeginTree();
    tree.BeginRoot(1, L"ROOT");
    tree.BeginAssembly(7, L"car");
    tree.BeginPart(8, L"wheel");
    tree.SetItemVisible(false);
    tree.EndPart();
    tree.BeginPart(9, L"door");
    tree.BeginItem(17, L"notes", TreeItemStyles::AnnotationSet);
    tree.EndItem();
    tree.EndPart();
    tree.EndAssembly();
    tree.EndRoot();
    tree.EndTree();
}

} // namespace

TEST(TreeBuilder, CurrentIdIsThePathOfTheOpenNode)
{
    TreeBuilder tree;
    RenderId id;
    EXPECT_FALSE(tree.GetCurrentId(id));
    tree.BeginTree();
    EXPECT_FALSE(tree.GetCurrentId(id));
    tree.BeginRoot(1, L"ROOT");
    tree.BeginAssembly(70, L"a");
    tree.BeginPart(8, L"p");
    ASSERT_TRUE(tree.GetCurrentId(id));
    EXPECT_EQ(id.Origin, RenderId::OriginEnum{2});
    EXPECT_THAT(values(id), ElementsAre(1, 70, 8));
    tree.EndPart();
    tree.BeginPart(9, L"q");
    ASSERT_TRUE(tree.GetCurrentId(id));
    EXPECT_THAT(values(id), ElementsAre(1, 70, 9));
    tree.EndPart();
    tree.EndAssembly();
    ASSERT_TRUE(tree.GetCurrentId(id));
    EXPECT_THAT(values(id), ElementsAre(1));
}

TEST(TreeBuilder, KeepsNamesOrderStylesAndMarks)
{
    TreeBuilder tree;
    buildSmallTree(tree);
    ASSERT_EQ(tree.Items().size(), 5u);
    EXPECT_THAT(childNames(tree, 0), ElementsAre(L"car"));
    EXPECT_THAT(childNames(tree, 1), ElementsAre(L"wheel", L"door"));
    EXPECT_EQ(tree.Items()[1].childCount, 2);
    EXPECT_FALSE(tree.Items()[2].visible);
    EXPECT_TRUE(tree.Items()[3].visible);
    EXPECT_EQ(tree.Items()[3].kind, TreeBuilder::Kind::Part);
    EXPECT_EQ(tree.Items()[4].style, TreeItemStyles{17});
}

TEST(TreeBuilder, FindsANodeByItsPath)
{
    TreeBuilder tree;
    buildSmallTree(tree);
    for (std::int32_t i = 0; i < static_cast<std::int32_t>(tree.Items().size()); ++i)
        EXPECT_EQ(tree.Find(tree.GetPath(i)), i);
    EXPECT_EQ(tree.Find(RenderId({1, 7, 4}, RenderId::OriginEnum::Visualisation)), TreeBuilder::NoItem);
    EXPECT_EQ(tree.Find(RenderId({1, 7}, RenderId::OriginEnum::Host)), TreeBuilder::NoItem);
    EXPECT_EQ(tree.Find(RenderId()), TreeBuilder::NoItem);
}

// Two sets of one part: "1 5 10 a" and "1 5 10 b", where both have a node 10.
TEST(TreeBuilder, SetsOfAnnotationsAreInNoPathButTheirOwn)
{
    TreeBuilder tree;
    tree.BeginTree();
    tree.BeginRoot(1, L"");
    tree.BeginAnnotations(5, L"");
    for (TreeBuilder::Id const set : {20, 30}) {
        tree.BeginItem(set, L"", TreeItemStyles::AnnotationSet);
        tree.BeginViews(10, L"");
        tree.BeginView(set + 1, L"");
        RenderId id;
        ASSERT_TRUE(tree.GetCurrentId(id));
        EXPECT_THAT(values(id), ElementsAre(1, 5, 10, set + 1));
        tree.EndView();
        tree.EndViews();
        tree.EndItem();
    }
    tree.EndAnnotations();
    tree.EndRoot();
    tree.EndTree();
    auto const find = [&tree](std::vector<TreeBuilder::Id> const& path) {
        return tree.Find(RenderId(path, RenderId::OriginEnum::Visualisation));
    };
    EXPECT_EQ(find({1, 5, 20}), 2);
    EXPECT_EQ(find({1, 5, 10, 21}), 4);
    EXPECT_EQ(find({1, 5, 30}), 5);
    EXPECT_EQ(find({1, 5, 10, 31}), 7);
    EXPECT_EQ(find({1, 5, 20, 10, 21}), TreeBuilder::NoItem);
}

TEST(TreeBuilder, ANewTreeReplacesTheOld)
{
    TreeBuilder tree;
    buildSmallTree(tree);
    buildSmallTree(tree);
    EXPECT_EQ(tree.Items().size(), 5u);
}

TEST(TreeBuilder, TakesAHundredThousandNodesWideAndDeep)
{
    constexpr int count = 100'000;
    TreeBuilder tree;
    tree.BeginTree();
    tree.BeginRoot(1, L"ROOT");
    for (int i = 0; i < count; ++i) {
        tree.BeginPart(static_cast<TreeBuilder::Id>(i), L"part");
        tree.EndPart();
    }
    for (int i = 0; i < count; ++i) tree.BeginAssembly(5, L"deep");
    RenderId id;
    ASSERT_TRUE(tree.GetCurrentId(id));
    EXPECT_EQ(id.Length(), count + 1);
    for (int i = 0; i < count; ++i) tree.EndAssembly();
    tree.EndRoot();
    tree.EndTree();
    EXPECT_EQ(tree.Items().size(), 2u * count + 1);
    EXPECT_EQ(tree.Items()[0].childCount, count + 1);
    EXPECT_EQ(tree.GetPath(count)[1], count - 1u);
}

#ifdef NDEBUG
TEST(TreeBuilder, AnEndThatMatchesNothingIsIgnored)
{
    TreeBuilder tree;
    tree.EndTree();
    tree.EndPart();
    tree.BeginTree();
    tree.BeginRoot(1, L"ROOT");
    tree.EndPart();
    RenderId id;
    EXPECT_TRUE(tree.GetCurrentId(id));
}
#else
TEST(TreeBuilderDeath, AFaultNamesTheFunctionAndTheOpenNode)
{
    TreeBuilder tree;
    EXPECT_DEATH(tree.EndTree(), "TreeBuilder::EndTree: no tree was begun");
    EXPECT_DEATH(tree.BeginPart(1, L"p"), "TreeBuilder::BeginPart: called outside BeginTree and EndTree");
    tree.BeginTree();
    EXPECT_DEATH(tree.EndPart(), "TreeBuilder::EndPart: no node is open");
    tree.BeginRoot(1, L"ROOT");
    EXPECT_DEATH(tree.EndPart(), "TreeBuilder::EndPart: open node is of kind Root");
    EXPECT_DEATH(tree.EndTree(), "TreeBuilder::EndTree: open node is of kind Root");
}
#endif

TEST(AViewTree, ClearingForgetsTreeAndHighlight)
{
    AViewTree view;
    buildSmallTree(view.GetTreeBuilder());
    RenderId const wheel = view.GetTreeBuilder().GetPath(2);
    view.HighlightItem(wheel);
    EXPECT_EQ(view.GetHighlighted(), wheel);
    view.ClearHighlight();
    EXPECT_FALSE(view.GetHighlighted());
    view.HighlightItem(wheel);
    view.ClearItems();
    EXPECT_FALSE(view.GetHighlighted());
    EXPECT_TRUE(view.GetTreeBuilder().Items().empty());
}
