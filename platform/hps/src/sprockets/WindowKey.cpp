#include "Presenter.h"
#include "records.h"
#include "store.h"
#include <hps/ApplicationWindowKey.h>
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

// Without a screen that knows its size: 96 pixels an inch.
constexpr float pixelsPerCentimetre = 96 / 2.54f;

WindowInfoData measure(CanvasRecord const& canvas)
{
    auto const width = unsigned(canvas.width), height = unsigned(canvas.height);
    Presenter::Screen screen{width, height, float(width) / pixelsPerCentimetre,
                             float(height) / pixelsPerCentimetre};
    if (canvas.presenter) canvas.presenter->showScreen(screen);
    float const horizontal = float(screen.width) / screen.widthCentimetres;
    float const vertical = float(screen.height) / screen.heightCentimetres;
    WindowInfoData info;
    info.physicalPixels = {screen.width, screen.height};
    info.physicalSize = {screen.widthCentimetres, screen.heightCentimetres};
    info.windowPixels = {width, height};
    info.windowSize = {float(width) / horizontal, float(height) / vertical};
    info.resolution = {horizontal, vertical};
    info.windowAspectRatio = float(width) / float(height);
    info.pixelAspectRatio = vertical / horizontal;
    return info;
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

bool WindowKey::ShowWindowInfo(WindowInfoKit& kit) const
{
    auto const* const canvas = Registry::instance().findWindow(Index());
    kit.edit([&](WindowInfoData& info) { info = canvas ? measure(*canvas) : WindowInfoData(); });
    return canvas != nullptr;
}

WindowInfoData WindowInfoControl::data() const
{
    WindowInfoKit kit;
    WindowKey(window_).ShowWindowInfo(kit);
    return kit.data();
}

bool ApplicationWindowKey::ShowWindowOptions(ApplicationWindowOptionsKit& kit) const
{
    auto const* const canvas = Registry::instance().findWindow(Index());
    kit = canvas ? canvas->options : ApplicationWindowOptionsKit();
    return canvas != nullptr;
}

} // namespace HPS
