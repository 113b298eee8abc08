#include "canvas_update.h"
#include "CameraTransition.h"
#include "FontLibrary.h"
#include "InteractionWatch.h"
#include "PictureThread.h"
#include "Presenter.h"
#include "SceneGate.h"
#include "Stopwatch.h"
#include <algorithm>
#include <deque>
#include <hps/Database.h>

namespace HPS
{
namespace
{

using Window::UpdateType;

bool inTransition(Layout const& layout)
{
    auto const& registry = Registry::instance();
    auto const* const record = registry.find(layout);
    return record != nullptr && std::ranges::any_of(record->layers, [&](LayoutRecord::Layer const& layer) {
               auto const* const view = registry.find(layer.view);
               return view != nullptr && view->transition != nullptr;
           });
}

/// Both requests in one: the type that does more.
UpdateRequest both(UpdateRequest const& a, UpdateRequest const& b)
{
    static constexpr std::array order{UpdateType::CompileOnly, UpdateType::Default, UpdateType::Refresh,
                                      UpdateType::Complete, UpdateType::Exhaustive};
    auto const rank = [](UpdateType type) { return std::ranges::find(order, type) - order.begin(); };
    return {rank(a.type) > rank(b.type) ? a.type : b.type, b.timeLimit};
}

bool read(CanvasRecord& record, Picture& picture)
{
    render::Stopwatch reading;
    bool const done = record.picture->read(picture);
    record.report.readMilliseconds = reading.milliseconds();
    return done;
}

/// On the thread of pictures.
void make(CanvasRecord& record, UpdateRequest const& request)
{
    scene::HeldMessages held;
    PendingPicture& pending = *record.pending;
    try {
        pending.failure = record.picture->update(record, request, record.report);
        bool const wanted = record.presenter != nullptr && request.type != UpdateType::CompileOnly &&
                            (record.picture->isNew() || request.type == UpdateType::Refresh);
        pending.present = wanted && read(record, pending.picture);
    } catch (std::bad_alloc const&) {
        pending.failure = "There is no memory for the picture.";
    }
    pending.messages = held.take();
}

void followWindow(Canvas canvas, CanvasRecord const& record)
{
    int width = 0, height = 0;
    if (record.presenter != nullptr && record.presenter->showSize(width, height))
        canvas.SetSize(width, height);
}

/// What is wanted, as of now; nothing is wanted any more, and the record waits for the picture.
UpdateRequest begin(Canvas const& canvas, CanvasRecord& record)
{
    followWindow(canvas, record);
    UpdateRequest request = *std::exchange(record.wanted, std::nullopt);
    request.interacting = record.watch->interacting() || inTransition(record.layout);
    record.pending = std::make_unique<PendingPicture>();
    return request;
}

CanvasRecord* conclude(Canvas const& canvas)
{
    auto* const record = Registry::instance().find(canvas);
    if (record == nullptr || record->pending == nullptr) return record;
    auto const pending = std::move(record->pending);
    std::string const before = std::exchange(record->failure, UTF8(pending->failure)).Str();
    if (pending->present) record->presenter->present(pending->picture);
    for (auto const& message : pending->messages) message.raise(message.text);
    // The same fault at every picture is told once.
    if (!pending->failure.empty() && pending->failure != before) scene::raiseError(UTF8(pending->failure));
    for (std::string const& text : render::FontLibrary::instance().takeWarnings())
        Database::GetEventDispatcher().InjectEvent(WarningEvent(text));
    return Registry::instance().find(canvas);
}

/// Canvases whose turn comes when the picture that is being made is done.
std::deque<Canvas>& queue()
{
    static std::deque<Canvas> canvases;
    return canvases;
}

void start(Canvas const& canvas)
{
    if (scene::SceneGate::isClosed()) return queue().push_back(canvas);
    CanvasRecord* const record = conclude(canvas);
    if (record == nullptr) return;
    record->scheduled = false;
    if (!record->wanted || !record->presenter->isSeen()) return;
    UpdateRequest const request = begin(canvas, *record);
    PictureThread::instance().post([=] {
        make(*record, request);
        record->presenter->callBack([canvas] {
            conclude(canvas);
            // Of those that waited, one may be gone, or have its picture already.
            while (!queue().empty() && !scene::SceneGate::isClosed()) {
                Canvas const next = queue().front();
                queue().pop_front();
                start(next);
            }
        });
    });
}

} // namespace

bool updateCanvas(Canvas const& canvas, UpdateRequest const& request)
{
    auto* record = Registry::instance().find(canvas);
    if (record == nullptr) return false;
    followWindow(canvas, *record); // whoever looks for what is under the mouse goes by it
    record->wanted = record->wanted ? both(*record->wanted, request) : request;
    if (record->presenter != nullptr && record->presenter->callsBack()) {
        if (!std::exchange(record->scheduled, true)) record->presenter->whenIdle([canvas] { start(canvas); });
        return true;
    }
    record = settled(canvas);
    return record != nullptr && record->failure.Empty();
}

CanvasRecord* settled(Canvas const& canvas)
{
    auto* record = conclude(canvas);
    if (record == nullptr || !record->wanted) return record;
    UpdateRequest const request = begin(canvas, *record);
    PictureThread::instance().run([&] { make(*record, request); });
    return conclude(canvas);
}

bool readPicture(CanvasRecord& record, Picture& picture)
{
    bool done = false;
    PictureThread::instance().run([&] { done = read(record, picture); });
    return done;
}

} // namespace HPS
