#pragma once

#include <chrono>

namespace NarMetaInfra
{
/// Adds the seconds of its own lifetime to `total`.
class StageClock
{
public:
    explicit StageClock(double& total) : Total(total) {}
    ~StageClock() { Total += std::chrono::duration<double>(Clock::now() - Start).count(); }
    StageClock(StageClock const&) = delete;
    StageClock& operator=(StageClock const&) = delete;

private:
    using Clock = std::chrono::steady_clock;
    double& Total;
    Clock::time_point Start = Clock::now();
};
} // namespace NarMetaInfra
