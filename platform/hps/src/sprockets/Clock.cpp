#include "Clock.h"
#include <chrono>

namespace HPS
{
namespace
{

double (*ownClock)() = nullptr;

} // namespace

double secondsNow()
{
    using Seconds = std::chrono::duration<double>;
    return ownClock != nullptr ? ownClock()
                               : Seconds(std::chrono::steady_clock::now().time_since_epoch()).count();
}

void setClock(double (*clock)())
{
    ownClock = clock;
}

} // namespace HPS
