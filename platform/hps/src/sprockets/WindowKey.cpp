#include "records.h"
#include <hps/WindowKey.h>

namespace HPS
{

bool WindowInfoControl::ShowWindowPixels(unsigned int& width, unsigned int& height) const
{
    auto const* const canvas = Registry::instance().findWindow(window_);
    if (canvas == nullptr) return false;
    width = unsigned(canvas->width);
    height = unsigned(canvas->height);
    return true;
}

bool WindowInfoControl::ShowWindowAspectRatio(float& ratio) const
{
    unsigned int width = 0, height = 0;
    if (!ShowWindowPixels(width, height)) return false;
    ratio = float(width) / float(height);
    return true;
}

} // namespace HPS
