#include "conditions.h"
#include "store.h"
#include "support.h"

using namespace HPS;

namespace
{

struct Row {
    char const* expression;
    UTF8Array held;
    bool holds;
};

class Conditions : public testing::TestWithParam<Row>
{
};

TEST_P(Conditions, HoldAsWritten)
{
    auto const& [text, held, expected] = GetParam();
    EXPECT_EQ(ConditionalExpression(text).Evaluate(held), expected);
    // The fold's own way, on names that were interned.
    auto& all = scene::store();
    std::vector<scene::ConditionId> ids;
    for (auto const& name : held) ids.push_back(all.conditionId(name.Str()));
    std::sort(ids.begin(), ids.end());
    EXPECT_EQ(scene::holds(all.conditionId(text), ids), expected);
}

INSTANTIATE_TEST_SUITE_P(
    , Conditions,
    testing::Values(Row{"hide_#42", {"hide_#42"}, true}, Row{"hide_#42", {"hide_#4", "hide_#421"}, false},
                    Row{"a and b", {"a"}, false}, Row{"a and b", {"b", "a"}, true},
                    Row{"a or b", {"b"}, true}, Row{"a or b", {}, false}, Row{"not a", {"b"}, true},
                    Row{"not a", {"a"}, false}, Row{"not not a", {"a"}, true},
                    Row{"a or b and c", {"a"}, true}, Row{"(a or b) and c", {"a"}, false},
                    Row{"not (a or b)", {}, true}, Row{"not a or b", {"a", "b"}, true},
                    Row{"not a and not b", {}, true}, Row{"a and(b)and(c)", {"a", "b", "c"}, true},
                    Row{"\"hide me\" and b", {"hide me", "b"}, true}, Row{"\"and\"", {"and"}, true},
                    // No expressions, so names.
                    Row{"hide me", {"hide me"}, true}, Row{"hide me", {"hide", "me"}, false},
                    Row{"and", {"and"}, true}, Row{"a and", {"a and"}, true}, Row{"(a", {"(a"}, true},
                    Row{"a)", {"a)"}, true}, Row{"\"a", {"\"a"}, true}, Row{"()", {"()"}, true},
                    Row{"a or or b", {"a"}, false}));

TEST(ConditionsJoined, AreReadBackAsTheyWereMeant)
{
    ConditionalExpression const a("a"), b("b"), spaced("two words"), word("or"), none;
    EXPECT_TRUE((!(a && b) || spaced).Evaluate({"a"}));
    EXPECT_FALSE((!(a && b) || spaced).Evaluate({"a", "b"}));
    EXPECT_TRUE((!(a && b) || spaced).Evaluate({"a", "b", "two words"}));
    EXPECT_TRUE(((a || b) && word).Evaluate({"b", "or"}));
    EXPECT_FALSE(((a || b) && word).Evaluate({"b"}));
    EXPECT_EQ((a && none), a);
    EXPECT_TRUE((a || none).Empty());
    EXPECT_TRUE(none.Evaluate({}));
}

TEST(ConditionsJoined, NestedWithoutEndAreANameAndNoCrash)
{
    std::string text;
    for (int i = 0; i < 100'000; ++i) text += "(";
    EXPECT_FALSE(ConditionalExpression(UTF8(text + "a")).Evaluate({"a"}));
    text.clear();
    for (int i = 0; i < 100'000; ++i) text += "not ";
    EXPECT_FALSE(ConditionalExpression(UTF8(text + "a")).Evaluate({}));
}

class ConditionalStyles : public Scene
{
protected:
    PortfolioKey portfolio = Database::CreatePortfolio();
    ~ConditionalStyles() override { portfolio.Delete(); }
};

TEST_F(ConditionalStyles, ShowTheExpressionTheyWerePushedWith)
{
    auto style = root.GetStyleControl().PushNamed("hidden", !ConditionalExpression("a") && "b");
    ConditionalExpression shown;
    ASSERT_TRUE(style.ShowCondition(shown));
    EXPECT_EQ(shown.Condition(), UTF8("(not a) and b"));
}

} // namespace
