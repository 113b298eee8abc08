#include "SceneCompiler.h"
#include "geometry_records.h"
#include "walk.h"

namespace HPS::render
{
namespace
{

using namespace scene;

Mat4 wide(MatrixKit const& matrix)
{
    Mat4 result;
    std::copy_n(matrix.Data(), 16, result.begin());
    return result;
}

constexpr Change withoutEffect = Change::Name | Change::Bounding;

bool differOnlyInCamera(std::vector<KitPointer> const& a, std::vector<KitPointer> const& b)
{
    auto next = [](auto& at, auto end) {
        while (at != end && (*at)->kind == KitKind::Camera) ++at;
    };
    auto i = a.begin();
    auto j = b.begin();
    for (next(i, a.end()), next(j, b.end()); i != a.end() && j != b.end() && *i == *j;
         ++i, ++j, next(i, a.end()), next(j, b.end())) {
    }
    return i == a.end() && j == b.end();
}

} // namespace

SceneCompiler::Result SceneCompiler::update(std::span<KeyIndex const> path, bool fromScratch)
{
    Result result;
    std::vector<SegmentRecord const*> segments;
    std::vector<Place> places;
    for (KeyIndex index : path)
        if (auto const* const segment = store().resolve<SegmentRecord>(index)) {
            segments.push_back(segment);
            places.push_back({segment->slot, segment->kits});
        }
    bool const anyPending = cursor_.pending();
    if (made_ && !fromScratch && !anyPending) return result;

    result.changed = true;
    bool const keep = stillHolds(places, fromScratch);
    places_ = std::move(places);
    if (segments.empty()) {
        list_.clear();
        list_.finish();
        made_ = true;
        return result;
    }
    NetAttributes above = fold_.root();
    NetStatePointer window;
    for (std::size_t i = 0; i + 1 < segments.size(); ++i) {
        above = fold_.step(above, *segments[i]);
        if (i == 0) window = above.state;
    }
    NetStatePointer const view = fold_.state(above.state, *segments.back());
    if (!keep) {
        MeshCache& meshes = MeshCache::instance();
        std::uint32_t const uploads = meshes.uploads();
        double const time = meshes.uploadMilliseconds();
        meshes.refresh();
        makeList(above, *segments.back());
        result.listMade = true;
        result.uploadedMeshes = meshes.uploads() - uploads;
        result.uploadMilliseconds = meshes.uploadMilliseconds() - time;
    }
    readScene({window != nullptr ? *window : *view, *view});
    return result;
}

// The list still holds if nothing was touched but cameras on the path itself.
bool SceneCompiler::stillHolds(std::vector<Place> const& places, bool fromScratch)
{
    bool const known = cursor_.read(marks_);
    if (!known || !made_ || fromScratch || places.size() != places_.size()) return false;
    for (ChangeMark const& mark : marks_) {
        if (!has(mark.changes, Change(~std::uint32_t(withoutEffect)))) continue;
        if (has(mark.changes, Change(~std::uint32_t(withoutEffect | Change::Attributes)))) return false;
        auto const place =
            std::find_if(places.begin(), places.end(), [&](Place const& p) { return p.slot == mark.slot; });
        if (place == places.end()) return false;
        Place const& before = places_[std::size_t(place - places.begin())];
        if (before.slot != place->slot || !differOnlyInCamera(before.kits, place->kits)) return false;
    }
    return true;
}

void SceneCompiler::makeList(NetAttributes const& above, SegmentRecord const& view)
{
    MeshCache& meshes = MeshCache::instance();
    list_.clear();
    scene_.lights = {};
    walk(fold_, above, view, [&](SegmentRecord const& segment, NetAttributes const& net) {
        if (segment.geometry.empty()) return true;
        MeshCache::Content const& content = meshes.content(segment);
        for (SlotIndex slot : content.scenery) readScenery(slot, net);
        if (content.faces || content.chains || content.markers)
            draw(segment, heldFor(net.state), wide(net.matrix));
        return true;
    });
    list_.finish();
    looks_.clear();
    TextureStore::instance().sweep();
    made_ = true;
}

SceneCompiler::Held& SceneCompiler::heldFor(NetStatePointer const& state)
{
    auto const [found, isNew] = looks_.try_emplace(state.get());
    Held& held = found->second;
    if (isNew) {
        Palette const palette = state->palette();
        held.state = state;
        held.look = render::lookOf({state->get<VisibilityData>(), state->get<MaterialMappingData>(),
                                    state->get<LineAttributeData>(), state->get<EdgeAttributeData>(),
                                    state->get<MarkerAttributeData>(), state->get<DrawingAttributeData>(),
                                    state->get<CullingData>(), palette.get()});
        if (held.look.facesShown) held.faces = FaceLooks(state);
    }
    return held;
}

void SceneCompiler::draw(SegmentRecord const& segment, Held& held, Mat4 const& matrix)
{
    Look const& look = held.look;
    MeshCache& meshes = MeshCache::instance();
    MeshCache::Content const& content = meshes.content(segment);
    if (content.faces && look.facesShown) addFaces(segment, held, matrix);
    if (content.faces && look.edges.any())
        add(meshes.edges(segment, look.edges), Primitive::Lines, look.edge, matrix);
    if (content.chains && look.linesShown) add(meshes.lines(segment), Primitive::Lines, look.line, matrix);
    if (content.markers && look.markersShown)
        add(meshes.markers(segment), Primitive::Markers, look.marker, matrix);
    if (content.faces && look.verticesShown)
        add(meshes.vertices(segment), Primitive::Markers, look.vertex, matrix);
}

void SceneCompiler::addFaces(SegmentRecord const& segment, Held& held, Mat4 const& matrix)
{
    MeshCache& meshes = MeshCache::instance();
    Look const& look = held.look;
    MeshCache::Drawable const* drawable = &meshes.faces(segment, look.plainFaces);
    if (held.faces.textured(*drawable)) drawable = &meshes.withParameters(segment, look.plainFaces);
    auto const parts = faceParts(held.faces, *drawable, list_.materials);
    bool const opaque =
        std::none_of(parts.begin(), parts.end(), [](FacePart const& part) { return part.transparent; });
    for (FacePart const& part : parts) {
        Pipeline pipeline;
        pipeline.transparent = part.transparent;
        pipeline.cullBack = look.cullBack || part.cullBack;
        pipeline.cullFront = part.cullFront;
        pipeline.closed = drawable->closed && opaque;
        pipeline.displacement = look.displacement;
        pipeline.surface = part.surface.kind;
        Instance instance{};
        std::copy_n(part.colour, 4, instance.colour);
        instance.size = look.face.size;
        instance.flags = look.face.flags;
        instance.material = packMaterial(part.surface.row, 0);
        list_.add(pipeline, part.range, drawable->mesh.box(), matrix, instance);
    }
}

void SceneCompiler::add(MeshCache::Drawable const& drawable, Primitive primitive, Look::Stroke const& stroke,
                        Mat4 const& matrix)
{
    if (drawable.mesh.empty() || stroke.colour[3] == 0) return;
    Pipeline pipeline;
    bool const thin = stroke.size <= 1 && (stroke.flags & SizeInWorld) == 0;
    pipeline.primitive = primitive == Primitive::Lines && thin ? Primitive::ThinLines : primitive;
    pipeline.transparent = stroke.transparent() || drawable.translucent;
    Instance instance{};
    std::copy_n(stroke.colour, 4, instance.colour);
    instance.size = stroke.size;
    instance.flags = stroke.flags;
    list_.add(pipeline, drawable.mesh.range(), drawable.mesh.box(), matrix, instance);
}

void SceneCompiler::readScenery(SlotIndex slot, NetAttributes const& net)
{
    if (auto const* const light = store().at<DistantLightRecord>(slot))
        readDistantLight(scene_.lights, light->data, net);
    else if (auto const* const spot = store().at<SpotlightRecord>(slot))
        readSpotlight(scene_.lights, spot->data, net);
}

void SceneCompiler::readScene(SceneSources const& sources)
{
    scene_.camera = readCamera(sources);
    scene_.background = readBackground(sources);
    scene_.transparency = readTransparency(sources);
    scene_.shadows = readShadows(sources);
    scene_.effects = readEffects(sources);
}

} // namespace HPS::render
