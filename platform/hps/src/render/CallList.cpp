#include "CallList.h"
#include "MeshStore.h"
#include <algorithm>
#include <epoxy/gl.h>

namespace HPS::render
{
namespace
{

ProgramName programFor(Primitive primitive)
{
    switch (primitive) {
    case Primitive::Faces:
        return ProgramName::Faces;
    case Primitive::Lines:
        return ProgramName::Lines;
    case Primitive::ThinLines:
        return ProgramName::ThinLines;
    case Primitive::Markers:
        return ProgramName::Markers;
    }
    return ProgramName::Faces;
}

Features featuresFor(Pipeline const& pipeline, Scene const& scene)
{
    Features features;
    if (pipeline.primitive != Primitive::Faces) return features;
    features.set(Feature::Flat, scene.faceStyle == FaceStyle::Flat);
    features.set(Feature::Transparent, pipeline.transparent);
    features.lights = std::uint8_t(std::min(scene.lights.distant.size(), maximumLights));
    return features;
}

void enable(GLenum what, bool on)
{
    if (on)
        glEnable(what);
    else
        glDisable(what);
}

} // namespace

void CallList::clear()
{
    commands_.clear();
    batches_.clear();
}

void CallList::push(Pipeline const& pipeline, unsigned instances, MeshRange const& range,
                    std::uint32_t instance)
{
    bool const sameBatch =
        !batches_.empty() && batches_.back().pipeline == pipeline && batches_.back().instances == instances;
    if (!sameBatch) batches_.push_back({pipeline, commands_.size(), 0, instances});
    Batch& batch = batches_.back();
    if (batch.commandCount > 0) {
        Command& last = commands_.back();
        if (last.firstIndex == range.firstIndex && last.baseVertex == range.baseVertex &&
            last.baseInstance + last.instanceCount == instance) {
            ++last.instanceCount;
            return;
        }
    }
    std::uint32_t const count =
        pipeline.primitive == Primitive::ThinLines ? range.indexCount / 3 : range.indexCount;
    commands_.push_back({count, 1, range.firstIndex, range.baseVertex, instance});
    ++batch.commandCount;
}

void CallList::submit(FrameContext const& context, std::optional<ProgramName> program)
{
    if (empty()) return;
    buffer_.fill(std::span<Command const>(commands_));
    glBindBuffer(GL_DRAW_INDIRECT_BUFFER, buffer_.name());
    for (Batch const& batch : batches_) submit(batch, context, program);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    context.counts.calls += std::uint32_t(batches_.size());
}

void CallList::submit(Batch const& batch, FrameContext const& context,
                      std::optional<ProgramName> wanted) const
{
    Pipeline const& pipeline = batch.pipeline;
    bool const faces = pipeline.primitive == Primitive::Faces;
    enable(GL_BLEND, pipeline.transparent);
    glDepthMask(pipeline.transparent ? GL_FALSE : GL_TRUE);
    enable(GL_SAMPLE_ALPHA_TO_COVERAGE, pipeline.primitive == Primitive::Markers && !pipeline.transparent);
    enable(GL_CULL_FACE, faces && (pipeline.cullBack || (pipeline.closed && context.eyeOutside)));
    // Not the front is redefined, for the shader lights by what winds counter-clockwise, mirrored or not.
    glCullFace(pipeline.mirrored ? GL_FRONT : GL_BACK);
    GLboolean const seen = faces && context.scene.faceStyle == FaceStyle::HiddenLine ? GL_FALSE : GL_TRUE;
    glColorMask(seen, seen, seen, seen);
    enable(GL_POLYGON_OFFSET_FILL, faces && pipeline.displacement != 0);
    if (faces) {
        float const away = pipeline.displacement;
        glPolygonOffset(away > 0 ? 1.0f : -1.0f, away);
    }
    glUseProgram(ShaderLibrary::instance().program(wanted.value_or(programFor(pipeline.primitive)),
                                                   featuresFor(pipeline, context.scene)));
    MeshStore::instance().bind(pipeline.primitive, batch.instances);
    auto const first = reinterpret_cast<void const*>(batch.firstCommand * sizeof(Command));
    GLenum const mode = pipeline.primitive == Primitive::ThinLines ? GL_LINES : GL_TRIANGLES;
    glMultiDrawElementsIndirect(mode, GL_UNSIGNED_INT, first, GLsizei(batch.commandCount), sizeof(Command));
}

} // namespace HPS::render
