#pragma once

#include "hps_api.h"

#include <QPointF>
#include <cstdint>
#include <set>
#include <vector>

QT_BEGIN_NAMESPACE
class QNativeGestureEvent;
class QTouchEvent;
class QWidget;
QT_END_NAMESPACE

namespace ZelVizBase
{

/// Fingers on a screen or a pad, as events of the scene library. One finger is the left mouse button. As soon
/// as there are two, what the first one began is dropped, and both are fingers until the last one is up. A
/// pinch that a pad tells as such is a turn of the wheel that magnifies as much.
class TouchInput
{
public:
    /// `widget` is not owned and must outlive this.
    TouchInput(QWidget& widget, HPS::WindowKey const& window);

    void Take(QTouchEvent const& event);
    /// False for a gesture that is no pinch.
    bool Take(QNativeGestureEvent const& event);

private:
    enum class Fingers { None, One, Several };

    void takeOne(QTouchEvent const& event);
    void takeSeveral(QTouchEvent const& event);
    void press(HPS::WindowPoint const& at, HPS::MouseEvent::Action action);
    void send(HPS::TouchEvent::Action action, std::vector<HPS::Touch> const& touches);
    HPS::WindowPoint placeOf(QPointF const& at) const;

    QWidget& Widget;
    HPS::WindowKey Window;
    Fingers State = Fingers::None;
    std::set<std::uint64_t> Known; ///< that are down, as fingers
};

} // namespace ZelVizBase
