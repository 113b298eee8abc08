#pragma once

#include "model_api.h"

namespace ZelVizBase
{

/// The model gives a flag only where its file has one; without it an instance is neither hidden nor
/// suppressed.
inline bool isHidden(NarMetaInfra::ZELInstance const& instance)
{
    bool hidden = false;
    return instance.GetHidden(hidden) && hidden;
}

inline bool isSuppressed(NarMetaInfra::ZELInstance const& instance)
{
    bool suppressed = false;
    return instance.GetSuppressed(suppressed) && suppressed;
}

inline bool isShown(NarMetaInfra::ZELInstance const& instance)
{
    return !isHidden(instance) && !isSuppressed(instance);
}

} // namespace ZelVizBase
