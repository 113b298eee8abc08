#pragma once
#include <hps/Event.h>
#include <memory>
#include <vector>

namespace HPS
{

namespace scene
{
class Subscriptions;
}

// Base of those who hear of events. A handler that goes away is no longer subscribed; a copy of one is
// subscribed to nothing.
class EventHandler
{
public:
    enum class HandleResult : std::uint32_t { Handled = 0, NotHandled = 1 };

    EventHandler() = default;
    EventHandler(EventHandler const&) {}
    EventHandler& operator=(EventHandler const&) { return *this; }
    // Derived classes whose members Handle() uses call Shutdown() in their own destructor.
    virtual ~EventHandler();

    // May subscribe, unsubscribe, inject and throw.
    virtual HandleResult Handle(Event const* event) = 0;

    // Ends all subscriptions of this handler.
    void Shutdown();

private:
    friend class scene::Subscriptions;
    std::vector<std::weak_ptr<scene::Subscriptions>> subscribed_;
};

// Passes events on. A handle: copies are the same dispatcher. It works on the caller's thread, and within the
// call.
class EventDispatcher
{
public:
    EventDispatcher(); // a dispatcher of its own

    // Subscribing to the same class twice is the same as once. The handler must stay where it is.
    void Subscribe(EventHandler& handler, std::type_index eventClass);
    void UnSubscribe(EventHandler& handler, std::type_index eventClass);
    void UnSubscribe(EventHandler& handler);
    void UnSubscribeEverything();

    // Hands the event to all that are subscribed to its class, in the order in which they subscribed; those
    // that subscribe meanwhile wait for the next one. True if one of them handled it. If handlers throw, the
    // others hear of the event all the same, and then the first exception goes on to the caller.
    bool InjectEvent(Event const& event);

    friend bool operator==(EventDispatcher const&, EventDispatcher const&) = default;

private:
    std::shared_ptr<scene::Subscriptions> subscriptions_;
};

} // namespace HPS
