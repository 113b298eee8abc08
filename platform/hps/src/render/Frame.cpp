#include "Frame.h"
#include "MeshStore.h"
#include "bindings.h"
#include "frame_block.h"
#include <epoxy/gl.h>

namespace HPS::render
{

FrameCounts Frame::draw(Target const& target, DrawList const& list, Scene const& scene)
{
    FrameCounts counts;
    Box bounds = list.bounds;
    if (scene.sections.caps != nullptr) bounds.add(scene.sections.caps->bounds);
    Viewing const viewing(scene.camera, target.width(), target.height(), bounds);
    // Without perspective there is no eye that could stand within a body.
    bool const eyeOutside = !viewing.perspective || !list.bounds.contains(scene.camera.position);
    FrameContext context{target, list, scene, viewing, eyeOutside, 0, counts};
    upload(context);
    context.instanceBuffer = buffers_.instances();
    strokes_.upload(context);
    visible_.choose(context);
    drawSteps(context);
    return counts;
}

void Frame::upload(FrameContext& context)
{
    FrameBlock const block = frameBlock(context.viewing, context.target.width(), context.target.height());
    frameBlock_.fill(std::span(&block, 1));
    glBindBufferBase(GL_UNIFORM_BUFFER, FrameBinding, frameBlock_.name());
    context.counts.uploadedInstances = buffers_.upload(context.list);
    buffers_.bindMaterials();
}

void Frame::drawSteps(FrameContext const& context)
{
    sections_.prepare(context);
    shadows_.draw(context);
    lights_.draw(context);

    context.target.bind();
    glEnable(GL_MULTISAMPLE);
    glDepthMask(GL_TRUE);
    glClear(GL_DEPTH_BUFFER_BIT);
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LEQUAL);
    glBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);

    effects_.begin(context);
    background_.draw(context);
    opaque_.draw(context, visible_);
    hiddenLines_.draw(context, visible_);
    sections_.draw(context);
    if (context.scene.sections.any()) buffers_.bindMaterials();
    transparent_.draw(context, visible_);
    effects_.finish(context);
    highlight_.draw(context);
    overlay_.draw(context, visible_);
}

} // namespace HPS::render
