#pragma once
#include "Steps.h"
#include <hps/Stream.h>
#include <string>

namespace HPS::scene
{

// The work behind a notifier.
class StreamTask
{
public:
    // `what` begins the message about a failure that nobody waits for. Does the first step at once.
    StreamTask(Steps steps, std::string what);
    ~StreamTask();
    StreamTask(StreamTask const&) = delete;
    StreamTask& operator=(StreamTask const&) = delete;

    // A few milliseconds of the work, or all of it.
    void advance(bool toTheEnd);
    void cancel();
    IONotifier::State state() const { return state_; }
    float done() const { return done_; }

private:
    void step();

    std::optional<Steps> steps_; // until the end
    std::string what_;
    IONotifier::State state_ = IONotifier::State::InProgress;
    float done_ = 0;
};

} // namespace HPS::scene
