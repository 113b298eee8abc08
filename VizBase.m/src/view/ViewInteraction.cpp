#include "ViewInteraction.h"

#include "ZELSelectionOperator.h"
#include "ZELView3D.h"
#include "picked_paths.h"

#include <QEvent>
#include <QNativeGestureEvent>
#include <QScopedValueRollback>
#include <QTouchEvent>
#include <algorithm>
#include <cmath>

namespace ZelVizBase
{

using MoraCore::MouseGesture;
using MoraCore::MouseStyle;

namespace
{

ZELOpConfig configOf(MouseGesture const& gesture, Priority priority)
{
    auto const button = [&] {
        switch (gesture.button) {
        case MouseGesture::Button::Left:
            return ButtonLeft;
        case MouseGesture::Button::Middle:
            return ButtonMiddle;
        case MouseGesture::Button::Right:
            return ButtonRight;
        }
        return ButtonNone;
    }();
    ZELOpConfig config(button, gesture.shift ? KeyShift : KeyNone, priority);
    if (gesture.control) config.AddModifier(KeyControl);
    return config;
}

} // namespace

ZELOpConfigurator configuratorOf(MouseStyle const& style)
{
    ZELOpConfigurator configurator;
    configurator.Edit(OperatorOrbit, configOf(style.orbit, PriorityLow));
    configurator.Edit(OperatorPan, configOf(style.pan, PriorityDefault));
    configurator.Edit(OperatorZoom, configOf(style.zoom, PriorityDefault));
    return configurator;
}

ViewInteraction::ViewInteraction(ZELView3D& view)
    : View(view), Selection(view), Band(view), Touches(view, view.Canvas().GetWindowKey())
{
    View.installEventFilter(this);
}

ViewInteraction::~ViewInteraction() = default;

std::shared_ptr<ZELHighlightOperator> ViewInteraction::MakeOperator(HPS::MouseButtons buttons,
                                                                    HPS::ModifierKeys modifiers)
{
    return std::make_shared<ZELSelectionOperator>(buttons, modifiers, &View, *this);
}

void ViewInteraction::SetMouseStyle(MouseStyle const& style)
{
    View.ConfigureOperators(configuratorOf(style));
    View.View().GetOperatorControl().Push(std::make_shared<HPS::TouchOperator>(),
                                          HPS::Operator::Priority::Low);
}

void ViewInteraction::SetHovering(bool hovering)
{
    if (hovering == (Hover != nullptr)) return;
    PointAway();
    Hover = hovering ? std::make_unique<HoverHighlight>(View, Selection) : nullptr;
}

void ViewInteraction::PointTo(HPS::WindowPoint const& place)
{
    if (Hover == nullptr) return;
    MoraCore::PointedAt const at = Hover->Follow(place);
    if (Listener != nullptr) Listener->OnPointed(at);
}

void ViewInteraction::PointAway()
{
    if (Hover == nullptr) return;
    Hover->Leave();
    if (Listener != nullptr) Listener->OnPointed({});
}

bool ViewInteraction::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Leave:
        PointAway();
        break;
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
        Touches.Take(*static_cast<QTouchEvent*>(event));
        event->accept();
        return true;
    case QEvent::NativeGesture:
        if (Touches.Take(*static_cast<QNativeGestureEvent*>(event))) return true;
        break;
    default: // an enumeration of hundreds
        break;
    }
    return QObject::eventFilter(watched, event);
}

void ViewInteraction::HighlightsGone()
{
    if (Hover != nullptr) Hover->Forget();
    if (Replacing) return;
    bool const some = !Selection.Paths().empty();
    Selection.Forget();
    if (some && Listener != nullptr) Listener->OnSelectionChanged();
}

template <class Change> void ViewInteraction::change(Change const& make)
{
    {
        QScopedValueRollback const replacing(Replacing, true);
        make();
    }
    if (Hover != nullptr) Hover->Forget(); // it went with the highlights before
    if (Listener != nullptr) Listener->OnSelectionChanged();
}

void ViewInteraction::Click(HPS::WindowPoint const& place, bool adding)
{
    HPS::KeyPath const path = wholeOf(itemAt(View.Canvas().GetWindowKey(), place));
    if (path.Empty() && adding) return;
    change([&] {
        if (adding)
            Selection.Toggle(path);
        else
            Selection.Replace(path.Empty() ? HPS::KeyPathArray() : HPS::KeyPathArray{path});
    });
}

void ViewInteraction::Select(RenderIds const& ids)
{
    change([&] { Selection.Choose(ids); });
}

void ViewInteraction::ClearSelection()
{
    change([&] { Selection.Replace({}); });
}

bool ViewInteraction::SelectParents()
{
    HPS::KeyPathArray const parents = Selection.Parents();
    if (!parents.empty()) change([&] { Selection.Replace(parents); });
    return !parents.empty();
}

bool ViewInteraction::ZoomToSelection()
{
    HPS::SimpleCuboid const box = Selection.Extent();
    if (!box.IsValid() || View.GetCamera() == nullptr) return false;
    View.GetCamera()->ZoomToBox(box.min.x, box.min.y, box.min.z, box.max.x, box.max.y, box.max.z);
    return true;
}

QPoint ViewInteraction::inWidget(HPS::WindowPoint const& place) const
{
    return {static_cast<int>(std::lround((place.x + 1) / 2 * static_cast<float>(View.width()))),
            static_cast<int>(std::lround((1 - place.y) / 2 * static_cast<float>(View.height())))};
}

void ViewInteraction::ShowBox(HPS::WindowPoint const& from, HPS::WindowPoint const& to)
{
    Band.Show(inWidget(from), inWidget(to));
}

void ViewInteraction::HideBox()
{
    Band.Hide();
}

void ViewInteraction::SelectBox(HPS::WindowPoint const& from, HPS::WindowPoint const& to, bool adding)
{
    Band.Hide();
    auto const within = [](float place) { return std::clamp(place, -1.0F, 1.0F); };
    auto const [left, right] = std::minmax({within(from.x), within(to.x)});
    auto const [bottom, top] = std::minmax({within(from.y), within(to.y)});
    HPS::KeyPathArray const parts =
        partsIn(View.Canvas().GetWindowKey(), {left, right, bottom, top}, to.x >= from.x);
    change([&] {
        if (adding)
            Selection.Add(parts);
        else
            Selection.Replace(parts);
    });
}

void ViewInteraction::OpenMenu(HPS::WindowPoint const& place)
{
    PointAway();
    HPS::KeyPath const path = wholeOf(itemAt(View.Canvas().GetWindowKey(), place));
    if (!path.Empty() && !Selection.Covers(path)) change([&] { Selection.Replace({path}); });
    QPoint const at = inWidget(place);
    if (Listener != nullptr) Listener->OnMenuWanted(at.x(), at.y());
}

} // namespace ZelVizBase
