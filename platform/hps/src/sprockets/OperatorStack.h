#pragma once
#include <array>
#include <functional>
#include <hps/Operator.h>

namespace HPS
{

/// The operators of one view. Handlers may push and pop meanwhile: those that leave are not called any more,
/// those that come wait for the next event.
class OperatorStack
{
public:
    using Priority = Operator::Priority;

    explicit OperatorStack(View const& view) : view_(view) {}
    ~OperatorStack() { clear(); }
    OperatorStack(OperatorStack const&) = delete;
    OperatorStack& operator=(OperatorStack const&) = delete;

    void push(OperatorPtr const& pushed, Priority priority);
    OperatorPtr pop(Priority priority);
    OperatorPtrArray const& at(Priority priority) const { return levels_[std::size_t(priority)]; }
    void remove(Operator const& leaving);
    void clear();
    void clear(Priority priority);

    /// Calls `handle` from the top down until it gives true, which is then the result.
    bool send(std::function<bool(Operator&)> const& handle) const;

private:
    bool holds(OperatorPtr const& sought) const;
    void detach(OperatorPtr const& leaving);

    View view_;
    std::array<OperatorPtrArray, 3> levels_; ///< by Priority
};

} // namespace HPS
