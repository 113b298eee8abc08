#pragma once
#include <hps/EventDispatcher.h>
#include <hps/SegmentKey.h>

namespace HPS
{

// The scene database of the process. It is there from the first use on; it runs on the caller's thread alone.
class Database
{
public:
    // A segment that nothing holds, unnamed. It stays until it is deleted.
    static SegmentKey CreateRootSegment();
    static SegmentKeyArray GetRootSegments();
    static PortfolioKey CreatePortfolio();
    // Where the library tells of faults, as ErrorEvent and WarningEvent.
    static EventDispatcher GetEventDispatcher();
};

} // namespace HPS
