// How a view's camera goes from one place to another, a step a picture.
#include "CameraTransition.h"
#include "Clock.h"
#include "Presenter.h"
#include "records.h"
#include <algorithm>

namespace HPS
{
namespace
{

void step(View const& view, unsigned serial);

bool requestStep(View const& view, unsigned serial)
{
    auto const& registry = Registry::instance();
    return std::ranges::any_of(registry.canvasesOf(view), [&](Canvas const& canvas) {
        Presenter* const presenter = registry.find(canvas)->presenter.get();
        return presenter != nullptr && presenter->requestFrame([=] { step(view, serial); });
    });
}

void step(View const& view, unsigned serial)
{
    ViewRecord* const record = Registry::instance().find(view);
    if (record == nullptr || record->transition == nullptr || record->transition->serial != serial) return;
    CameraTransition& transition = *record->transition;
    CameraKit current;
    record->segment.ShowCamera(current);
    bool const taken = !(current == transition.shown);
    double const now = secondsNow();
    if (!taken) {
        record->segment.SetCamera(transition.at(now));
        record->segment.ShowCamera(transition.shown);
    }
    // Only then the last picture is one at rest.
    if (taken || transition.overAt(now)) record->transition.reset();
    view.Update();
    // Who heard of the update may have done anything.
    ViewRecord* const after = Registry::instance().find(view);
    bool const goesOn =
        after != nullptr && after->transition != nullptr && after->transition->serial == serial;
    if (goesOn && !requestStep(view, serial)) {
        record->segment.SetCamera(transition.at(now + 1e9));
        record->transition.reset();
    }
}

} // namespace

bool View::SmoothTransition(CameraKit const& camera, float seconds)
{
    ViewRecord* const record = Registry::instance().find(*this);
    if (record == nullptr) return false;
    static unsigned lastSerial = 0;
    unsigned const serial = ++lastSerial;
    CameraKit current;
    bool const startsSomewhere = record->segment.ShowCamera(current);
    record->transition.reset();
    if (seconds > 0 && startsSomewhere && requestStep(*this, serial)) {
        record->transition = std::make_unique<CameraTransition>(current, camera, secondsNow(), seconds);
        record->transition->serial = serial;
        record->transition->shown = current;
        return true;
    }
    record->segment.SetCamera(camera);
    Update();
    return true;
}

} // namespace HPS
