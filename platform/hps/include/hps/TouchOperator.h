#pragma once
#include <hps/Operator.h>

namespace HPS
{

// Two fingers pan and pinch: the points under both stay under them. One finger is left to others.
class TouchOperator : public Operator
{
public:
    TouchOperator() : Operator(MouseButtons()) {}
    UTF8 GetName() const override { return "HPS_TouchOperator"; }

    bool OnTouchDown(TouchState const& state) override;
    bool OnTouchUp(TouchState const& state) override;
    bool OnTouchMove(TouchState const& state) override;
    void OnFocusLost() override { before_.clear(); }

private:
    std::vector<Touch> before_; ///< where the two fingers were; empty: no gesture
};

} // namespace HPS
