#include "EffectStep.h"

namespace HPS::render
{

void EffectStep::begin(FrameContext const&) {}

void EffectStep::finish(FrameContext const&) {}

} // namespace HPS::render
