#include "OverlayStep.h"
#include <epoxy/gl.h>

namespace HPS::render
{

void OverlayStep::draw(FrameContext const& context, VisibleRecords const& visible)
{
    using Drawing::Overlay;
    for (Overlay kind : {Overlay::InPlace, Overlay::Default, Overlay::WithZValues}) {
        if (visible.overlay(kind).empty()) continue;
        calls_.clear();
        for (RecordRun const& run : visible.overlay(kind)) {
            Record const& record = context.list.records[run.first];
            calls_.push(record.cutBy(run.cut), context.instanceBuffer, run.fine ? record.fine : record.range,
                        run.first, run.count);
        }
        // One is last but hidden by what stands before it, one covers all in its own order, and one hides
        // nothing but what belongs to it.
        glDepthMask(GL_TRUE);
        if (kind == Overlay::WithZValues) glClear(GL_DEPTH_BUFFER_BIT);
        glDepthFunc(kind == Overlay::Default ? GL_ALWAYS : GL_LEQUAL);
        calls_.submit(context);
    }
    glDepthFunc(GL_LEQUAL);
}

} // namespace HPS::render
