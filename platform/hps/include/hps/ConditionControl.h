#pragma once
#include <hps/Key.h>

namespace HPS
{

using UTF8Array = std::vector<UTF8>;

// A condition by name, or several of them joined. A name holds for a segment while it is set on it or on one
// above on the path.
//
// In text: names joined by "and" and "or", turned round by "not", grouped by parentheses; "not" binds closest
// and "or" least. A name with blanks, parentheses or one of these words in it stands in double quotes when it
// is joined. Text that makes no such expression is one name as it is: "hide me".
class ConditionalExpression
{
public:
    ConditionalExpression() = default; // always holds
    ConditionalExpression(UTF8 condition) : condition_(std::move(condition)) {}
    ConditionalExpression(char const* condition) : condition_(condition) {}
    UTF8 const& Condition() const { return condition_; }
    bool Empty() const { return condition_.Empty(); }
    // Whether it holds where these conditions do.
    bool Evaluate(UTF8Array const& conditions) const;

    // Joined with the empty expression, which always holds: "a and" it is a, "a or" it holds always.
    friend ConditionalExpression operator&&(ConditionalExpression const& a, ConditionalExpression const& b);
    friend ConditionalExpression operator||(ConditionalExpression const& a, ConditionalExpression const& b);
    // Of the empty expression: itself.
    friend ConditionalExpression operator!(ConditionalExpression const& a);
    friend bool operator==(ConditionalExpression const&, ConditionalExpression const&) = default;

private:
    UTF8 condition_;
};

// The conditions set on a segment.
class ConditionControl
{
public:
    explicit ConditionControl(Key const& segment) : segment_(segment) {}

    // SetCondition and SetConditions replace what was set; AddCondition keeps it.
    ConditionControl& SetCondition(UTF8 const& condition);
    ConditionControl& SetConditions(UTF8Array const& conditions);
    ConditionControl& AddCondition(UTF8 const& condition);
    ConditionControl& UnsetCondition(UTF8 const& condition);
    ConditionControl& UnsetConditions();
    bool ShowConditions(UTF8Array& conditions) const;
    std::size_t GetCount() const;

private:
    Key segment_;
};

} // namespace HPS
