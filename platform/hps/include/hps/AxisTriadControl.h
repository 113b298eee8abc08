#pragma once
#include <hps/CornerControl.h>

namespace HPS
{

// Three arrows along the axes of the world. Materials of the palette: 0 is the z axis, 1 the y axis, 2 the x
// axis.
class AxisTriadControl : public detail::CornerOperations<AxisTriadControl>
{
public:
    explicit AxisTriadControl(View const& view) : CornerOperations(Kind::AxisTriad, view) {}
};

} // namespace HPS
