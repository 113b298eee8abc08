#pragma once

#include <narmeta/infra/ZELInstance.h>

namespace NarMetaInfra
{
/// What does as @p first and then as @p second.
Matrix combined(Matrix const& first, Matrix const& second);
} // namespace NarMetaInfra
