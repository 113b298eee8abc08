#pragma once
#include "record.h"
#include <span>

namespace HPS::scene
{

// Whether a condition, or an expression of several, holds where those of `held` do. `held` is sorted. The
// expression of each text is taken apart once.
bool holds(ConditionId expression, std::span<ConditionId const> held);

} // namespace HPS::scene
