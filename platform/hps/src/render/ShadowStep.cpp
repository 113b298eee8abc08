#include "ShadowStep.h"
#include "full_screen.h"
#include "shadow_camera.h"
#include <algorithm>
#include <epoxy/gl.h>

namespace HPS::render
{
namespace
{

/// Away from the light: the depth that a face spans within the samples' disc, and what a map rounds off.
constexpr std::array<float, 2> mapDisplacement{3, 4};

bool takesShadows(FrameContext const& context)
{
    auto const& lights = context.scene.lights.distant;
    auto const count = std::ptrdiff_t(std::min(lights.size(), shadowLights));
    bool const lit =
        context.scene.faceStyle == FaceStyle::Smooth || context.scene.faceStyle == FaceStyle::Flat;
    return context.scene.shadows.maps && lit &&
           std::any_of(lights.begin(), lights.begin() + count, [](auto const& l) { return l.throwsShadows; });
}

bool opaqueFaces(Record const& record)
{
    return record.pipeline.primitive == Primitive::Faces && !record.pipeline.transparent;
}

/// Around all that is seen and takes shadows.
Box seenReceivers(FrameContext const& context, VisibleRecords const& visible)
{
    Box box;
    auto const& records = context.list.records;
    for (RecordRun const& run : visible.opaque())
        for (std::uint32_t i = run.first; i < run.first + run.count && opaqueFaces(records[i]); ++i)
            box.add(records[i].world);
    return box;
}

Vec3 inWorld(DistantLight const& light, Viewing const& view)
{
    Vec3 const& d = light.direction;
    return light.cameraRelative ? view.right * d.x + view.up * d.y + view.back * d.z : d;
}

} // namespace

ShadowStep::Parts::Parts() : depths({}, GL_DEPTH_COMPONENT24) {}

bool ShadowStep::draw(FrameContext const& context, VisibleRecords const& visible)
{
    if (!takesShadows(context)) {
        parts_.reset();
        return false;
    }
    Box const seen = seenReceivers(context, visible);
    if (seen.empty()) return false;
    if (!parts_) parts_.emplace();
    setSceneState();

    Shadows const& shadows = context.scene.shadows;
    parts_->maps.resize(shadows.resolution);
    auto const size = int(parts_->maps.resolution());
    auto const& lights = context.scene.lights.distant;
    std::optional<Viewing> views[shadowLights];
    Viewing const* known[shadowLights] = {};
    for (std::size_t i = 0; i < std::min(lights.size(), shadowLights); ++i) {
        if (!lights[i].throwsShadows) continue;
        Camera const camera = shadowCamera(inWorld(lights[i], context.viewing),
                                           shadows.viewDependent ? seen : context.list.bounds,
                                           shadows.viewDependent ? &context.viewing : nullptr);
        known[i] = &views[i].emplace(camera, size, size, context.list.bounds);
        ShadowMaps::Key const key{context.list.version, camera};
        if (parts_->maps.holds(i, key)) continue;
        parts_->maps.bind(i, key);
        drawMap(context, i, *views[i]);
    }
    drawDepths(context, visible);
    parts_->maps.makeMask(parts_->depths, context.viewing, known, shadows);
    parts_->maps.readMask();
    return true;
}

void ShadowStep::drawMap(FrameContext const& context, std::size_t, Viewing const& view)
{
    ++mapsDrawn_;
    auto const size = int(parts_->maps.resolution());
    OtherView const seenFromLight(context, buffers_, view, size, size);
    glDisable(GL_BLEND);
    // What is seen through lets light pass, so it goes by a program of its own.
    for (bool const through : {false, true}) {
        calls_.clear();
        for (std::uint32_t i = 0; i < context.list.records.size(); ++i) {
            Record const& record = context.list.records[i];
            Pipeline const& its = record.pipeline;
            if (record.gone() || its.primitive != Primitive::Faces ||
                (its.transparent || its.screenDoor) != through)
                continue;
            if (!record.role.castsShadow || !view.sees(record.world)) continue;
            Pipeline caster;
            caster.closed = its.closed;
            caster.mirrored = its.mirrored;
            caster.cut = isCut(context.list.instances[i]);
            calls_.push(caster, context.instanceBuffer, record.range, i);
        }
        Pass pass{.program = ProgramName::Cover, .keepBlending = true, .displacement = mapDisplacement};
        if (through) pass.features = {Feature::CoverDepth};
        calls_.submit(context, pass);
    }
}

void ShadowStep::drawDepths(FrameContext const& context, VisibleRecords const& visible)
{
    parts_->depths.resize(context.target.width(), context.target.height());
    parts_->depths.bind();
    glClear(GL_DEPTH_BUFFER_BIT);
    calls_.clear();
    for (RecordRun const& run : visible.opaque())
        if (Record const& record = context.list.records[run.first]; opaqueFaces(record))
            calls_.push(record.cutBy(run.cut), context.instanceBuffer, record.range, run.first, run.count);
    calls_.submit(context, {.program = ProgramName::Cover, .keepBlending = true, .displacement = {{0, 0}}});
}

} // namespace HPS::render
