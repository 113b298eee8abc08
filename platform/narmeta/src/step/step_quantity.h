#pragma once

#include "StepEntities.h"

namespace NarMetaInfra
{
/// Value of a measure item for a reader, with its unit: lengths, areas and volumes in powers of millimetres,
/// angles in degrees, everything else in the file's own unit. Empty if there is no value.
std::wstring stepQuantity(StepEntities const& entities, int item);
} // namespace NarMetaInfra
