#include "subscriptions.h"
#include <algorithm>
#include <exception>
#include <hps/Database.h>

namespace HPS::scene
{

void Subscriptions::add(EventHandler& handler, std::type_index eventClass)
{
    auto const same = [&](Entry const& entry) {
        return entry.handler == &handler && entry.eventClass == eventClass;
    };
    if (std::any_of(entries_.begin(), entries_.end(), same)) return;
    entries_.push_back({&handler, eventClass});

    auto& known = handler.subscribed_;
    std::erase_if(known, [](auto const& dispatcher) { return dispatcher.expired(); });
    auto const self = weak_from_this();
    if (std::none_of(known.begin(), known.end(),
                     [&](auto const& dispatcher) { return dispatcher.lock().get() == this; }))
        known.push_back(self);
}

bool Subscriptions::inject(Event const& event)
{
    auto const staysForTheCall = shared_from_this();
    std::exception_ptr failure;
    bool handled = false;
    ++injecting_;
    // By place, as handlers may subscribe, which moves the entries.
    for (std::size_t i = 0, count = entries_.size(); i < count; ++i) {
        if (!entries_[i].handler || entries_[i].eventClass != event.GetClassID()) continue;
        try {
            handled |= entries_[i].handler->Handle(&event) == EventHandler::HandleResult::Handled;
        } catch (...) {
            if (!failure) failure = std::current_exception();
        }
    }
    --injecting_;
    tidy();
    if (failure) std::rethrow_exception(failure);
    return handled;
}

void Subscriptions::tidy()
{
    if (injecting_ != 0 || !gaps_) return;
    std::erase_if(entries_, [](Entry const& entry) { return !entry.handler; });
    gaps_ = false;
}

namespace
{

thread_local HeldMessages* holder = nullptr;

void raise(Event const& event) noexcept
{
    try {
        Database::GetEventDispatcher().InjectEvent(event);
    } catch (...) {
        // The operation that met the fault goes on whatever those who were told of it do.
    }
}

} // namespace

void raiseError(UTF8 const& message)
{
    if (holder)
        holder->add({raiseError, message});
    else
        raise(ErrorEvent(message));
}

void raiseWarning(UTF8 const& message)
{
    if (holder)
        holder->add({raiseWarning, message});
    else
        raise(WarningEvent(message));
}

HeldMessages::HeldMessages()
{
    holder = this;
}

HeldMessages::~HeldMessages()
{
    holder = nullptr;
}

} // namespace HPS::scene

namespace HPS
{

void detail::refuse(char const* cause)
{
    scene::raiseError(cause);
}

EventHandler::~EventHandler()
{
    Shutdown();
}

void EventHandler::Shutdown()
{
    for (auto const& known : std::exchange(subscribed_, {}))
        if (auto const dispatcher = known.lock())
            dispatcher->remove([this](auto const& entry) { return entry.handler == this; });
}

EventDispatcher::EventDispatcher() : subscriptions_(std::make_shared<scene::Subscriptions>()) {}

void EventDispatcher::Subscribe(EventHandler& handler, std::type_index eventClass)
{
    subscriptions_->add(handler, eventClass);
}

void EventDispatcher::UnSubscribe(EventHandler& handler, std::type_index eventClass)
{
    subscriptions_->remove(
        [&](auto const& entry) { return entry.handler == &handler && entry.eventClass == eventClass; });
}

void EventDispatcher::UnSubscribe(EventHandler& handler)
{
    subscriptions_->remove([&](auto const& entry) { return entry.handler == &handler; });
}

void EventDispatcher::UnSubscribeEverything()
{
    subscriptions_->remove([](auto const&) { return true; });
}

bool EventDispatcher::InjectEvent(Event const& event)
{
    return subscriptions_->inject(event);
}

EventDispatcher Database::GetEventDispatcher()
{
    // Never destroyed: handlers may outlive main().
    static auto const& dispatcher = *new EventDispatcher;
    return dispatcher;
}

} // namespace HPS
