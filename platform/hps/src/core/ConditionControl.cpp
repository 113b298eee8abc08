#include "structure.h"
#include <algorithm>

namespace HPS
{
using namespace scene;

namespace
{

// Writes the conditions if they differ. Names without a letter are no conditions.
void replace(Key const& key, std::vector<ConditionId> conditions)
{
    auto* const segment = store().resolve<SegmentRecord>(key);
    if (!segment) return;
    std::sort(conditions.begin(), conditions.end());
    conditions.erase(std::unique(conditions.begin(), conditions.end()), conditions.end());
    std::erase(conditions, ConditionId(0));
    if (segment->extras ? segment->extras->conditions == conditions : conditions.empty()) return;
    segment->rare().conditions = std::move(conditions);
    noteChange(*segment, Change::Conditions);
}

std::vector<ConditionId> conditionsOf(Key const& key)
{
    auto const* const segment = store().resolve<SegmentRecord>(key);
    return segment && segment->extras ? segment->extras->conditions : std::vector<ConditionId>();
}

} // namespace

ConditionControl& ConditionControl::SetCondition(UTF8 const& condition)
{
    replace(segment_, {store().conditionId(condition.Str())});
    return *this;
}

ConditionControl& ConditionControl::SetConditions(UTF8Array const& conditions)
{
    std::vector<ConditionId> ids;
    for (auto const& condition : conditions) ids.push_back(store().conditionId(condition.Str()));
    replace(segment_, std::move(ids));
    return *this;
}

ConditionControl& ConditionControl::AddCondition(UTF8 const& condition)
{
    auto ids = conditionsOf(segment_);
    ids.push_back(store().conditionId(condition.Str()));
    replace(segment_, std::move(ids));
    return *this;
}

ConditionControl& ConditionControl::UnsetCondition(UTF8 const& condition)
{
    auto ids = conditionsOf(segment_);
    std::erase(ids, store().conditionId(condition.Str()));
    replace(segment_, std::move(ids));
    return *this;
}

ConditionControl& ConditionControl::UnsetConditions()
{
    replace(segment_, {});
    return *this;
}

bool ConditionControl::ShowConditions(UTF8Array& conditions) const
{
    conditions.clear();
    for (auto const id : conditionsOf(segment_)) conditions.emplace_back(store().conditionName(id));
    return !conditions.empty();
}

std::size_t ConditionControl::GetCount() const
{
    return conditionsOf(segment_).size();
}

SegmentKey& SegmentKey::SetCondition(UTF8 const& condition)
{
    GetConditionControl().SetCondition(condition);
    return *this;
}

SegmentKey& SegmentKey::SetConditions(UTF8Array const& conditions)
{
    GetConditionControl().SetConditions(conditions);
    return *this;
}

SegmentKey& SegmentKey::UnsetConditions()
{
    GetConditionControl().UnsetConditions();
    return *this;
}

bool SegmentKey::ShowConditions(UTF8Array& conditions) const
{
    return GetConditionControl().ShowConditions(conditions);
}

} // namespace HPS
