#include "SceneCompiler.h"
#include "geometry_records.h"
#include "wide.h"
#include <algorithm>

namespace HPS::render
{
namespace
{

using namespace scene;

constexpr Change withoutEffect = Change::Name | Change::Bounding;

bool matters(ChangeMark const& mark)
{
    return has(mark.changes, Change(~std::uint32_t(withoutEffect)));
}

/// The number, from 1, of a value in a list that holds each one once; 0 for none, or where the list is full.
template <class T> std::uint8_t number(std::vector<T>& list, std::optional<T> const& value)
{
    if (!value) return 0;
    auto const found = std::find(list.begin(), list.end(), *value);
    if (found != list.end()) return std::uint8_t(found - list.begin() + 1);
    if (list.size() == 255) return 0;
    list.push_back(*value);
    return std::uint8_t(list.size());
}

} // namespace

SceneCompiler::Result SceneCompiler::update(std::span<KeyIndex const> path, bool fromScratch, FaceStyle style)
{
    Result result;
    bool const otherStyle = scene_.faceStyle != style;
    scene_.faceStyle = style;
    bool const outlined = style == FaceStyle::HiddenLine || style == FaceStyle::None;
    fromScratch = fromScratch || outlined_ != outlined;
    outlined_ = outlined;
    result.changed = otherStyle;
    if (made_ && !fromScratch && !cursor_.pending() &&
        std::equal(path.begin(), path.end(), path_.begin(), path_.end()))
        return result;
    fromScratch = !cursor_.read(marks_) || !made_ || fromScratch ||
                  !std::equal(path.begin(), path.end(), path_.begin(), path_.end());
    path_.assign(path.begin(), path.end());
    MeshCache::instance().markReferences(marks_);
    if (!fromScratch && std::none_of(marks_.begin(), marks_.end(), matters)) return result;

    std::vector<SegmentRecord const*> segments;
    for (KeyIndex index : path)
        if (auto const* const segment = store().resolve<SegmentRecord>(index)) segments.push_back(segment);
    if (segments.empty()) {
        list_.clear();
        list_.finish();
        scene_.highlight = nullptr;
        result.changed = made_ || fromScratch;
        made_ = false;
        return result;
    }
    NetAttributes above = fold_.root();
    NetStatePointer window;
    for (std::size_t i = 0; i + 1 < segments.size(); ++i) {
        above = fold_.step(above, *segments[i]);
        if (i == 0) window = above.state;
    }
    NetStatePointer const view = fold_.state(above.state, *segments.back());

    MeshCache& meshes = MeshCache::instance();
    std::uint32_t const uploads = meshes.uploads();
    double const time = meshes.uploadMilliseconds();
    meshes.refresh();
    shown_ = 0;
    std::uint64_t const version = list_.version;
    if (definitions_ != store().definitionStamp) held_.clear();
    definitions_ = store().definitionStamp;
    if (fromScratch)
        makeList(above, *segments.back());
    else
        tree_.follow(above, marks_);
    if (startOver_ || sections_.stale()) makeList(above, *segments.back());
    list_.finish();
    for (auto& [id, subwindow] : subwindows_) subwindow.list.finish();
    // What stands above the view, and definitions in use, may matter to the picture as a whole.
    bool const otherScene =
        sceneryStale_ || std::any_of(marks_.begin(), marks_.end(), [&](ChangeMark const& mark) {
            return matters(mark) && (has(mark.changes, Change::Portfolio) ||
                                     std::any_of(path_.begin(), path_.end(),
                                                 [&](KeyIndex key) { return key.slot == mark.slot; }));
        });
    if (sceneryStale_) readAllScenery();
    sections_.finish(list_.bounds);
    scene_.sections = sections_.sections();
    bool const rehighlight =
        fromScratch || (scene_.highlight != nullptr && shown_ > 0) ||
        std::any_of(marks_.begin(), marks_.end(), [&](ChangeMark const& mark) {
            return has(mark.changes, Change::Highlight) && mark.slot == path_.front().slot;
        });
    if (rehighlight) makeHighlight();
    sweepHeld();
    result.changed = otherStyle || fromScratch || shown_ > 0 || list_.version != version || otherScene;
    // A camera above the view, an option of the window: what is marked otherwise may be about all of it.
    result.onlyHighlight =
        otherScene && !otherStyle && !fromScratch && shown_ == 0 && list_.version == version &&
        std::none_of(marks_.begin(), marks_.end(), [&](ChangeMark const& mark) {
            return matters(mark) && (mark.changes != Change::Highlight || mark.slot != path_.front().slot);
        });
    result.listMade = fromScratch;
    result.shownSegments = shown_;
    result.uploadedMeshes = meshes.uploads() - uploads;
    result.uploadMilliseconds = meshes.uploadMilliseconds() - time;
    readScene({window != nullptr ? *window : *view, *view, segments.front(), segments.back()});
    return result;
}

void SceneCompiler::makeList(NetAttributes const& above, SegmentRecord const& view)
{
    list_.clear();
    held_.clear();
    scenery_.clear();
    sceneryStale_ = true;
    subwindows_.clear();
    sections_.begin();
    scopes_.clear();
    startOver_ = false;
    making_ = true;
    tree_.make(above, view);
    TextureStore::instance().sweep();
    sections_.settle();
    making_ = false;
    made_ = true;
}

void SceneCompiler::show(OccurrenceId id, SegmentRecord const& segment, NetAttributes const& net)
{
    ++shown_;
    MeshCache::Content const& content = MeshCache::instance().content(segment);
    bool const scenery = !content.scenery.empty();
    sceneryStale_ = sceneryStale_ || scenery || scenery_.contains(id);
    if (scenery)
        scenery_.insert(id);
    else
        scenery_.erase(id);
    bool const isSubwindow = noteSubwindow(id, segment);
    DrawList* into = &list_;
    if (isSubwindow || !subwindows_.empty())
        if (Subwindow* const around = subwindowAround(id)) into = &around->list;
    SectionCompiler::Scope const& scope = enterScope(id, segment, net, isSubwindow);
    if (content.drawable()) {
        Held& held = heldFor(net.state);
        into->open(id, held.placing);
        SegmentDrawer(*into, list_, texts_, {.sectionSet = scope.own, .outlined = outlined_})
            .draw(segment, held.look, held.faces, wide(net.matrix));
        into->close();
        Look const& look = held.look;
        if (into == &list_ && content.faces && scope.own != 0 && (look.cut.faces || look.cut.edges))
            sections_.addBody(id, segment, look, held.cap,
                              MeshCache::instance().faces(segment, look.plainFaces, look.fineness).mesh.box(),
                              wide(net.matrix), scope);
    } else {
        into->remove(id);
    }
}

void SceneCompiler::hide(OccurrenceId id)
{
    list_.remove(id);
    sections_.leave(id);
    subwindows_.erase(id);
    for (auto& [top, subwindow] : subwindows_) subwindow.list.remove(id);
    sceneryStale_ = scenery_.erase(id) != 0 || sceneryStale_;
}

// Sections cut what stands in the same window as they do.
SectionCompiler::Scope const& SceneCompiler::enterScope(OccurrenceId id, SegmentRecord const& segment,
                                                        NetAttributes const& net, bool isSubwindow)
{
    if (id >= scopes_.size()) scopes_.resize(std::size_t(id) + 1);
    OccurrenceId const owner = tree_.parentOf(id);
    bool const alone = isSubwindow || owner == noOccurrence;
    SectionCompiler::Scope const above = alone ? SectionCompiler::Scope() : scopes_[owner];
    MeshCache::Content const& content = MeshCache::instance().content(segment);
    return scopes_[id] = sections_.enter(id, segment, content.scenery, net, above);
}

// True if the occurrence is a window of its own.
bool SceneCompiler::noteSubwindow(OccurrenceId id, SegmentRecord const& segment)
{
    auto const& data = valuesOf<SubwindowData>(segment.kit(KitKind::Subwindow));
    bool const is = data.subwindow.has_value() && tree_.parentOf(id) != noOccurrence;
    if (subwindows_.contains(id) != is && !making_ && tree_.hasChildren(id)) startOver_ = true;
    if (!is) {
        subwindows_.erase(id);
        return false;
    }
    Subwindow& subwindow = subwindows_[id];
    subwindow.id = id;
    subwindow.data = data;
    return true;
}

Subwindow* SceneCompiler::subwindowAround(OccurrenceId id)
{
    for (; id != noOccurrence; id = tree_.parentOf(id))
        if (auto const found = subwindows_.find(id); found != subwindows_.end()) return &found->second;
    return nullptr;
}

std::vector<Subwindow const*> SceneCompiler::subwindows() const
{
    std::vector<Subwindow const*> all;
    for (auto const& [id, subwindow] : subwindows_)
        if (subwindow.shown) all.push_back(&subwindow);
    std::stable_sort(all.begin(), all.end(),
                     [](Subwindow const* a, Subwindow const* b) { return a->order < b->order; });
    return all;
}

// What is not said of a subwindow is as in the view around it.
void SceneCompiler::readSubwindows()
{
    for (auto& [id, subwindow] : subwindows_) {
        auto const& segment = *store().at<SegmentRecord>(tree_.segmentOf(id));
        NetState const& state = *tree_.stateOf(id);
        Subwindow const* const around = subwindowAround(tree_.parentOf(id));
        subwindow.within = around != nullptr ? around->id : noOccurrence;
        subwindow.order = placingOf(state).order;
        subwindow.scene = scene_;
        subwindow.scene.highlight = nullptr;
        if (segment.kit(KitKind::Camera) != nullptr) {
            NetState own = state;
            own.kits[std::size_t(KitKind::Camera)] =
                *std::find_if(segment.kits.begin(), segment.kits.end(),
                              [](KitPointer const& kit) { return kit->kind == KitKind::Camera; });
            subwindow.scene.camera = readCamera({own, own});
        }
        subwindow.scene.sections.caps = nullptr; // those are the view's
        subwindow.scene.background = readBackground(state, &subwindow.data);
        if (subwindow.scene.background.kind == Background::Kind::Nothing)
            subwindow.scene.background.shown = false;
        subwindow.shown = state.get<VisibilityData>().shows(VisibilityKinds::Windows, true);
        if (std::get<HPS::Subwindow::Type>(*subwindow.data.subwindow) != HPS::Subwindow::Type::Lightweight)
            continue;
        subwindow.scene.faceStyle = FaceStyle::Smooth;
        subwindow.scene.shadows = {};
        subwindow.scene.effects = {};
    }
}

SceneCompiler::Held& SceneCompiler::heldFor(NetStatePointer const& state)
{
    auto const [found, isNew] = held_.try_emplace(state.get());
    Held& held = found->second;
    if (isNew) {
        Palette const palette = state->palette();
        held.state = state;
        held.placing = placingOf(*state);
        held.look = render::lookOf(
            {state->get<VisibilityData>(), state->get<MaterialMappingData>(), state->get<LineAttributeData>(),
             state->get<EdgeAttributeData>(), state->get<MarkerAttributeData>(),
             state->get<DrawingAttributeData>(), state->get<CullingData>(),
             state->get<CuttingSectionAttributeData>(), state->get<TransparencyData>(),
             state->get<VisualEffectsData>(), state->get<TextAttributeData>(),
             state->get<CurveAttributeData>(), state->get<NURBSSurfaceAttributeData>(),
             state->get<CylinderAttributeData>(), state->get<SphereAttributeData>(),
             state->get<ContourLineData>(), palette, state->portfolios, list_.strokes});
        held.look.manner.role.planeShadow = number(list_.planeShadows, held.look.planeShadow);
        held.look.manner.role.reflection = number(list_.reflections, held.look.reflection);
        if (held.look.facesShown) held.faces = FaceLooks(state);
        if (held.look.cut.faces) held.cap = capSide(*state);
    }
    return held;
}

// A camera that moves and colours that change leave states behind that nothing shows any more.
void SceneCompiler::sweepHeld()
{
    if (held_.size() + fold_.stateCount() < heldLimit_) return;
    fold_.trim(); // until then its steps hold states too
    std::erase_if(held_, [](auto const& entry) {
        Held const& held = entry.second;
        long const ownUses =
            held.look.facesShown ? 3 : 2; // the key's, the fold's and that of the looks of faces
        return held.state.use_count() <= ownUses;
    });
    fold_.trim();
    heldLimit_ = 2 * (held_.size() + fold_.stateCount()) + 4096;
}

void SceneCompiler::makeHighlight()
{
    highlight_.clear();
    auto const targets = highlightTargets(tree_, path_, highlightsOf(path_.front()));
    for (auto const& [id, target] : targets) {
        bool covered = false; // it is drawn with what stands above it
        for (OccurrenceId above = tree_.parentOf(id); above != noOccurrence && !covered;
             above = tree_.parentOf(above)) {
            auto const found = targets.find(above);
            covered = found != targets.end() && !found->second.whole.empty();
        }
        if (!covered) highlightBelow(id, targets);
    }
    highlight_.finish();
    scene_.highlight = highlight_.records.empty() ? nullptr : &highlight_;
}

void SceneCompiler::highlightBelow(OccurrenceId top, HighlightTargets const& targets)
{
    struct Step {
        OccurrenceId id;
        MatrixKit matrix;
        std::vector<std::uint32_t> numbers; ///< of what stands above
    };
    auto joined = [](std::vector<std::uint32_t> const& a, std::vector<std::uint32_t> const& b) {
        std::vector<std::uint32_t> all;
        std::set_union(a.begin(), a.end(), b.begin(), b.end(), std::back_inserter(all));
        return all;
    };
    std::vector<Step> open{{top, tree_.netOf(top).matrix, {}}};
    while (!open.empty()) {
        Step const step = std::move(open.back());
        open.pop_back();
        auto const target = targets.find(step.id);
        std::vector<std::uint32_t> numbers = step.numbers;
        if (target != targets.end()) {
            numbers = joined(numbers, target->second.whole);
            for (auto const& [geometry, own] : target->second.geometry)
                highlight(step.id, step.matrix, joined(numbers, own), geometry);
        }
        if (numbers.empty()) continue;
        highlight(step.id, step.matrix, numbers, 0);
        tree_.forEachChild(step.id, [&](OccurrenceId child) {
            auto const& matrix = store().at<SegmentRecord>(tree_.segmentOf(child))->matrix;
            open.push_back({child, matrix ? *matrix * step.matrix : step.matrix, numbers});
        });
    }
}

void SceneCompiler::highlight(OccurrenceId id, MatrixKit const& matrix,
                              std::span<std::uint32_t const> numbers, SlotIndex geometry)
{
    auto const& segment = *store().at<SegmentRecord>(tree_.segmentOf(id));
    MeshCache::Content const& content = MeshCache::instance().content(segment);
    if (!content.drawable()) return;
    Highlights const& all = highlightsOf(path_.front());
    Held& held = heldFor(highlighted(fold_, tree_.stateOf(id), all, numbers));
    highlight_.placing = held.placing;
    if (auto const& overlay = all[numbers.back()].options.overlay) highlight_.placing.overlay = *overlay;
    if (geometry != 0) ++highlight_.placing.order; // over the rest of its segment
    SegmentDrawer(highlight_, list_, texts_,
                  {.sectionSet = id < scopes_.size() ? scopes_[id].own : 0,
                   .only = geometry,
                   .outlined = outlined_,
                   .overFaces = true})
        .draw(segment, held.look, held.faces, wide(matrix));
}

void SceneCompiler::readAllScenery()
{
    sceneryStale_ = false;
    scene_.lights = {};
    for (OccurrenceId id : scenery_) {
        NetAttributes const net = tree_.netOf(id);
        auto const& segment = *store().at<SegmentRecord>(tree_.segmentOf(id));
        for (SlotIndex slot : MeshCache::instance().content(segment).scenery) readScenery(slot, net);
    }
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
    scene_.hiddenLines = readHiddenLines(sources);
    readSubwindows();
}

} // namespace HPS::render
