#pragma once

#include "ZELSegmentTagger.h"

namespace ZelVizBase
{

using TAG_TYPE = ZELSegmentTagger::TAG_TYPE;

/// Tag of a segment, or of the one that an include shows; TAG_NONE for anything else.
TAG_TYPE tagOf(HPS::Key const& key);

/// The nearest segment above `key` that stands for a mesh, a PMI or the root of all PMI, with its tag. An
/// empty key, and `type` as it was, if there is none.
HPS::SegmentKey parentOf(HPS::Key const& key, TAG_TYPE& type);

/// The pids of the tagged segments of a path, as the ids of the tree, from its root down. References have no
/// node of their own.
std::vector<unsigned long long> treeIdsOf(HPS::KeyPath path);

} // namespace ZelVizBase
