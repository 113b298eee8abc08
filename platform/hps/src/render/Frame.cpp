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
    Viewing const viewing(scene.camera, target.width(), target.height(), list.bounds);
    instances_.create();
    // Without perspective there is no eye that could stand within a body.
    bool const eyeOutside = !viewing.perspective || !list.bounds.contains(scene.camera.position);
    FrameContext context{target, list, scene, viewing, eyeOutside, instances_.name(), counts};
    upload(context);
    visible_.choose(context);
    drawSteps(context);
    return counts;
}

void Frame::upload(FrameContext& context)
{
    FrameBlock const block = frameBlock(context.viewing, context.target.width(), context.target.height());
    frameBlock_.fill(std::span(&block, 1));
    glBindBufferBase(GL_UNIFORM_BUFFER, FrameBinding, frameBlock_.name());
    if (uploadedList_ != context.list.version) {
        instances_.fill(std::span<Instance const>(context.list.instances));
        uploadedList_ = context.list.version;
        context.counts.uploadedInstances = true;
    }
    MaterialTable const& materials = context.list.materials;
    if (uploadedMaterials_ != materials.version()) {
        materials_.fill(std::span<MaterialRow const>(materials.rows()));
        layers_.fill(std::span<LayerRow const>(materials.layers()));
        uploadedMaterials_ = materials.version();
    }
    glBindBufferBase(GL_SHADER_STORAGE_BUFFER, MaterialBinding, materials_.name());
    glBindBufferBase(GL_SHADER_STORAGE_BUFFER, LayerBinding, layers_.name());
    glBindBufferBase(GL_SHADER_STORAGE_BUFFER, ParameterBinding, MeshStore::instance().parameterBuffer());
}

void Frame::drawSteps(FrameContext const& context)
{
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
    sections_.draw(context);
    transparent_.draw(context, visible_);
    effects_.finish(context);
    highlight_.draw(context);
    overlay_.draw(context);
}

} // namespace HPS::render
