#pragma once
#include <hps/DragOperator.h>

namespace HPS
{

// Moves eye and target so that what lies under the mouse at the target's depth stays under it.
class PanOperator : public DragOperator
{
public:
    using DragOperator::DragOperator;
    UTF8 GetName() const override { return "HPS_PanOperator"; }

protected:
    CameraKit move(CameraKit const& camera, Step const& step) const override;
};

} // namespace HPS
