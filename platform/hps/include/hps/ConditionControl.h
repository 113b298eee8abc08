#pragma once
#include <hps/Key.h>

namespace HPS
{

using UTF8Array = std::vector<UTF8>;

// A condition, by name. It holds for a segment while it is set on it or on one above on the path.
class ConditionalExpression
{
public:
    ConditionalExpression() = default; // always holds
    ConditionalExpression(UTF8 condition) : condition_(std::move(condition)) {}
    ConditionalExpression(char const* condition) : condition_(condition) {}
    UTF8 const& Condition() const { return condition_; }
    bool Empty() const { return condition_.Empty(); }
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
