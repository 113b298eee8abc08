#include "OpaqueStep.h"

namespace HPS::render
{

void OpaqueStep::draw(FrameContext const& context, VisibleRecords const& visible)
{
    calls_.clear();
    for (auto const& [depth, i] : visible.opaque()) {
        Record const& record = context.list.records[i];
        calls_.push(record.pipeline, context.instanceBuffer, record.range, i);
    }
    calls_.submit(context);
}

} // namespace HPS::render
