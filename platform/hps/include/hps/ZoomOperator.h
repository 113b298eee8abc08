#pragma once
#include <hps/DragOperator.h>

namespace HPS
{

// Up brings nearer, down takes away; over the height of the window by a factor of eight.
class ZoomOperator : public DragOperator
{
public:
    using DragOperator::DragOperator;
    UTF8 GetName() const override { return "HPS_ZoomOperator"; }

protected:
    CameraKit move(CameraKit const& camera, Step const& step) const override;
};

} // namespace HPS
