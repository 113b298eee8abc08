#include "records.h"
#include "store.h"
#include <hps/KeyPath.h>
#include <hps/SprocketPath.h>
#include <hps/WindowKey.h>

namespace HPS
{
namespace
{

KeyPath frontPath(Key const& window)
{
    Registry& registry = Registry::instance();
    for (KeyIndex const index : registry.canvases.indices()) {
        Canvas const canvas(index);
        if (!(registry.find(canvas)->window == window)) continue;
        Layout const layout = canvas.GetAttachedLayout();
        if (KeyPath path = SprocketPath(canvas, layout, layout.GetFrontView()).GetKeyPath(); !path.Empty())
            return path;
    }
    return KeyPath().PushFront(window); // a window that shows nothing yet
}

} // namespace

EventDispatcher WindowKey::GetEventDispatcher() const
{
    auto const* const window = scene::store().resolve<scene::WindowRecord>(*this);
    return window != nullptr ? window->dispatcher : EventDispatcher();
}

bool WindowKey::ConvertCoordinate(Coordinate::Space from, Point const& point, Coordinate::Space to,
                                  Point& converted) const
{
    return frontPath(*this).ConvertCoordinate(from, point, to, converted);
}

bool WindowKey::ConvertCoordinate(Coordinate::Space from, std::vector<Point> const& points,
                                  Coordinate::Space to, std::vector<Point>& converted) const
{
    return frontPath(*this).ConvertCoordinate(from, points, to, converted);
}

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
