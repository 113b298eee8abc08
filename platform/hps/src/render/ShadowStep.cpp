#include "ShadowStep.h"

namespace HPS::render
{

void ShadowStep::draw(FrameContext const&) {}

} // namespace HPS::render
