#include "SectionStep.h"

namespace HPS::render
{

void SectionStep::draw(FrameContext const&) {}

} // namespace HPS::render
