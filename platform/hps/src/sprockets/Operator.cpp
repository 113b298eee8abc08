#include "OperatorStack.h"
#include "records.h"

namespace HPS
{
namespace
{

OperatorStack* stackOf(View const& view)
{
    ViewRecord* const record = Registry::instance().find(view);
    return record != nullptr ? record->operators.get() : nullptr;
}

} // namespace

void Operator::DetachView()
{
    if (OperatorStack* const stack = stackOf(view_)) stack->remove(*this);
}

OperatorControl View::GetOperatorControl() const
{
    return OperatorControl(*this);
}

bool OperatorControl::Push(OperatorPtr const& pushed, Operator::Priority priority)
{
    OperatorStack* const stack = stackOf(view_);
    if (stack == nullptr || pushed == nullptr) return false;
    stack->push(pushed, priority);
    return true;
}

bool OperatorControl::Pop(Operator::Priority priority)
{
    OperatorPtr popped;
    return Pop(priority, popped);
}

bool OperatorControl::Pop(Operator::Priority priority, OperatorPtr& popped)
{
    OperatorStack* const stack = stackOf(view_);
    OperatorPtr const top = stack != nullptr ? stack->pop(priority) : nullptr;
    if (top != nullptr) popped = top;
    return top != nullptr;
}

bool OperatorControl::ShowTop(OperatorPtr& top, Operator::Priority priority) const
{
    OperatorStack const* const stack = stackOf(view_);
    if (stack == nullptr || stack->at(priority).empty()) return false;
    top = stack->at(priority).back();
    return true;
}

OperatorPtrArray OperatorControl::Show(Operator::Priority priority) const
{
    OperatorStack const* const stack = stackOf(view_);
    return stack != nullptr ? stack->at(priority) : OperatorPtrArray();
}

OperatorControl& OperatorControl::UnsetEverything()
{
    if (OperatorStack* const stack = stackOf(view_)) stack->clear();
    return *this;
}

OperatorControl& OperatorControl::UnsetEverything(Operator::Priority priority)
{
    if (OperatorStack* const stack = stackOf(view_)) stack->clear(priority);
    return *this;
}

} // namespace HPS
