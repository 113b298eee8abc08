#pragma once

#include "hps_api.h"

namespace ZelVizBase
{

/// Puts an object and the segments that own it before the path, down from the one that stands at its front
/// already, or else from below the root.
inline void pushWithOwners(HPS::KeyPath& path, HPS::Key const& key)
{
    HPS::Key const front = path.Front();
    HPS::KeyPath chain;
    for (HPS::Key at = key; at != front && at.HasOwner(); at = at.Owner()) chain.PushBack(at);
    path.PushFront(chain);
}

} // namespace ZelVizBase
