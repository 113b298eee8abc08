#include "Frame.h"
#include "MeshStore.h"
#include "bindings.h"
#include "frame_block.h"
#include "full_screen.h"
#include "interactive_preset.h"
#include <epoxy/gl.h>

namespace HPS::render
{

FrameCounts Frame::draw(Target const& target, DrawList const& list, Scene const& wanted)
{
    Scene const scene = atQuality(wanted);
    FrameCounts counts;
    Box bounds = list.bounds;
    if (scene.sections.caps != nullptr) bounds.add(scene.sections.caps->bounds);
    Viewing const viewing(scene.camera, target.width(), target.height(), bounds);
    // Without perspective there is no eye that could stand within a body.
    bool const eyeOutside = !viewing.perspective || !list.bounds.contains(scene.camera.position);
    FrameContext context{target, list, scene, viewing, eyeOutside, 0, counts};
    frameBlock_.create();
    context.frameBlock = frameBlock_.name();
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

void Frame::drawSteps(FrameContext& context)
{
    sections_.prepare(context);
    context.shadowed = shadows_.draw(context, visible_);
    planes_.prepare(context);
    lights_.draw(context);

    context.target.bind();
    glEnable(GL_MULTISAMPLE);
    glDepthMask(GL_TRUE);
    glClear(GL_DEPTH_BUFFER_BIT);
    setSceneState();

    effects_.begin(context);
    background_.draw(context);
    opaque_.draw(context, visible_);
    hiddenLines_.draw(context, visible_);
    sections_.draw(context);
    if (context.scene.sections.any()) buffers_.bindMaterials();
    planes_.draw(context);
    transparent_.draw(context, visible_);
    effects_.finish(context, visible_);
    highlight_.draw(context);
    overlay_.draw(context, visible_);
}

} // namespace HPS::render
