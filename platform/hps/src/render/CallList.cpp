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
    case Primitive::Glyphs:
        return ProgramName::Glyphs;
    case Primitive::Strokes:
        return ProgramName::Strokes;
    case Primitive::ViewEdges:
        return ProgramName::ViewEdges;
    }
    return ProgramName::Faces;
}

Features featuresFor(Pipeline const& pipeline, FrameContext const& context, Pass const& pass)
{
    Scene const& scene = context.scene;
    Features features;
    features.bits = pass.features.bits;
    features.set(Feature::Cut, pipeline.cut);
    if (pass.program) return features;
    features.set(Feature::ScreenDoor, pipeline.screenDoor);
    if (pipeline.primitive != Primitive::Faces) return features;
    Features const& kind = context.list.materials.kind(pipeline.surface).features;
    features.bits |= kind.bits;
    features.layers = kind.layers;
    if (scene.faceStyle == FaceStyle::Flat) features.set(Feature::Flat).set(Feature::Gouraud, false);
    features.set(Feature::Transparent, pipeline.transparent && !pass.keepBlending);
    features.set(Feature::Shadowed, context.shadowed && !pipeline.transparent && !pass.mirrored);
    // What reaches a pixel is not known at the corners.
    if (features.has(Feature::Shadowed)) features.set(Feature::Gouraud, false);
    features.lights = std::uint8_t(std::min(scene.lights.distant.size(), maximumLights));
    features.spots = std::uint8_t(std::min(scene.lights.spots.size(), maximumLights));
    return features;
}

/// Binds what the material's programs read; `materialUnits` tells which units are in use.
void bindTextures(SurfaceKind const& kind)
{
    for (UnitTexture const& texture : kind.textures) {
        glBindTextureUnit(texture.unit, texture.sampled.texture->name());
        glBindSampler(texture.unit, texture.sampled.sampler);
    }
}

/// Depth steps that lines stand before the faces that they bound, where nothing else is said.
constexpr float outlineDistance = 16;

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
                    std::uint32_t instance, std::uint32_t count)
{
    bool const sameBatch =
        !batches_.empty() && batches_.back().pipeline == pipeline && batches_.back().instances == instances;
    if (!sameBatch) batches_.push_back({pipeline, commands_.size(), 0, instances});
    Batch& batch = batches_.back();
    // A thin line has two indices where a wide one has six.
    std::uint32_t const share = pipeline.primitive == Primitive::ThinLines ? 3 : 1;
    if (batch.commandCount > 0) {
        Command& last = commands_.back();
        if (last.firstIndex == range.firstIndex / share && last.indexCount == range.indexCount / share &&
            last.baseVertex == range.baseVertex && last.baseInstance + last.instanceCount == instance) {
            last.instanceCount += count;
            return;
        }
    }
    commands_.push_back(
        {range.indexCount / share, count, range.firstIndex / share, range.baseVertex, instance});
    ++batch.commandCount;
}

void CallList::submit(FrameContext const& context, Pass const& pass)
{
    if (empty()) return;
    buffer_.fill(std::span<Command const>(commands_));
    glBindBuffer(GL_DRAW_INDIRECT_BUFFER, buffer_.name());
    glFrontFace(pass.mirrored ? GL_CW : GL_CCW);
    for (Batch const& batch : batches_) submit(batch, context, pass);
    glFrontFace(GL_CCW);
    glEnable(GL_MULTISAMPLE);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glDisable(GL_CULL_FACE);
    glBindSamplers(0, materialUnits, nullptr); // who draws next samples as its textures say
    glDepthRange(0, 1);
    context.counts.calls += std::uint32_t(batches_.size());
}

void CallList::submit(Batch const& batch, FrameContext const& context, Pass const& pass) const
{
    Pipeline const& pipeline = batch.pipeline;
    bool const faces = pipeline.primitive == Primitive::Faces;
    bool const glyphs = pipeline.primitive == Primitive::Glyphs;
    bool const strokes = pipeline.primitive == Primitive::Strokes;
    bool const softRims = pipeline.primitive == Primitive::Markers || strokes;
    if (!pass.keepBlending) {
        enable(GL_BLEND, pipeline.transparent);
        glDepthMask(pipeline.transparent && !pipeline.depthWriting ? GL_FALSE : GL_TRUE);
    }
    enable(GL_MULTISAMPLE, pipeline.smooth);
    enable(GL_SAMPLE_ALPHA_TO_COVERAGE, softRims && !pipeline.transparent && !pass.keepBlending);
    // What stands out of its box, or has no end, does not end where the depth range does.
    enable(GL_DEPTH_CLAMP, glyphs || strokes);
    bool const cullBack = pipeline.cullBack || (pipeline.closed && context.eyeOutside && !pipeline.cut);
    enable(GL_CULL_FACE, faces && (cullBack || pipeline.cullFront));
    // Not the front is redefined, for the shader lights by what winds counter-clockwise, mirrored or not.
    if (cullBack && pipeline.cullFront)
        glCullFace(GL_FRONT_AND_BACK);
    else
        glCullFace(pipeline.mirrored == pipeline.cullFront ? GL_BACK : GL_FRONT);
    bool const onlyHiding =
        faces && context.scene.faceStyle == FaceStyle::HiddenLine && !context.scene.hiddenLines.faces;
    GLboolean const seen = onlyHiding ? GL_FALSE : GL_TRUE;
    glColorMask(seen, seen, seen, seen);
    float away = float(pipeline.displacement) + float(pipeline.placing.displacement);
    if (faces && context.scene.faceStyle == FaceStyle::HiddenLine) {
        away += float(context.scene.hiddenLines.displacement);
        if (away == 0) away = outlineDistance;
    }
    if (faces && pass.displacement) {
        glEnable(GL_POLYGON_OFFSET_FILL);
        glPolygonOffset((*pass.displacement)[0], (*pass.displacement)[1]);
    } else {
        enable(GL_POLYGON_OFFSET_FILL, away != 0);
        glPolygonOffset(away > 0 ? 1.0f : -1.0f, away);
    }
    glDepthRange(pipeline.placing.nearest / 65535.0, pipeline.placing.farthest / 65535.0);
    ProgramName const name = pass.program.value_or(programFor(pipeline.primitive));
    glUseProgram(ShaderLibrary::instance().program(name, featuresFor(pipeline, context, pass)));
    if (pass.prepare) pass.prepare();
    if (faces && !pass.program) bindTextures(context.list.materials.kind(pipeline.surface));
    MeshStore::instance().bind(pipeline.primitive, batch.instances, pass.indices);
    auto const first = reinterpret_cast<void const*>(batch.firstCommand * sizeof(Command));
    GLenum const mode = pipeline.primitive == Primitive::ThinLines ? GL_LINES : GL_TRIANGLES;
    glMultiDrawElementsIndirect(mode, GL_UNSIGNED_INT, first, GLsizei(batch.commandCount), sizeof(Command));
}

} // namespace HPS::render
