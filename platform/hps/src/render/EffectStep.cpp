#include "EffectStep.h"
#include "full_screen.h"
#include <algorithm>
#include <epoxy/gl.h>

namespace HPS::render
{
namespace
{

/// Lets what was drawn before pass its own depth.
constexpr std::array<float, 2> towardsViewer{-1, -4};

} // namespace

void EffectStep::begin(FrameContext const&) {}

void EffectStep::finish(FrameContext const& context, VisibleRecords const& visible)
{
    Effects effects = context.scene.effects;
    effects.smoothing = effects.smoothing && context.target.samples() == 1;
    bool const marked = mark(context, visible, effects.bits());
    if (!marked) without_.reset();
    chain_.draw(context.target, context.viewing, effects, context.list.bounds.diagonal(),
                marked ? &*without_ : nullptr);
    if (marked || effects.bits() != 0 || effects.smoothing) {
        context.target.bind();
        setSceneState();
    }
}

bool EffectStep::mark(FrameContext const& context, VisibleRecords const& visible, std::uint8_t effects)
{
    // What goes without something, with the bits that say so.
    struct Marked {
        std::uint8_t bits;
        std::uint32_t record;
        bool cut;
    };
    std::vector<Marked> marked;
    auto look = [&](std::uint32_t i, bool cut) {
        Record const& record = context.list.records[i];
        auto const bits = std::uint8_t(record.role.withoutEffects & effects);
        if (bits != 0 && record.pipeline.primitive == Primitive::Faces) marked.push_back({bits, i, cut});
    };
    if (effects != 0) {
        for (RecordRun const& run : visible.opaque())
            for (std::uint32_t i = run.first; i < run.first + run.count; ++i) look(i, run.cut);
        for (auto const& entry : visible.transparent()) look(entry.record, entry.cut);
    }
    if (marked.empty()) return false;
    // Each combination is drawn with a value of its own.
    std::stable_sort(marked.begin(), marked.end(),
                     [](auto const& a, auto const& b) { return a.bits < b.bits; });

    Target const& target = context.target;
    if (!without_) without_.emplace(std::vector<unsigned>{GL_R8}, GL_DEPTH_COMPONENT24);
    without_->resize(target.width(), target.height());
    without_->bind();
    target.blitTo(without_->framebuffer(), GL_DEPTH_BUFFER_BIT);
    float const nothing[4] = {0, 0, 0, 0};
    glClearNamedFramebufferfv(without_->framebuffer(), GL_COLOR, 0, nothing);
    setSceneState();
    glDisable(GL_BLEND);
    for (auto first = marked.begin(); first != marked.end();) {
        std::uint8_t const bits = first->bits;
        calls_.clear();
        for (; first != marked.end() && first->bits == bits; ++first) {
            Record const& record = context.list.records[first->record];
            calls_.push(record.cutBy(first->cut), context.instanceBuffer, record.range, first->record);
        }
        calls_.submit(context, {.program = ProgramName::Cover,
                                .keepBlending = true,
                                .displacement = towardsViewer,
                                .prepare = [&] { glUniform4f(1, float(bits) / 255, 0, 0, 1); }});
    }
    return true;
}

} // namespace HPS::render
