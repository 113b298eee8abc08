#include "OpaqueStep.h"

namespace HPS::render
{

void OpaqueStep::draw(FrameContext const& context, VisibleRecords const& visible)
{
    calls_.clear();
    for (RecordRun const& run : visible.opaque()) {
        Record const& record = context.list.records[run.first];
        calls_.push(record.cutBy(run.cut), context.instanceBuffer, run.fine ? record.fine : record.range, run.first,
                    run.count);
    }
    calls_.submit(context);
}

} // namespace HPS::render
