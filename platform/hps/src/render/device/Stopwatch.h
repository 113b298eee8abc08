#pragma once
#include <chrono>

namespace HPS::render
{

/// Runs from its making on.
class Stopwatch
{
public:
    double milliseconds() const
    {
        return std::chrono::duration<double, std::milli>(Clock::now() - start_).count();
    }

private:
    using Clock = std::chrono::steady_clock;
    Clock::time_point start_ = Clock::now();
};

} // namespace HPS::render
