#include "Frame.h"
#include "Device.h"
#include "Viewing.h"
#include "shaders.h"
#include <algorithm>
#include <epoxy/gl.h>

namespace HPS::render
{
namespace
{

/// As the shaders see it (std140).
struct FrameBlock {
    float rotation[16];
    float projection[16];
    float target[4];
    float eye[4];
    float viewport[4];
    float backgroundTop[4];
    float backgroundBottom[4];
    struct {
        float direction[4], halfway[4], colour[4];
    } lights[maximumLights];
};

void put(float* out, Vec3 const& v, double w = 0)
{
    out[0] = float(v.x);
    out[1] = float(v.y);
    out[2] = float(v.z);
    out[3] = float(w);
}

FrameBlock describe(Viewing const& viewing, Scene const& scene, Target const& target)
{
    FrameBlock block{};
    std::array const components{&Vec3::x, &Vec3::y, &Vec3::z};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        auto const c = components[axis];
        put(&block.rotation[axis * 4], {viewing.right.*c, viewing.up.*c, viewing.back.*c});
    }
    std::copy(viewing.projection.begin(), viewing.projection.end(), block.projection);
    put(block.target, viewing.target);
    put(block.eye, {0, 0, viewing.distance}, viewing.perspective ? 1 : 0);
    put(block.viewport, {double(target.width()), double(target.height()), 0});
    std::copy_n(scene.backgroundTop, 3, block.backgroundTop);
    std::copy_n(scene.backgroundBottom, 3, block.backgroundBottom);
    std::size_t const lights = std::min(scene.lights.size(), maximumLights);
    for (std::size_t i = 0; i < lights; ++i) {
        DistantLight const& light = scene.lights[i];
        Vec3 const d = normalised(light.direction, {0, 0, -1});
        Vec3 const seen =
            light.cameraRelative ? d : Vec3{dot(d, viewing.right), dot(d, viewing.up), dot(d, viewing.back)};
        put(block.lights[i].direction, seen * -1);
        put(block.lights[i].halfway, normalised(Vec3{0, 0, 1} - seen, {0, 0, 1}));
        std::copy_n(light.colour, 3, block.lights[i].colour);
    }
    return block;
}

template <class T> void fill(unsigned& buffer, std::span<T const> data)
{
    if (buffer == 0) glCreateBuffers(1, &buffer);
    glNamedBufferData(buffer, GLsizeiptr(data.size_bytes()), data.data(), GL_DYNAMIC_DRAW);
}

Program programFor(Pipeline const& pipeline, bool flat)
{
    switch (pipeline.primitive) {
    case Primitive::Faces:
        if (pipeline.transparent) return flat ? Program::TransparentFlatFaces : Program::TransparentFaces;
        return flat ? Program::FlatFaces : Program::Faces;
    case Primitive::Lines:
        return Program::Lines;
    case Primitive::ThinLines:
        return Program::ThinLines;
    case Primitive::Markers:
        return Program::Markers;
    }
    return Program::Faces;
}

void enable(GLenum what, bool on)
{
    if (on)
        glEnable(what);
    else
        glDisable(what);
}

} // namespace

Frame::~Frame()
{
    if (frameBuffer_ == 0 || !Device::instance().makeCurrent()) return;
    for (unsigned* buffer : {&instanceBuffer_, &sortedBuffer_, &commandBuffer_, &frameBuffer_})
        glDeleteBuffers(1, buffer);
}

FrameCounts Frame::draw(Target const& target, DrawList const& list, Scene const& scene)
{
    FrameCounts counts;
    Viewing const viewing(scene.camera, target.width(), target.height(), list.bounds);
    FrameBlock const block = describe(viewing, scene, target);
    // Without perspective there is no eye that could stand within a body.
    outside_ = !viewing.perspective || !list.bounds.contains(scene.camera.position);
    fill(frameBuffer_, std::span(&block, 1));
    glBindBufferBase(GL_UNIFORM_BUFFER, frameBlockBinding, frameBuffer_);
    if (uploaded_ != list.version) {
        upload(list);
        counts.uploadedInstances = true;
    }
    choose(list, viewing, scene.faceStyle, counts);
    if (!commands_.empty()) fill(commandBuffer_, std::span<Command const>(commands_));
    if (!sorted_.empty()) fill(sortedBuffer_, std::span<Instance const>(sorted_));

    target.bind();
    glEnable(GL_MULTISAMPLE);
    glDepthMask(GL_TRUE);
    glClear(GL_DEPTH_BUFFER_BIT);
    if (scene.background) paintBackground();

    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LEQUAL);
    glBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    glBindBuffer(GL_DRAW_INDIRECT_BUFFER, commandBuffer_);
    for (Batch const& batch : batches_) submit(batch, scene);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    counts.calls = std::uint32_t(batches_.size()) + (scene.background ? 1 : 0);
    return counts;
}

void Frame::paintBackground() const
{
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_BLEND);
    glUseProgram(program(Program::Background));
    MeshStore::instance().bindNothing();
    glDrawArrays(GL_TRIANGLES, 0, 3);
}

void Frame::upload(DrawList const& list)
{
    fill(instanceBuffer_, std::span<Instance const>(list.instances));
    uploaded_ = list.version;
}

void Frame::push(Pipeline const& pipeline, unsigned instances, MeshRange const& range, std::uint32_t instance)
{
    bool const sameBatch = !batches_.empty() && batches_.back().pipeline == pipeline;
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

void Frame::choose(DrawList const& list, Viewing const& viewing, FaceStyle style, FrameCounts& counts)
{
    commands_.clear();
    batches_.clear();
    opaque_.clear();
    transparent_.clear();
    sorted_.clear();
    for (std::uint32_t i = 0; i < list.records.size(); ++i) {
        Record const& record = list.records[i];
        if (style == FaceStyle::None && record.pipeline.primitive == Primitive::Faces) continue;
        if (!viewing.sees(record.world)) {
            ++counts.culledRecords;
            continue;
        }
        ++counts.records;
        switch (record.pipeline.primitive) {
        case Primitive::Faces:
            counts.triangles += record.range.indexCount / 3;
            break;
        case Primitive::Lines:
        case Primitive::ThinLines:
            counts.lineSegments += record.range.indexCount / 6;
            break;
        case Primitive::Markers:
            counts.markers += record.range.indexCount / 6;
            break;
        }
        double const depth = viewing.toView(record.world.centre()).z;
        (record.pipeline.transparent ? transparent_ : opaque_).push_back({depth, i});
    }
    chooseOpaque(list);
    if (!transparent_.empty()) chooseTransparent(list);
}

// From front to back, so that what is hidden costs a depth test and no shading.
void Frame::chooseOpaque(DrawList const& list)
{
    for (auto first = opaque_.begin(); first != opaque_.end();) {
        Pipeline const& pipeline = list.records[first->record].pipeline;
        auto const last = std::find_if(first, opaque_.end(), [&](Visible const& v) {
            return !(list.records[v.record].pipeline == pipeline);
        });
        std::sort(first, last, [](Visible const& a, Visible const& b) {
            return a.depth != b.depth ? a.depth > b.depth : a.record < b.record;
        });
        for (; first != last; ++first)
            push(pipeline, instanceBuffer_, list.records[first->record].range, first->record);
    }
}

void Frame::chooseTransparent(DrawList const& list)
{
    std::sort(transparent_.begin(), transparent_.end(), [](Visible const& a, Visible const& b) {
        return a.depth != b.depth ? a.depth < b.depth : a.record < b.record;
    });
    if (sortedBuffer_ == 0) glCreateBuffers(1, &sortedBuffer_);
    for (auto const& [depth, i] : transparent_) {
        Pipeline const pipeline = list.records[i].pipeline;
        Instance instance = list.instances[i];
        auto emit = [&](std::uint32_t side) {
            instance.flags = list.instances[i].flags | side;
            push(pipeline, sortedBuffer_, list.records[i].range, std::uint32_t(sorted_.size()));
            sorted_.push_back(instance);
        };
        // Both halves of one body in order, in one call with all others: the shader drops the other half.
        if (pipeline.primitive == Primitive::Faces) {
            emit(BackOnly);
            emit(FrontOnly);
        } else {
            emit(0);
        }
    }
}

void Frame::submit(Batch const& batch, Scene const& scene) const
{
    Pipeline const& pipeline = batch.pipeline;
    bool const faces = pipeline.primitive == Primitive::Faces;
    enable(GL_BLEND, pipeline.transparent);
    glDepthMask(pipeline.transparent ? GL_FALSE : GL_TRUE);
    enable(GL_SAMPLE_ALPHA_TO_COVERAGE, pipeline.primitive == Primitive::Markers && !pipeline.transparent);
    enable(GL_CULL_FACE, faces && (pipeline.cullBack || (pipeline.closed && outside_)));
    // Not the front is redefined, for the shader lights by what winds counter-clockwise, mirrored or not.
    glCullFace(pipeline.mirrored ? GL_FRONT : GL_BACK);
    GLboolean const seen = faces && scene.faceStyle == FaceStyle::HiddenLine ? GL_FALSE : GL_TRUE;
    glColorMask(seen, seen, seen, seen);
    enable(GL_POLYGON_OFFSET_FILL, faces && pipeline.displacement != 0);
    if (faces) {
        float const away = pipeline.displacement;
        glPolygonOffset(away > 0 ? 1.0f : -1.0f, away);
    }
    std::size_t const lights = faces ? std::min(scene.lights.size(), maximumLights) : 0;
    glUseProgram(program(programFor(pipeline, scene.faceStyle == FaceStyle::Flat), lights));
    MeshStore::instance().bind(pipeline.primitive, batch.instances);
    auto const first = reinterpret_cast<void const*>(batch.firstCommand * sizeof(Command));
    GLenum const mode = pipeline.primitive == Primitive::ThinLines ? GL_LINES : GL_TRIANGLES;
    glMultiDrawElementsIndirect(mode, GL_UNSIGNED_INT, first, GLsizei(batch.commandCount), sizeof(Command));
}

} // namespace HPS::render
