#pragma once
#include <hps/Coordinate.h>
#include <hps/DebuggingKit.h>
#include <hps/EventDispatcher.h>
#include <hps/HighlightControl.h>
#include <hps/InputEvent.h>
#include <hps/PostProcessEffectsKit.h>
#include <hps/SegmentKey.h>
#include <hps/SelectionControl.h>
#include <hps/SelectionOptionsKit.h>
#include <hps/UpdateOptionsKit.h>
#include <hps/WindowInfoKit.h>

namespace HPS
{

// The segment at the head of a canvas: what is set here holds for all that the canvas shows.
class WindowKey : public KeyOf<HPS::Type::WindowKey, SegmentKey>
{
public:
    using KeyOf::KeyOf;

    // False for a window that is gone.
    bool ShowWindowInfo(WindowInfoKit& kit) const;
    WindowInfoControl GetWindowInfoControl() const { return WindowInfoControl(*this); }
    HighlightControl GetHighlightControl() const { return HighlightControl(*this); }
    SelectionControl GetSelectionControl() const { return SelectionControl(*this); }

    // Options of the window: the same operations as for the attributes of a segment.
#define HPS_WINDOW_KIT(Name)                                                                                 \
    WindowKey& Set##Name(Name##Kit const& kit);                                                              \
    WindowKey& Unset##Name();                                                                                \
    bool Show##Name(Name##Kit& kit) const;                                                                   \
    Name##Control Get##Name##Control() const                                                                 \
    {                                                                                                        \
        return Name##Control(*this);                                                                         \
    }
    HPS_WINDOW_KITS(HPS_WINDOW_KIT)
#undef HPS_WINDOW_KIT

    // Where what the window's user does goes through. For a window that is gone, one that nobody listens to.
    EventDispatcher GetEventDispatcher() const;

    // As KeyPath::ConvertCoordinate, along the path to the front view of what the window shows.
    bool ConvertCoordinate(Coordinate::Space from, Point const& point, Coordinate::Space to,
                           Point& converted) const;
    bool ConvertCoordinate(Coordinate::Space from, std::vector<Point> const& points, Coordinate::Space to,
                           std::vector<Point>& converted) const;
};

} // namespace HPS
