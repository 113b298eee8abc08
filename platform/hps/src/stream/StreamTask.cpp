#include "StreamTask.h"
#include "subscriptions.h"
#include <chrono>

namespace HPS
{
namespace scene
{

StreamTask::StreamTask(Steps steps, std::string what) : steps_(std::move(steps)), what_(std::move(what))
{
    step();
}

StreamTask::~StreamTask()
{
    try {
        advance(true);
    } catch (std::exception const& error) {
        raiseError(UTF8(what_ + error.what()));
    }
}

void StreamTask::step()
{
    try {
        if (steps_->next()) {
            done_ = steps_->done();
            return;
        }
    } catch (...) {
        state_ = IONotifier::State::Failed;
        steps_.reset();
        throw;
    }
    state_ = IONotifier::State::Completed;
    done_ = 1;
    steps_.reset();
}

void StreamTask::advance(bool toTheEnd)
{
    using Clock = std::chrono::steady_clock;
    constexpr std::chrono::milliseconds slice(5);
    for (auto const end = Clock::now() + slice; steps_ && (toTheEnd || Clock::now() < end);) step();
}

void StreamTask::cancel()
{
    if (!steps_) return;
    steps_.reset();
    state_ = IONotifier::State::Canceled;
}

} // namespace scene

IONotifier::State IONotifier::Status() const
{
    if (!task_) return State::Completed;
    task_->advance(false);
    return task_->state();
}

IONotifier::State IONotifier::Status(float& fraction) const
{
    auto const state = Status();
    fraction = task_ ? task_->done() : 1.0f;
    return state;
}

void IONotifier::Wait() const
{
    if (task_) task_->advance(true);
}

void IONotifier::Cancel() const
{
    if (task_) task_->cancel();
}

} // namespace HPS
