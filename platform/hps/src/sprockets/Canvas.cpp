#include "CameraTransition.h"
#include "CanvasPicture.h"
#include "FontLibrary.h"
#include "InteractionWatch.h"
#include "Presenter.h"
#include "Stopwatch.h"
#include "canvas_update.h"
#include "records.h"
#include "store.h"
#include "subscriptions.h"
#include <algorithm>
#include <hps/Canvas.h>
#include <hps/Database.h>
#include <hps/Factory.h>
#include <hps/WindowKey.h>

namespace HPS
{
WindowKey Canvas::GetWindowKey() const
{
    auto const* const record = Registry::instance().find(*this);
    return record != nullptr ? WindowKey(record->window.Index()) : WindowKey();
}

Canvas& Canvas::AttachViewAsLayout(View const& view)
{
    Layout layout = Factory::CreateLayout();
    layout.AttachViewFront(view);
    return AttachLayout(layout);
}

Canvas& Canvas::AttachLayout(Layout const& layout)
{
    auto* const record = Registry::instance().find(*this);
    if (record == nullptr) return *this;
    record->include.Delete();
    record->include.Reset();
    record->layout = layout;
    if (!layout.Empty()) record->include = record->window.IncludeSegment(layout.GetSegmentKey());
    return *this;
}

Canvas& Canvas::DetachLayout()
{
    return AttachLayout(Layout());
}

Layout Canvas::GetAttachedLayout() const
{
    auto const* const record = Registry::instance().find(*this);
    return record != nullptr && !record->layout.Empty() ? record->layout : Layout();
}

View Canvas::GetFrontView() const
{
    return GetAttachedLayout().GetFrontView();
}

Canvas& Canvas::SetFrameRate(float framesPerSecond)
{
    if (auto* const record = Registry::instance().find(*this)) record->frameRate = framesPerSecond;
    return *this;
}

float Canvas::GetFrameRate() const
{
    auto const* const record = Registry::instance().find(*this);
    return record != nullptr ? record->frameRate : 0;
}

bool Canvas::SetSize(int width, int height)
{
    constexpr int largest = 16384;
    auto* const record = Registry::instance().find(*this);
    if (record == nullptr || width < 1 || height < 1 || width > largest || height > largest) return false;
    record->width = width;
    record->height = height;
    if (auto* const window = scene::store().resolve<scene::WindowRecord>(record->window)) {
        window->width = width;
        window->height = height;
    }
    return true;
}

bool Canvas::ShowSize(int& width, int& height) const
{
    auto const* const record = Registry::instance().find(*this);
    if (record == nullptr) return false;
    width = record->width;
    height = record->height;
    return true;
}

bool Canvas::Update(Window::UpdateType type, double timeLimit) const
{
    return updateCanvas(*this, {type, timeLimit});
}

UpdateNotifier Canvas::UpdateWithNotifier(Window::UpdateType type) const
{
    Update(type);
    auto const* const record = settled(*this);
    return UpdateNotifier(record != nullptr && record->failure.Empty());
}

bool Canvas::ReadPixels(Picture& picture) const
{
    auto* const record = settled(*this);
    return record != nullptr && readPicture(*record, picture);
}

bool Canvas::ShowUpdateReport(UpdateReport& report) const
{
    auto const* const record = settled(*this);
    if (record == nullptr) return false;
    report = record->report;
    return true;
}

bool Canvas::ShowFailure(UTF8& cause) const
{
    auto const* const record = settled(*this);
    if (record == nullptr || record->failure.Empty()) return false;
    cause = record->failure;
    return true;
}

} // namespace HPS
