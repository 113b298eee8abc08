#include "kit_operations.h"

namespace HPS
{

HPS_DEFINE_KIT(Subwindow)

SubwindowKit SubwindowKit::GetDefault()
{
    SubwindowKit kit;
    using namespace HPS::Subwindow;
    kit.SetSubwindow(Rectangle(-1, 1, -1, 1), IntRectangle(0, 0, 0, 0)).SetBackground(Background::SolidColor);
    kit.SetBorder(Border::None).SetRenderingAlgorithm(RenderingAlgorithm::ZBuffer);
    kit.SetModelCompareMode(false);
    return kit;
}

} // namespace HPS
