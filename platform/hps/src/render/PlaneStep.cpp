#include "PlaneStep.h"
#include "full_screen.h"
#include <epoxy/gl.h>

namespace HPS::render
{
namespace
{

constexpr double inPlane = 1e-5; ///< of the casters' extent: no height at all

/// For ProgramName::Cover, see cover_vertex.glsl. What is no higher over the plane than `lowest` lies in it
/// and casts nothing.
void setCover(MirrorPlane const& plane, Viewing const& view, double lowest, float least)
{
    glUniform4f(0, float(plane.normal.x), float(plane.normal.y), float(plane.normal.z),
                float(plane.height(view.target) - lowest));
    glUniform4f(1, 1, 1, 1, least);
}

} // namespace

void PlaneStep::prepare(FrameContext const& context)
{
    shadows_.resize(context.list.planeShadows.size());
    mirrors_.resize(context.list.reflections.size());
    bool const faces =
        context.scene.faceStyle != FaceStyle::None && context.scene.faceStyle != FaceStyle::HiddenLine;
    for (std::size_t i = 0; i < shadows_.size(); ++i) {
        if (!faces || !PlaneShadowMap::falls(context.list.planeShadows[i]))
            shadows_[i].reset();
        else
            drawShadow(context, i);
    }
    for (std::size_t i = 0; i < mirrors_.size(); ++i) drawMirror(context, i);
}

void PlaneStep::drawShadow(FrameContext const& context, std::size_t number)
{
    PlaneShadow const& how = context.list.planeShadows[number];
    PlaneShadowMap::Key const key{context.list.version, how};
    if (!shadows_[number]) shadows_[number] = std::make_unique<PlaneShadowMap>();
    PlaneShadowMap& map = *shadows_[number];
    if (map.holds(key)) return;

    calls_.clear();
    Box casters;
    for (std::uint32_t i = 0; i < context.list.records.size(); ++i) {
        Record const& record = context.list.records[i];
        if (record.gone() || record.role.planeShadow != number + 1 ||
            record.pipeline.primitive != Primitive::Faces)
            continue;
        casters.add(record.world);
        Pipeline caster;
        caster.cut = isCut(context.list.instances[i]);
        calls_.push(caster, context.instanceBuffer, record.range, i);
    }
    if (casters.empty()) return shadows_[number].reset();
    // Light falls on the side of the plane that is turned to it.
    MirrorPlane plane = how.plane;
    if (dot(plane.normal, how.toLight) < 0) plane = {plane.normal * -1, -plane.offset};
    Viewing const light = map.begin(key, casters);
    auto const size = int(how.resolution);
    {
        OtherView const seenFromLight(context, buffers_, light, size, size);
        calls_.submit(context, {.program = ProgramName::Cover,
                                .features = {Feature::CoverPlane},
                                .keepBlending = true,
                                .prepare = [&] {
                                    setCover(plane, light, inPlane * casters.diagonal(),
                                             how.ignoreTransparency ? 1 : 0);
                                }});
    }
    map.finish();
}

void PlaneStep::drawMirror(FrameContext const& context, std::size_t number)
{
    PlaneReflection const& how = context.list.reflections[number];
    Vec3 const eye = context.viewing.target + context.viewing.back * context.viewing.distance;
    Viewing const view = PlaneMirror::seenFrom(context.viewing, how.plane, eye);
    FrameCounts unused;
    FrameContext const inMirror{context.target,         context.list, context.scene,      view, false,
                                context.instanceBuffer, unused,       context.frameBlock, false};
    mirrored_.choose(inMirror);
    calls_.clear();
    auto push = [&](std::uint32_t i, bool fine, bool cut) {
        Record const& record = context.list.records[i];
        bool const kind = (how.kinds >> unsigned(record.pipeline.primitive) & 1) != 0;
        if (record.role.reflection == number + 1 && kind)
            calls_.push(record.cutBy(cut), context.instanceBuffer, fine ? record.fine : record.range, i);
    };
    for (RecordRun const& run : mirrored_.opaque())
        for (std::uint32_t i = run.first; i < run.first + run.count; ++i) push(i, run.fine, run.cut);
    for (auto const& entry : mirrored_.transparent()) push(entry.record, entry.fine, entry.cut);
    if (calls_.empty()) return mirrors_[number].reset();
    if (!mirrors_[number]) mirrors_[number] = std::make_unique<PlaneMirror>();
    PlaneMirror& mirror = *mirrors_[number];
    mirror.begin(how, context.target.width(), context.target.height());
    setSceneState();
    lights_.draw(inMirror);
    OtherView const seenInMirror(context, buffers_, view, context.target.width(), context.target.height());
    calls_.submit(inMirror, {.mirrored = true});
    mirror.finish(view, context.list.bounds.diagonal());
}

void PlaneStep::draw(FrameContext const& context) const
{
    bool painted = false;
    for (auto const& mirror : mirrors_)
        if (mirror) mirror->paint(context.viewing, context.list.bounds), painted = true;
    for (auto const& shadow : shadows_)
        if (shadow) shadow->paint(context.viewing), painted = true;
    if (painted) setSceneState();
}

} // namespace HPS::render
