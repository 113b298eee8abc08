#include "HighlightStep.h"
#include <epoxy/gl.h>

namespace HPS::render
{

void HighlightStep::draw(FrameContext const& frame)
{
    if (frame.scene.highlight == nullptr) return;
    DrawList const& list = *frame.scene.highlight;
    buffers_.upload(list);
    buffers_.bindMaterials();
    FrameContext context{frame.target,         list,        frame.scene, frame.viewing, frame.eyeOutside,
                         buffers_.instances(), frame.counts};
    visible_.choose(context);
    calls_.clear();
    for (RecordRun const& run : visible_.opaque()) push(context, run);
    for (VisibleRecords::Entry const& entry : visible_.transparent())
        push(context, {entry.record, 1, entry.fine, entry.cut});
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LEQUAL);
    glBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    calls_.submit(context);
    overlay_.draw(context, visible_);
}

void HighlightStep::push(FrameContext const& context, RecordRun const& run)
{
    Record const& record = context.list.records[run.first];
    calls_.push(record.cutBy(run.cut), context.instanceBuffer, run.fine ? record.fine : record.range, run.first,
                run.count);
}

} // namespace HPS::render
