#include "OverlayStep.h"

namespace HPS::render
{

void OverlayStep::draw(FrameContext const&) {}

} // namespace HPS::render
