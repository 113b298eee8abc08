#pragma once

namespace HPS
{

/// Seconds on a clock that never goes back; where it starts says nothing.
double secondsNow();

/// Puts another clock in its place, for tests; null brings back the real one.
void setClock(double (*clock)());

} // namespace HPS
