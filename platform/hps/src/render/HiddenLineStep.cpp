#include "HiddenLineStep.h"
#include <algorithm>
#include <epoxy/gl.h>

namespace HPS::render
{

void HiddenLineStep::draw(FrameContext const& context, VisibleRecords const& visible)
{
    HiddenLines const& lines = context.scene.hiddenLines;
    if (context.scene.faceStyle != FaceStyle::HiddenLine || !lines.shown) return;
    calls_.clear();
    dimmed_.clear();
    buffer_.create();
    for (RecordRun const& run : visible.opaque()) {
        Record const& record = context.list.records[run.first];
        if (record.pipeline.primitive == Primitive::Faces) continue;
        Pipeline pipeline = record.cutBy(run.cut);
        pipeline.transparent = true;
        bool const line =
            pipeline.primitive == Primitive::Lines || pipeline.primitive == Primitive::ThinLines;
        if (line && lines.weight > 1) pipeline.primitive = Primitive::Lines;
        calls_.push(pipeline, buffer_.name(), record.range, std::uint32_t(dimmed_.size()), run.count);
        for (std::uint32_t i = run.first; i < run.first + run.count; ++i) {
            Instance instance = context.list.instances[i];
            if (lines.ownColour) std::copy_n(lines.colour, 4, instance.colour);
            instance.colour[3] = std::uint8_t(float(instance.colour[3]) * lines.dimming + 0.5f);
            if (line && lines.weight > 0) instance.size = lines.weight;
            dimmed_.push_back(instance);
        }
    }
    if (calls_.empty()) return;
    buffer_.fill(std::span<Instance const>(dimmed_));
    glDepthFunc(GL_GREATER);
    calls_.submit(context);
    glDepthFunc(GL_LEQUAL);
}

} // namespace HPS::render
