// The model's materials in the portfolio: not there yet, so no palette is defined and nothing is to be taken
// down.

#include "ZELRenderer.h"

namespace ZelVizBase
{

void ZELRenderer::initializeMaterials() {}

void ZELRenderer::clearMaterials() {}

} // namespace ZelVizBase
