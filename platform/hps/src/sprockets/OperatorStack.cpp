#include "OperatorStack.h"
#include <algorithm>

namespace HPS
{

void OperatorStack::push(OperatorPtr const& pushed, Priority priority)
{
    pushed->DetachView();
    levels_[std::size_t(priority)].push_back(pushed);
    pushed->view_ = view_;
    pushed->OnViewAttached(view_);
}

void OperatorStack::detach(OperatorPtr const& leaving)
{
    leaving->OnViewDetached(view_);
    leaving->view_ = {};
}

OperatorPtr OperatorStack::pop(Priority priority)
{
    OperatorPtrArray& level = levels_[std::size_t(priority)];
    if (level.empty()) return nullptr;
    OperatorPtr const top = level.back();
    level.pop_back();
    detach(top);
    return top;
}

void OperatorStack::remove(Operator const& leaving)
{
    for (OperatorPtrArray& level : levels_) {
        auto const at = std::ranges::find(level, &leaving, &OperatorPtr::get);
        if (at == level.end()) continue;
        OperatorPtr const kept = *at;
        level.erase(at);
        return detach(kept);
    }
}

void OperatorStack::clear()
{
    for (Priority const priority : {Priority::High, Priority::Default, Priority::Low}) clear(priority);
}

void OperatorStack::clear(Priority priority)
{
    while (pop(priority) != nullptr) {
    }
}

bool OperatorStack::holds(OperatorPtr const& sought) const
{
    return std::ranges::any_of(
        levels_, [&](auto const& level) { return std::ranges::find(level, sought) != level.end(); });
}

bool OperatorStack::send(std::function<bool(Operator&)> const& handle) const
{
    OperatorPtrArray order;
    for (auto level = levels_.rbegin(); level != levels_.rend(); ++level)
        order.insert(order.end(), level->rbegin(), level->rend());
    return std::ranges::any_of(order, [&](OperatorPtr const& next) { return holds(next) && handle(*next); });
}

} // namespace HPS
