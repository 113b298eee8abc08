#pragma once

#include "hps_api.h"

#include <string>

namespace ZelVizBase
{

/// The scene below a segment as text, one line for each segment and, two blanks deeper, its includes,
/// geometry and subsegments:
///
///   name [tag type and pid] @translation style:name style:name?condition hidden locked excluded
///     -> name of the included segment, or the PID of its tag
///     shell facelist | line count | polygon count | marker | text "characters"
///
/// An unnamed segment is "-". Pids of objects, which are hashes, are written as "#".
std::string dump(HPS::SegmentKey segment);

} // namespace ZelVizBase
