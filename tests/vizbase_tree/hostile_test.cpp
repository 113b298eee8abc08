#include "TestTree.h"

#include <gtest/gtest.h>

using namespace NarMetaInfra;
using Kind = ZELReference::Kind;

namespace
{

class HostileModel : public testing::Test
{
protected:
    void SetUp() override { session.ClearMessages(); }
    /// A cycle of references owns itself.
    void TearDown() override
    {
        for (auto const& reference : model.GetReferences())
            while (reference->GetInstancesCount() > 0) reference->RemoveInstance(0);
    }
    std::shared_ptr<ZELReference> assembly(int number)
    {
        auto const name = L"a" + std::to_wstring(number);
        return model.AddReference(Kind::Assembly, name, name);
    }

    MoraCore::ASession& session = MoraCore::SessionMgr::Instance().CurrentSession();
    ZELProductStructure model{L"p", L"P"};
    TestTree tree{model};
};

} // namespace

TEST_F(HostileModel, AnAssemblyInsideItselfStopsWithOneWarning)
{
    auto const outer = assembly(0), inner = assembly(1);
    model.AddRootInstance(outer, L"root", L"outer");
    outer->AddInstance(inner, L"i1", L"inner.1");
    outer->AddInstance(inner, L"i2", L"inner.2");
    inner->AddInstance(outer, L"o", L"outer again");
    inner->AddInstance(inner, L"i", L"inner again");
    ASSERT_TRUE(tree.Render());
    EXPECT_EQ(tree.Text(), LR"(
P
  outer
    inner.1
      outer again
      inner again
    inner.2
      outer again
      inner again
)");
    ASSERT_EQ(session.Messages().size(), 1u);
    EXPECT_EQ(session.Messages()[0].type, MoraCore::MessageType::Warning);
    EXPECT_EQ(session.Messages()[0].text,
              L"The assembly \"a0\" contains itself: the model tree stops where it comes again.");
}

TEST_F(HostileModel, AChainDeeperThanTheStackIsCutOff)
{
    auto last = assembly(0);
    model.AddRootInstance(last, L"root", L"root");
    for (int i = 1; i < 100'000; ++i) {
        auto const next = assembly(i);
        last->AddInstance(next, L"p" + std::to_wstring(i), L"x");
        last = next;
    }
    ASSERT_TRUE(tree.Render());
    EXPECT_GE(tree.Items().Items().size(), TestTree::MaxDepth);
    EXPECT_LE(tree.Items().Items().size(), TestTree::MaxDepth + 3);
    ASSERT_EQ(session.Messages().size(), 1u);
}

TEST_F(HostileModel, AssembliesThatDoubleAtEachLevelAreCutOff)
{
    constexpr int levels = 60;
    std::vector<std::shared_ptr<ZELReference>> chain;
    for (int i = 0; i < levels; ++i) chain.push_back(assembly(i));
    model.AddRootInstance(chain[0], L"root", L"root");
    for (int i = 0; i + 1 < levels; ++i)
        for (auto const* which : {L"l", L"r"})
            chain[i]->AddInstance(chain[i + 1], which + std::to_wstring(i), which);
    chain.back()->AddInstance(model.AddReference(Kind::Part, L"leaf", L"Leaf"), L"leaf.1", L"leaf");
    ASSERT_TRUE(tree.Render());
    EXPECT_LE(tree.Items().Items().size(), TestTree::MaxNodes + 2);
    ASSERT_EQ(session.Messages().size(), 1u);
    EXPECT_EQ(session.Messages()[0].text, L"The model tree is cut off after 2000000 instances.");
}
