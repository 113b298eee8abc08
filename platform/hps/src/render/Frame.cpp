#include "Frame.h"
#include "MeshStore.h"
#include "bindings.h"
#include "frame_block.h"
#include "full_screen.h"
#include "interactive_preset.h"
#include <epoxy/gl.h>

namespace HPS::render
{

namespace
{

constexpr unsigned coloursAndDepths = GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT;

} // namespace

bool Frame::keepsGroundOf(Target const& target) const
{
    return ground_ != nullptr && ground_->width() == target.width() && ground_->height() == target.height() &&
           ground_->samples() == target.samples();
}

FrameCounts Frame::draw(Target const& target, DrawList const& list, Scene const& wanted, Ground ground)
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
    if (ground != Ground::TakeKept) visible_.choose(context);
    drawSteps(context, ground);
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

void Frame::drawSteps(FrameContext& context, Ground ground)
{
    sections_.prepare(context);
    if (ground == Ground::TakeKept) {
        lights_.draw(context);
        ground_->blitTo(context.target.framebuffer(), coloursAndDepths);
        context.target.bind();
        glEnable(GL_MULTISAMPLE);
        glDepthMask(GL_TRUE);
        setSceneState();
    } else {
        drawGround(context);
    }
    if (ground == Ground::DrawAndKeep) {
        if (ground_ == nullptr) ground_ = std::make_unique<Target>();
        ground_->resize(context.target.width(), context.target.height(), context.target.samples());
        context.target.blitTo(ground_->framebuffer(), coloursAndDepths);
    }
    highlight_.draw(context);
    overlay_.draw(context, visible_);
}

void Frame::drawGround(FrameContext& context)
{
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
}

} // namespace HPS::render
