#pragma once
#include <coroutine>
#include <exception>
#include <utility>

namespace HPS::scene
{

// A long piece of work, done a step at a time: a coroutine that yields how much of it is done, from 0 to 1.
// What is destroyed before its end is abandoned: its locals go, as if an exception had passed.
class Steps
{
public:
    struct promise_type {
        float done = 0;
        std::exception_ptr error;

        Steps get_return_object() { return Steps(Handle::from_promise(*this)); }
        std::suspend_always initial_suspend() noexcept { return {}; }
        std::suspend_always final_suspend() noexcept { return {}; }
        std::suspend_always yield_value(float fraction) noexcept
        {
            done = fraction;
            return {};
        }
        void return_void() noexcept { done = 1; }
        void unhandled_exception() noexcept { error = std::current_exception(); }
    };

    Steps(Steps&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    Steps& operator=(Steps other) noexcept { return std::swap(handle_, other.handle_), *this; }
    ~Steps()
    {
        if (handle_) handle_.destroy();
    }

    // Does the next step. False once nothing is left to do. Throws what the work throws, and is at its end
    // then.
    bool next()
    {
        if (handle_.done()) return false;
        handle_.resume();
        if (auto const error = std::exchange(handle_.promise().error, nullptr)) std::rethrow_exception(error);
        return !handle_.done();
    }
    float done() const { return handle_.promise().done; }

private:
    using Handle = std::coroutine_handle<promise_type>;
    explicit Steps(Handle handle) : handle_(handle) {}
    Handle handle_;
};

} // namespace HPS::scene
