#include "SceneSearch.h"
#include <deque>
#include <hps/SubwindowKit.h>

namespace HPS::selection
{

using namespace scene;
using render::Look;

namespace
{

/// What lines and marks are drawn wide counts up to these many pixels.
constexpr double widestLine = 16, widestMark = 64;

/// The segment's own sections as they stand in the world.
std::vector<CutSection> sectionsOf(SegmentRecord const& segment, Mat4 const& toWorld)
{
    std::vector<CutSection> sections;
    for (SlotIndex const slot : segment.geometry)
        if (auto const* const record = store().at<CuttingSectionRecord>(slot)) {
            CutSection section;
            for (Plane const& plane : record->data.planes)
                section.push_back(render::pushedForward({{plane.a, plane.b, plane.c}, plane.d}, toWorld));
            sections.push_back(std::move(section));
        }
    return sections;
}

} // namespace

KeyPath PathSteps::pathOf(std::uint32_t step) const
{
    KeyArray keys;
    for (; step != none; step = steps_[step].above) keys.emplace_back(store().indexOf(steps_[step].slot));
    return KeyPath(std::move(keys));
}

SceneSearch::SceneSearch(PickScene& scene, PickOptions const& options, Probe const& probe, PathSteps& steps)
    : scene_(scene),
      options_(options),
      steps_(steps),
      local_(probe),
      inReference_(probe),
      inWorld_(probe),
      wishes_{options.sorting == Selection::Sorting::Proximity, options.level == Selection::Level::Subentity},
      single_(options.relatedLimit == 0 && options.algorithm == Selection::Algorithm::Analytic &&
              (options.sorting == Selection::Sorting::ZSorting ||
               options.sorting == Selection::Sorting::Default)),
      lineReach_(options.proximity + widestLine / 2),
      markReach_(options.proximity + widestMark / 2)
{
}

template <class Enter, class Use> void SceneSearch::descend(SearchTop const& top,
                                                            std::vector<SearchTop>* windows,
                                                            Enter const& enter, Use const& use)
{
    struct Visit {
        SegmentRecord const* segment;
        NetAttributes above;
        std::uint32_t step;
        std::vector<CutSection> const* sections;
        double least; ///< rank of anything there
    };
    SegmentIndex& index = scene_.index;
    index.of(*top.segment);
    constexpr double lowest = std::numeric_limits<double>::lowest();
    std::deque<std::vector<CutSection>> kept; // sets of sections that visits refer to
    std::vector<Visit> open{{top.segment, top.above, top.step, &top.sections, lowest}};
    while (!open.empty()) {
        Visit const visit = std::move(open.back());
        open.pop_back();
        if (visit.least >= best_) continue;
        SegmentRecord const& segment = *visit.segment;
        Place place{segment,           scene_.fold.step(visit.above, segment),
                    index.of(segment), steps_.add(segment.slot, visit.step),
                    *visit.sections,   lineReach_,
                    markReach_};
        // Nothing is found otherwise for another camera; so one that moves leaves all states below as they
        // are.
        if (place.net.state->block(KitKind::Camera) != nullptr)
            place.net.state = scene_.fold.without(place.net.state, KitKind::Camera);
        Mat4 const toWorld = wide(place.net.matrix);
        std::vector<CutSection> const* below = visit.sections;
        if (place.entry.sections)
            if (PickLook const& look = scene_.looks.of(place.net.state); look.sectionsCut) {
                auto& own = kept.emplace_back(*visit.sections);
                auto const added = sectionsOf(segment, toWorld);
                own.insert(own.end(), added.begin(), added.end());
                place.sections = own;
                if (look.sectionsCutBelow) below = &own;
            }
        local_.enter(toWorld, place.sections);
        findReach(place);

        double least = lowest; // of the part that is visited
        auto goTo = [&](SegmentRecord const& next, NetAttributes const& net, std::uint32_t step) {
            if (!index.of(next).window)
                open.push_back({&next, net, step, below, least});
            else if (windows != nullptr)
                windows->push_back({&next, net, step, *below});
        };
        auto visitPart = [&](SlotIndex slot) {
            if (store().at<GeometryRecord>(slot) != nullptr) {
                use(slot, place);
            } else if (auto const* const include = store().at<IncludeRecord>(slot)) {
                if (auto const* const target = store().at<SegmentRecord>(include->target))
                    goTo(*target, scene_.fold.through(place.net, *include), steps_.add(slot, place.step));
            } else if (auto const* const child = store().at<SegmentRecord>(slot)) {
                goTo(*child, place.net, place.step);
            }
        };
        auto const& parts = place.entry.parts;
        auto visitBounded = [&](std::uint32_t i) {
            Box const box = index.boxOf(parts[i]);
            std::uint8_t const content = index.contentOf(parts[i]);
            least = leastRank(box, content, place);
            if (least < best_ && enter(box, content, place)) visitPart(parts[i]);
        };
        if (!place.entry.tree)
            for (std::uint32_t i = 0; i < place.entry.bounded; ++i) visitBounded(i);
        else
            // What is left open last is visited first.
            place.entry.tree->visit(
                0, [&](Box const& box, int) { return enter(box, place.entry.content, place); },
                [&](std::uint32_t i, int) { visitBounded(i); },
                [&](Box const& box) { return -local_.depth().at(box.centre()); });
        least = lowest;
        for (std::size_t i = place.entry.bounded; i < parts.size(); ++i) visitPart(parts[i]);
    }
}

void SceneSearch::run(SearchTop const& top, std::vector<SearchTop>& windows, Take const& take)
{
    auto enter = [&](Box const& box, std::uint8_t content, Place const& place) {
        auto const& planes = local_.planes(reachOf(content, place));
        PlaneMask mask = allOf(planes);
        return reaches(box, planes, mask);
    };
    auto use = [&](SlotIndex slot, Place const& place) {
        PickLook const& look = scene_.looks.of(place.net.state);
        if (!look.anything() || isTooSmall(place, look)) return;
        if (auto found = meet(slot, place, look)) {
            found->segment = place.step;
            found->geometry = slot;
            found->overlay = look.placing.overlay != Drawing::Overlay::None;
            if (single_) best_ = std::min(best_, found->first);
            take(std::move(*found));
        }
    };
    descend(top, &windows, enter, use);
}

std::optional<SceneSearch::NearestFace> SceneSearch::nearestFace(SearchTop const& top)
{
    std::optional<NearestFace> nearest;
    auto enter = [&](Box const& box, std::uint8_t content, Place const&) {
        if ((content & HasFaces) == 0 || !local_.ray()) return false;
        return (!nearest || leastOf(local_.depth(), box) < nearest->depth) && meets(*local_.ray(), box);
    };
    auto use = [&](SlotIndex slot, Place const& place) {
        auto const shown = render::shownBy(*store().at<GeometryRecord>(slot));
        if (shown.geometry == nullptr || !render::drawnAs(shown.geometry->type).faces) return;
        PickLook const& look = scene_.looks.of(place.net.state);
        if (!look.facesHide) return;
        LocalProbe const* within = &local_;
        if (shown.matrix != nullptr) {
            inReference_.enter(wide(*shown.matrix) * local_.toWorld(), place.sections);
            within = &inReference_;
        }
        Meeting const met = ShapeSearch(*within, {})
                                .faces(scene_.shapes.faces(*shown.geometry, look.pickable.fineness),
                                       {look.pickable.cullBack, {}});
        if (met.any && (!nearest || met.depth < nearest->depth)) nearest = {met.depth, place.step, slot};
    };
    descend(top, nullptr, enter, use);
    return nearest;
}

// Half of what is drawn, and the proximity.
double SceneSearch::reachOf(Look::Stroke const& stroke, double most) const
{
    PickFrame const& frame = local_.probe().frame();
    double size = stroke.size;
    if (stroke.inObject) size *= std::cbrt(std::abs(render::determinant3(local_.toWorld())));
    if ((stroke.flags & render::SizeInWorld) != 0)
        size /= frame.worldPerPixel(frame.depthAtTarget());
    else if ((stroke.flags & render::SizeInWindow) != 0)
        size *= frame.height();
    // A hair's breadth is drawn, but not found beside its place.
    return std::min(options_.proximity + (size > 1 ? size / 2 : 0), most);
}

void SceneSearch::findReach(Place& place)
{
    PickLook const& all = scene_.looks.of(place.net.state);
    Look const& look = all.pickable;
    place.overlay = all.placing.overlay != Drawing::Overlay::None;
    auto isOfScreen = [](Look::Stroke const& stroke) {
        return !stroke.inObject && (stroke.flags & (render::SizeInWorld | render::SizeInWindow)) == 0;
    };
    // Of what is not seen here sizes are not worked out, and those of the world look larger somewhere below.
    if (!look.anything() || !isOfScreen(look.line) || !isOfScreen(look.edge) || !isOfScreen(look.marker))
        return;
    place.lineReach = std::max(reachOf(look.line, lineReach_), reachOf(look.edge, lineReach_));
    place.markReach = std::max(reachOf(look.marker, markReach_), place.lineReach);
}

double SceneSearch::reachOf(std::uint8_t content, Place const& place) const
{
    bool const marks = (content & HasMarkers) != 0, vertices = (content & HasFaces) != 0;
    if ((content & DrawsOtherwise) != 0) return marks ? markReach_ : lineReach_;
    if (marks) return place.markReach;
    return vertices ? std::min(place.markReach, lineReach_) : place.lineReach;
}

// All that stands in a segment by itself is drawn together, or not at all.
bool SceneSearch::isTooSmall(Place const& place, PickLook const& look) const
{
    if (!options_.respectExtent || look.placing.smallest == 0) return false;
    Box box;
    for (std::uint32_t i = 0; i < place.entry.bounded; ++i)
        if (store().at<GeometryRecord>(place.entry.parts[i]) != nullptr)
            box.add(scene_.index.boxOf(place.entry.parts[i]));
    Box const world = render::transformed(box, local_.toWorld());
    PickFrame const& frame = local_.probe().frame();
    double const nearest = leastOf(frame.depth(), world);
    return world.diagonal() / frame.worldPerPixel(nearest) < look.placing.smallest;
}

std::optional<Found> SceneSearch::meet(SlotIndex slot, Place const& place, PickLook const& look)
{
    auto const shown = render::shownBy(*store().at<GeometryRecord>(slot));
    if (shown.geometry == nullptr) return std::nullopt;
    GeometryRecord const& geometry = *shown.geometry;
    LocalProbe const* within = &local_;
    if (shown.matrix != nullptr) {
        inReference_.enter(wide(*shown.matrix) * local_.toWorld(), place.sections);
        within = &inReference_;
    }
    ShapeSearch const search(*within, wishes_);
    Look const& pick = look.pickable;
    auto const as = render::drawnAs(geometry.type);
    PickShapes& shapes = scene_.shapes;
    std::optional<Found> found;
    SelectionParts parts;
    // What comes later hides parts of earlier kinds, unless all are wanted.
    auto take = [&](Kind kind, PickShape const& shape, Meeting met) {
        note(found, kind, met);
        if (wishes_.elements && met.any && shape.isNumbered()) {
            if (options_.granularity == Selection::Granularity::General) parts = {};
            addParts(parts, kind, shape, met);
        }
    };
    if (as.faces && pick.facesShown) {
        PickShape const& faces = shapes.faces(geometry, pick.fineness);
        auto const vector = options_.respectVector ? look.vectorCulling : std::nullopt;
        take(Kind::Face, faces, search.faces(faces, {pick.cullBack, vector}));
    }
    if (as.faces && pick.edges.any()) {
        PickShape const& edges = shapes.edges(geometry, pick.fineness, pick.edges);
        take(Kind::Line, edges, search.strokes(edges, reachOf(pick.edge, lineReach_)));
    }
    if (as.faces && pick.verticesShown) {
        PickShape const& vertices = shapes.vertices(geometry, pick.fineness);
        take(Kind::Mark, vertices, search.strokes(vertices, reachOf(pick.vertex, lineReach_)));
    }
    double const lineReach = reachOf(pick.line, lineReach_);
    if (pick.linesShown && geometry.type == Type::InfiniteLineKey) {
        auto const& line = static_cast<InfiniteLineRecord const&>(geometry).data;
        bool const ray = line.type == InfiniteLine::Type::Ray;
        note(found, Kind::Line, search.endlessLine(wide(line.first), wide(line.second), ray, lineReach));
    } else if (as.chains && pick.linesShown) {
        PickShape const& lines = shapes.lines(geometry, pick.fineness);
        take(Kind::Line, lines, search.strokes(lines, lineReach));
    }
    if (as.markers && pick.markersShown) {
        auto const& marker = static_cast<MarkerRecord const&>(geometry).data;
        note(found, Kind::Mark, search.point(wide(marker.point), reachOf(pick.marker, markReach_)));
    }
    if (as.text && pick.text.shown) {
        auto const& text = static_cast<TextRecord const&>(geometry).data;
        auto const outline = scene_.texts.of(geometry.slot, text, pick.text.attributes, within->toWorld(),
                                             local_.probe().frame());
        inWorld_.enter(render::identity, place.sections);
        if (outline) note(found, Kind::Text, ShapeSearch(inWorld_, wishes_).polygon(*outline));
    }
    if (found) found->parts = std::move(parts);
    return found;
}

// As if it stood nearer by as much as faces rise over the place asked about, give or take.
double SceneSearch::rankOf(Kind kind, double depth) const
{
    double const pixels = std::clamp(options_.proximity + local_.probe().halfSize(), 1.0, widestLine);
    return depth - int(kind) * pixels * local_.probe().worldPerPixel(depth);
}

// Ranks rise with the depth but for eyes so near that a few pixels are a steep angle.
double SceneSearch::leastRank(Box const& box, std::uint8_t content, Place const& place) const
{
    double const depth = leastOf(local_.depth(), box);
    double const farther = 2 * std::abs(depth) + local_.probe().frame().depthAtTarget();
    bool const isRising = rankOf(Kind::Mark, farther) > rankOf(Kind::Mark, depth);
    if (!single_ || place.overlay || (content & DrawsOtherwise) != 0 || !isRising)
        return std::numeric_limits<double>::lowest();
    return options_.sorting == Selection::Sorting::Default ? rankOf(Kind::Mark, depth) : depth;
}

void SceneSearch::note(std::optional<Found>& found, Kind kind, Meeting const& meeting) const
{
    if (!meeting.any) return;
    Found met{};
    met.hasArea = kind == Kind::Face || kind == Kind::Text;
    met.depth = meeting.depth;
    met.place = meeting.place;
    met.first = meeting.depth;
    using Selection::Sorting;
    switch (options_.sorting) {
    case Sorting::Off:
    case Sorting::ZSorting:
        break;
    case Sorting::Proximity:
        met.first = meeting.distance;
        met.second = meeting.depth;
        break;
    case Sorting::Default:
        met.first = rankOf(kind, meeting.depth);
        met.second = meeting.distance;
        break;
    }
    if (!found || std::tie(met.first, met.second) < std::tie(found->first, found->second)) {
        bool const anyArea = found && found->hasArea;
        found = std::move(met);
        found->hasArea = found->hasArea || anyArea;
    }
}

// The nearest first, up to the limit.
void SceneSearch::addParts(SelectionParts& parts, Kind kind, PickShape const& shape, Meeting& meeting) const
{
    std::size_t const most = options_.internalLimit + 1;
    std::sort(meeting.elements.begin(), meeting.elements.end());
    std::vector<bool> taken;
    std::size_t count = 0;
    for (auto const& [depth, element] : meeting.elements) {
        if (count == most) return;
        std::size_t const number = kind == Kind::Face ? shape.faceOf(element) : element;
        if (number >= taken.size()) taken.resize(number + 1);
        if (taken[number]) continue;
        taken[number] = true;
        ++count;
        if (kind == Kind::Face)
            parts.faces.push_back(number);
        else if (kind == Kind::Line)
            parts.edges.push_back({shape.cornerIndex(element, 0), shape.cornerIndex(element, 1)});
        else
            parts.vertices.push_back(shape.cornerIndex(element, 0));
    }
}

} // namespace HPS::selection
