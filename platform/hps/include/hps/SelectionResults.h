#pragma once
#include <hps/SelectionItem.h>

namespace HPS
{

// Walks along results, which must stay as they are meanwhile.
class SelectionResultsIterator
{
public:
    SelectionResultsIterator() = default;
    explicit SelectionResultsIterator(std::vector<SelectionItem> const& items) : items_(&items) {}

    bool IsValid() const { return items_ != nullptr && at_ < items_->size(); }
    SelectionResultsIterator& Next()
    {
        ++at_;
        return *this;
    }
    SelectionResultsIterator& Reset()
    {
        at_ = 0;
        return *this;
    }
    // An empty item behind the last one.
    SelectionItem GetItem() const { return IsValid() ? (*items_)[at_] : SelectionItem(); }

private:
    std::vector<SelectionItem> const* items_ = nullptr;
    std::size_t at_ = 0;
};

// What a selection has found, in the order that was asked for; each thing once.
class SelectionResults
{
public:
    SelectionResults() = default;
    // No item may be given twice.
    explicit SelectionResults(std::vector<SelectionItem> items) : items_(std::move(items)) {}

    std::size_t GetCount() const { return items_.size(); }
    bool Empty() const { return items_.empty(); }
    SelectionResultsIterator GetIterator() const { return SelectionResultsIterator(items_); }
    SelectionResults& Reset();

    // Behind these those of `other` that are not among them. What is in both has the parts of both.
    SelectionResults& Union(SelectionResults const& other);
    // Only what is in both.
    SelectionResults& Intersect(SelectionResults const& other);
    // Without what is in `other`.
    SelectionResults& Difference(SelectionResults const& other);
    bool Contains(SelectionItem const& item) const;

private:
    std::vector<SelectionItem> items_;
};

} // namespace HPS
