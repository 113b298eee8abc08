#pragma once

#include <chrono>
#include <string>

namespace ZelVizBase
{

/// Adds up the time between its starts and stops, by a clock that never runs back.
class Stopwatch
{
public:
    /// `name` may be null; it is not copied.
    explicit Stopwatch(char const* name = nullptr) : Name(name) {}

    void Start() { StartTime = Clock::now(); }
    void Stop();
    void Reset() { Accumulated = {}; }

    double Seconds() const { return std::chrono::duration<double>(Accumulated).count(); }

    /// `format` is a printf format of the name (%s, only for a named watch) and the seconds (a double).
    /// Without one: "Elapsed time for NAME: 1.234(s)" on a line. At most 511 characters.
    std::wstring Text(wchar_t const* format = nullptr) const;

private:
    using Clock = std::chrono::steady_clock;

    char const* Name;
    Clock::duration Accumulated{};
    Clock::time_point StartTime;
    Clock::time_point StopTime;
};

} // namespace ZelVizBase
