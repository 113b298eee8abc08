#pragma once

#include "hps_api.h"
#include "model_api.h"

namespace ZelVizBase
{

/// Pattern and weight of the model's line attribute, if there is one. The pattern is a name that
/// ZELRenderer::initializeLineStyles defines; styles 0 and 1 stay solid. The weight is a scale factor.
void setLineAttributes(HPS::SegmentKey& segment, NarMetaVisu::Attributes const& attributes);

} // namespace ZelVizBase
