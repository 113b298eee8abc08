#pragma once
#include <hps/UTF8.h>
#include <typeindex>

namespace HPS
{

// Something that happened, for those who asked to hear of its class. A program may derive classes of its own.
class Event
{
public:
    virtual ~Event() = default;

    // The class of the event, as handlers subscribe to it.
    std::type_index GetClassID() const { return typeid(*this); }
    template <class E> static std::type_index ClassID() { return typeid(E); }

protected:
    Event() = default;
    Event(Event const&) = default;
    Event& operator=(Event const&) = default;
};

// Base of what carries a text for people, in one line.
class MessageEvent : public Event
{
public:
    MessageEvent() = default;
    explicit MessageEvent(UTF8 text) : message(std::move(text)) {}
    UTF8 message;
};

// Something asked of the library was refused.
class ErrorEvent final : public MessageEvent
{
public:
    using MessageEvent::MessageEvent;
};

// Something was done, but likely not in the way that was meant.
class WarningEvent final : public MessageEvent
{
public:
    using MessageEvent::MessageEvent;
};

} // namespace HPS
