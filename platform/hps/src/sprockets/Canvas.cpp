#include "CameraTransition.h"
#include "CanvasPicture.h"
#include "FontLibrary.h"
#include "InteractionWatch.h"
#include "Presenter.h"
#include "Stopwatch.h"
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
namespace
{

bool inTransition(Layout const& layout)
{
    auto const& registry = Registry::instance();
    auto const* const record = registry.find(layout);
    return record != nullptr && std::ranges::any_of(record->layers, [&](LayoutRecord::Layer const& layer) {
               auto const* const view = registry.find(layer.view);
               return view != nullptr && view->transition != nullptr;
           });
}

} // namespace

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
    auto* const record = Registry::instance().find(*this);
    if (record == nullptr) return false;
    int width = 0, height = 0;
    if (record->presenter != nullptr && record->presenter->showSize(width, height))
        Canvas(*this).SetSize(width, height);
    UpdateRequest const request{type, timeLimit,
                                record->watch->interacting() || inTransition(record->layout)};
    std::string const before = record->failure.Str();
    record->failure = record->picture->update(*record, request, record->report);
    // The same fault at every picture is told once.
    if (!record->failure.Empty() && record->failure.Str() != before) scene::raiseError(record->failure);
    bool const present = record->presenter != nullptr && type != Window::UpdateType::CompileOnly &&
                         (record->picture->isNew() || type == Window::UpdateType::Refresh);
    // Told only now: who hears of it may change the scene.
    for (std::string const& text : render::FontLibrary::instance().takeWarnings())
        Database::GetEventDispatcher().InjectEvent(WarningEvent(text));
    Picture picture;
    if (present && ReadPixels(picture)) record->presenter->present(picture);
    return record->failure.Empty();
}

UpdateNotifier Canvas::UpdateWithNotifier(Window::UpdateType type) const
{
    return UpdateNotifier(Update(type));
}

bool Canvas::ReadPixels(Picture& picture) const
{
    auto* const record = Registry::instance().find(*this);
    if (record == nullptr) return false;
    render::Stopwatch reading;
    bool const done = record->picture->read(picture);
    record->report.readMilliseconds = reading.milliseconds();
    return done;
}

bool Canvas::ShowUpdateReport(UpdateReport& report) const
{
    auto const* const record = Registry::instance().find(*this);
    if (record == nullptr) return false;
    report = record->report;
    return true;
}

bool Canvas::ShowFailure(UTF8& cause) const
{
    auto const* const record = Registry::instance().find(*this);
    if (record == nullptr || record->failure.Empty()) return false;
    cause = record->failure;
    return true;
}

} // namespace HPS
