#pragma once
#include <hps/EventDispatcher.h>
#include <utility>
#include <vector>

namespace HPS::scene
{

// Who is subscribed at one dispatcher.
class Subscriptions : public std::enable_shared_from_this<Subscriptions>
{
public:
    Subscriptions() = default;
    Subscriptions(Subscriptions const&) = delete;
    Subscriptions& operator=(Subscriptions const&) = delete;

    void add(EventHandler& handler, std::type_index eventClass);
    // Takes away the entries for which wanted(entry) holds.
    template <class F> void remove(F&& wanted);
    bool inject(Event const& event);

    struct Entry {
        EventHandler* handler; // null once it has unsubscribed
        std::type_index eventClass;
    };

private:
    void tidy();

    std::vector<Entry> entries_;
    int injecting_ = 0; // how many calls of inject() are under way
    bool gaps_ = false; // entries without a handler, kept while their places count
};

template <class F> void Subscriptions::remove(F&& wanted)
{
    for (auto& entry : entries_)
        if (entry.handler && wanted(entry)) entry.handler = nullptr, gaps_ = true;
    tidy();
}

// Tells the database's handlers of a fault in what was asked. Never throws.
void raiseError(UTF8 const& message);
void raiseWarning(UTF8 const& message);

// While one lives, what is raised on its thread is kept for another thread to tell: handlers are called on
// the thread of the caller and on no other. One at a time on a thread.
class HeldMessages
{
public:
    struct Message {
        void (*raise)(UTF8 const&); // one of the two above
        UTF8 text;
    };
    HeldMessages();
    ~HeldMessages();
    HeldMessages(HeldMessages const&) = delete;
    HeldMessages& operator=(HeldMessages const&) = delete;

    std::vector<Message> take() { return std::exchange(messages_, {}); }
    void add(Message message) { messages_.push_back(std::move(message)); }

private:
    std::vector<Message> messages_;
};

} // namespace HPS::scene
