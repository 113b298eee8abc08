#pragma once

#include "StepEntities.h"

#include <narmeta/infra/BrepBody.h>

namespace NarMetaInfra
{
/// Bodies that a product has as triangles in place of an exact shape, in millimetres. Ids follow from
/// @p partId and the entity numbers.
std::vector<BrepBody> stepTessellation(StepEntities const& entities, int product, Id partId);
} // namespace NarMetaInfra
