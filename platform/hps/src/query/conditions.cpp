#include "conditions.h"
#include "store.h"
#include <algorithm>
#include <hps/ConditionControl.h>

namespace HPS::scene
{
namespace
{

// Deeper than this nobody writes; it keeps hostile text off the stack.
constexpr int deepest = 200;

// An expression in the order in which a stack machine computes it.
struct Step {
    enum class Kind : std::uint8_t { Name, And, Or, Not } kind;
    std::string name;
};

// or-expression: and-expression { "or" and-expression }; and-expression: term { "and" term };
// term: "not" term | "(" or-expression ")" | name
class Parser
{
public:
    explicit Parser(std::string_view text) : text_(text) { advance(); }

    // False if the text is no expression.
    bool parse(std::vector<Step>& steps)
    {
        steps_ = &steps;
        return parseOr(0) && token_.empty();
    }

private:
    bool parseOr(int depth)
    {
        if (!parseAnd(depth)) return false;
        while (takes("or")) {
            if (!parseAnd(depth)) return false;
            steps_->push_back({Step::Kind::Or, {}});
        }
        return true;
    }
    bool parseAnd(int depth)
    {
        if (!parseTerm(depth)) return false;
        while (takes("and")) {
            if (!parseTerm(depth)) return false;
            steps_->push_back({Step::Kind::And, {}});
        }
        return true;
    }
    bool parseTerm(int depth)
    {
        if (depth > deepest) return false;
        if (takes("not")) {
            if (!parseTerm(depth + 1)) return false;
            steps_->push_back({Step::Kind::Not, {}});
            return true;
        }
        if (takes("(")) return parseOr(depth + 1) && takes(")");
        if (token_.empty() || (!quoted_ && (token_ == ")" || token_ == "and" || token_ == "or")))
            return false;
        steps_->push_back({Step::Kind::Name, token_});
        advance();
        return true;
    }
    bool takes(std::string_view word)
    {
        if (quoted_ || token_ != word) return false;
        advance();
        return true;
    }
    void advance()
    {
        constexpr std::string_view blanks = " \t\r\n";
        token_.clear();
        quoted_ = false;
        at_ = std::min(text_.find_first_not_of(blanks, at_), text_.size());
        if (at_ == text_.size()) return;
        auto end = at_ + 1;
        if (text_[at_] == '"') {
            quoted_ = true;
            end = text_.find('"', at_ + 1);
            if (end == text_.npos) return void(at_ = text_.size()); // no name: the text is no expression
            token_ = text_.substr(at_ + 1, end - at_ - 1);
            at_ = end + 1;
            return;
        }
        if (text_[at_] != '(' && text_[at_] != ')')
            end = std::min(text_.find_first_of(" \t\r\n()", at_), text_.size());
        token_ = text_.substr(at_, end - at_);
        at_ = end;
    }

    std::string_view text_;
    std::size_t at_ = 0;
    std::string token_; // empty at the end
    bool quoted_ = false;
    std::vector<Step>* steps_ = nullptr;
};

// Text that is no expression is a single name.
std::vector<Step> stepsOf(std::string const& text)
{
    std::vector<Step> steps;
    if (Parser(text).parse(steps)) return steps;
    return {{Step::Kind::Name, text}};
}

template <class Steps, class Holds> bool evaluate(Steps const& steps, Holds&& nameHolds)
{
    std::vector<bool> stack;
    for (auto const& step : steps) {
        bool value = false;
        if (step.kind == Step::Kind::Name) {
            stack.push_back(nameHolds(step));
            continue;
        }
        value = stack.back();
        if (step.kind == Step::Kind::Not) {
            stack.back() = !value;
            continue;
        }
        stack.pop_back();
        stack.back() = step.kind == Step::Kind::And ? stack.back() && value : stack.back() || value;
    }
    return stack.back();
}

struct Compiled {
    Step::Kind kind;
    ConditionId name;
};

std::vector<Compiled> const& compiled(ConditionId expression)
{
    static auto& all = *new std::unordered_map<ConditionId, std::vector<Compiled>>;
    auto& steps = all[expression];
    if (steps.empty())
        for (auto const& step : stepsOf(store().conditionName(expression)))
            steps.push_back({step.kind, store().conditionId(step.name)});
    return steps;
}

// A name as it stands within an expression.
std::string operand(ConditionalExpression const& expression)
{
    auto const& text = expression.Condition().Str();
    auto const steps = stepsOf(text);
    if (steps.size() != 1) return "(" + text + ")";
    auto const isPlain = steps[0].name.find_first_of(" \t\r\n()") == std::string::npos;
    auto const isWord = steps[0].name == "and" || steps[0].name == "or" || steps[0].name == "not";
    return isPlain && !isWord ? steps[0].name : '"' + steps[0].name + '"';
}

ConditionalExpression join(ConditionalExpression const& a, char const* word, ConditionalExpression const& b)
{
    return ConditionalExpression(UTF8(operand(a) + word + operand(b)));
}

} // namespace

bool holds(ConditionId expression, std::span<ConditionId const> held)
{
    return evaluate(compiled(expression), [&](Compiled const& step) {
        return std::binary_search(held.begin(), held.end(), step.name);
    });
}

} // namespace HPS::scene

namespace HPS
{
using namespace scene;

bool ConditionalExpression::Evaluate(UTF8Array const& conditions) const
{
    if (Empty()) return true;
    return evaluate(stepsOf(condition_.Str()), [&](Step const& step) {
        return std::any_of(conditions.begin(), conditions.end(),
                           [&](UTF8 const& condition) { return condition.Str() == step.name; });
    });
}

ConditionalExpression operator&&(ConditionalExpression const& a, ConditionalExpression const& b)
{
    if (a.Empty()) return b;
    return b.Empty() ? a : join(a, " and ", b);
}

ConditionalExpression operator||(ConditionalExpression const& a, ConditionalExpression const& b)
{
    return a.Empty() || b.Empty() ? ConditionalExpression() : join(a, " or ", b);
}

ConditionalExpression operator!(ConditionalExpression const& a)
{
    return a.Empty() ? a : ConditionalExpression(UTF8("not " + operand(a)));
}

} // namespace HPS
