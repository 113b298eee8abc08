#include "StrokeBuffers.h"
#include "bindings.h"
#include <epoxy/gl.h>

namespace HPS::render
{

void StrokeBuffers::upload(FrameContext const& context)
{
    DrawList const& list = context.list;
    if (!list.hasStrokes) return;
    if (patterns_ != list.strokes.version()) {
        patterns_ = list.strokes.version();
        heads_.fill(list.strokes.heads());
        rows_.fill(list.strokes.rows());
        // A buffer without a byte cannot be bound.
        std::array const none{StrokeTable::Dash{}};
        dashes_.fill(list.strokes.dashes().empty() ? std::span<StrokeTable::Dash const>(none)
                                                   : list.strokes.dashes());
    }
    Viewing const& v = context.viewing;
    std::array<double, 32> seen{};
    std::copy(v.projection.begin(), v.projection.end(), seen.begin());
    std::size_t at = v.projection.size();
    for (Vec3 const& axis : {v.right, v.up, v.back, v.target})
        for (double number : {axis.x, axis.y, axis.z}) seen[at++] = number;
    seen[at++] = context.target.width();
    seen[at++] = context.target.height();
    if (lengths_.name() == 0 || showings_ != list.screenStrokes.version() || seen != seen_) {
        seen_ = seen;
        showings_ = list.screenStrokes.version();
        list.screenStrokes.measure(v, context.target.width(), context.target.height(), work_);
        if (work_.empty()) work_.push_back(0);
        lengths_.fill(std::span<float const>(work_));
    }
    glBindBufferBase(GL_SHADER_STORAGE_BUFFER, StrokeHeadBinding, heads_.name());
    glBindBufferBase(GL_SHADER_STORAGE_BUFFER, StrokeRowBinding, rows_.name());
    glBindBufferBase(GL_SHADER_STORAGE_BUFFER, StrokeDashBinding, dashes_.name());
    glBindBufferBase(GL_SHADER_STORAGE_BUFFER, StrokeDistanceBinding, lengths_.name());
}

} // namespace HPS::render
