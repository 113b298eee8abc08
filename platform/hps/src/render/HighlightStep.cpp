#include "HighlightStep.h"

namespace HPS::render
{

void HighlightStep::draw(FrameContext const&) {}

} // namespace HPS::render
