#include "MeshCache.h"
#include "Stopwatch.h"
#include "geometry_records.h"
#include "glyph_drawing.h"
#include "of_context.h"
#include "store.h"
#include <algorithm>

namespace HPS::render
{
namespace
{

using namespace scene;

MeshCache::Content contentOf(SegmentRecord const& segment)
{
    MeshCache::Content content;
    for (SlotIndex slot : segment.geometry) {
        auto const* const geometry = store().at<GeometryRecord>(slot);
        if (geometry == nullptr) continue;
        content.references = content.references || geometry->type == Type::ReferenceKey;
        Shown const shown = shownBy(*geometry);
        if (shown.geometry == nullptr) continue;
        DrawnAs const as = drawnAs(shown.geometry->type);
        content.faces = content.faces || as.faces;
        content.chains = content.chains || as.chains;
        content.endless = content.endless || shown.geometry->type == Type::InfiniteLineKey;
        content.markers = content.markers || as.markers;
        content.curved = content.curved || as.curved;
        if (as.text) content.texts.push_back(slot);
        if (as.scenery) content.scenery.push_back(slot);
    }
    return content;
}

FlatMesh turned(FlatMesh mesh, float degrees)
{
    double const angle = double(degrees) * std::numbers::pi / 180;
    auto const c = float(std::cos(angle)), s = float(std::sin(angle));
    for (FlatMesh::Corner& corner : mesh.corners)
        corner = {c * corner.x - s * corner.y, s * corner.x + c * corner.y};
    return mesh;
}

} // namespace

MeshCache& MeshCache::instance()
{
    return ofContext<MeshCache>();
}

void MeshCache::refresh()
{
    if (!cursor_.pending()) return;
    if (!cursor_.read(marks_)) {
        entries_.clear();
        return;
    }
    markReferences(marks_);
    for (ChangeMark const& mark : marks_) {
        if (has(mark.changes, Change::Geometry))
            if (auto const* const geometry = store().at<GeometryRecord>(mark.slot))
                if (geometry->type != Type::CuttingSectionKey) drop(geometry->owner); // it makes no mesh
        if (has(mark.changes, Change::Structure | Change::Removed)) drop(mark.slot);
    }
}

void MeshCache::markReferences(std::vector<ChangeMark>& marks) const
{
    if (references_.empty()) return;
    for (std::size_t i = 0, count = marks.size(); i < count; ++i) {
        if (!has(marks[i].changes, Change::Geometry | Change::Removed)) continue;
        auto const found = references_.find(marks[i].slot);
        if (found == references_.end()) continue;
        for (SlotIndex reference : found->second) marks.push_back({reference, Change::Geometry});
    }
}

void MeshCache::noteReferences(SegmentRecord const& segment)
{
    for (SlotIndex slot : segment.geometry) {
        auto const* const geometry = store().at<GeometryRecord>(slot);
        if (geometry == nullptr || geometry->type != Type::ReferenceKey) continue;
        std::vector<SlotIndex>& known =
            references_[static_cast<ReferenceRecord const*>(geometry)->data.target.slot];
        if (std::find(known.begin(), known.end(), slot) == known.end()) known.push_back(slot);
    }
}

void MeshCache::drop(SlotIndex slot)
{
    if (slot < entries_.size()) entries_[slot].reset();
}

MeshCache::Entry& MeshCache::entry(SegmentRecord const& segment)
{
    if (segment.slot >= entries_.size()) entries_.resize(store().slotCount());
    auto& slot = entries_[segment.slot];
    std::uint32_t const generation = store().indexOf(segment).generation;
    if (slot == nullptr || slot->generation != generation) {
        slot = std::make_unique<Entry>();
        slot->generation = generation;
        static std::uint64_t versions = 0; // longer than any cache lives
        slot->version = ++versions;
        slot->content = contentOf(segment);
        if (slot->content.references) noteReferences(segment);
    }
    return *slot;
}

template <class Add> void MeshCache::gather(SegmentRecord const& segment, Add const& add)
{
    for (SlotIndex slot : segment.geometry) {
        auto const* const geometry = store().at<GeometryRecord>(slot);
        if (geometry == nullptr) continue;
        Shown const shown = shownBy(*geometry);
        if (shown.geometry == nullptr) continue;
        std::uint32_t const first = builder_.indexCount();
        add(shown);
        if (std::uint32_t const count = builder_.indexCount() - first; count > 0)
            parts_.push_back({slot, first, count});
    }
}

template <class Add>
void MeshCache::gatherFaces(SegmentRecord const& segment, Fineness const& fineness, Add const& add)
{
    gather(segment, [&](Shown const& shown) {
        if (ShellData const* const shell = facesOf(shown, fineness, shell_))
            add(*shell, shown.geometry->type == Type::MeshKey);
    });
}

template <class Add>
void MeshCache::gatherChains(SegmentRecord const& segment, Fineness const& fineness, Add const& add)
{
    gather(segment, [&](Shown const& shown) { forEachChain(shown, fineness, add); });
}

template <class Add> void MeshCache::gatherMarkers(SegmentRecord const& segment, Add const& add)
{
    gather(segment, [&](Shown const& shown) {
        if (shown.geometry->type != Type::MarkerKey) return;
        Point const& point = static_cast<MarkerRecord const*>(shown.geometry)->data.point;
        add(shown.matrix != nullptr ? shown.matrix->Transform(point) : point);
    });
}

template <class Gather>
MeshCache::Drawable& MeshCache::find(SegmentRecord const& segment, MeshKey key, Gather gather)
{
    Entry& holder = entry(segment);
    for (auto const& [known, drawable] : holder.drawables)
        if (known == key) return *drawable;
    Stopwatch stopwatch;
    builder_.clear();
    parts_.clear();
    chains_.reset();
    auto drawable = std::make_unique<Drawable>();
    drawable->mesh = gather();
    drawable->parts = std::move(parts_);
    drawable->groups = builder_.groups();
    drawable->indexed = builder_.indexed();
    drawable->translucent = builder_.translucent();
    drawable->closed = (key.kind == Kind::Faces || key.kind == Kind::PlainFaces) && builder_.closed();
    drawable->viewEdges = builder_.hasViewEdges();
    drawable->chains = std::move(chains_);
    if (!drawable->mesh.empty()) ++uploads_;
    uploadMilliseconds_ += stopwatch.milliseconds();
    return *holder.drawables.emplace_back(key, std::move(drawable)).second;
}

std::uint32_t MeshCache::numberOf(SegmentRecord const& segment, Fineness const& fineness)
{
    return content(segment).curved ? 1 + finenesses_.of(fineness) : 0;
}

Mesh MeshCache::uploadStrokes()
{
    Mesh mesh = builder_.uploadStrokes();
    chains_ = std::make_shared<StrokeChains>(std::move(builder_.strokes()));
    builder_.strokes() = {};
    return mesh;
}

MeshCache::Drawable const& MeshCache::faces(SegmentRecord const& segment, bool plain,
                                            Fineness const& fineness)
{
    Kind const kind = plain ? Kind::PlainFaces : Kind::Faces;
    return find(segment, {kind, numberOf(segment, fineness)}, [&] {
        gatherFaces(segment, fineness,
                    [&](ShellData const& shell, bool) { builder_.addShellFaces(shell, plain); });
        return builder_.uploadFaces();
    });
}

MeshCache::Drawable const& MeshCache::withParameters(SegmentRecord const& segment, bool plain,
                                                     Fineness const& fineness)
{
    faces(segment, plain, fineness);
    Kind const kind = plain ? Kind::PlainFaces : Kind::Faces;
    Drawable& drawable = find(segment, {kind, numberOf(segment, fineness)}, [] { return Mesh(); });
    if (drawable.parametersKnown) return drawable;
    builder_.clear(true);
    parts_.clear();
    gatherFaces(segment, fineness,
                [&](ShellData const& shell, bool) { builder_.addShellFaces(shell, plain); });
    builder_.uploadParameters(drawable.mesh);
    drawable.parametersComplete = drawable.mesh.parameters() && builder_.parametersComplete();
    drawable.parametersKnown = true;
    return drawable;
}

MeshCache::Triangles MeshCache::triangles(SegmentRecord const& segment, Fineness const& fineness)
{
    builder_.clear();
    parts_.clear();
    gatherFaces(segment, fineness,
                [&](ShellData const& shell, bool) { builder_.addShellFaces(shell, true); });
    return {builder_.vertices(), builder_.indices(), parts_};
}

MeshCache::Drawable const& MeshCache::edges(SegmentRecord const& segment, EdgeChoice const& choice,
                                            bool plain, Fineness const& fineness)
{
    MeshKey const key{Kind::Edges, numberOf(segment, fineness), choices_.of(choice), plain};
    return find(segment, key, [&] {
        gatherFaces(segment, fineness, [&](ShellData const& shell, bool cells) {
            builder_.addShellEdges(shell, choice, cells, plain);
        });
        return builder_.uploadLines();
    });
}

MeshCache::Drawable const& MeshCache::viewEdges(SegmentRecord const& segment, EdgeChoice const& choice,
                                                bool plain, Fineness const& fineness)
{
    MeshKey const key{Kind::ViewEdges, numberOf(segment, fineness), choices_.of(choice), plain};
    return find(segment, key, [&] {
        gatherFaces(segment, fineness, [&](ShellData const& shell, bool cells) {
            builder_.addShellEdges(shell, choice, cells, plain);
        });
        return builder_.uploadViewEdges();
    });
}

MeshCache::Drawable const& MeshCache::edgeStrokes(SegmentRecord const& segment, EdgeChoice const& choice,
                                                  Fineness const& fineness)
{
    MeshKey const key{Kind::EdgeStrokes, numberOf(segment, fineness), choices_.of(choice)};
    return find(segment, key, [&] {
        gatherFaces(segment, fineness, [&](ShellData const& shell, bool cells) {
            builder_.addEdgeStrokes(shell, choice, cells);
        });
        return uploadStrokes();
    });
}

MeshCache::Drawable const& MeshCache::lines(SegmentRecord const& segment, Fineness const& fineness)
{
    return find(segment, {Kind::Lines, numberOf(segment, fineness)}, [&] {
        gatherChains(segment, fineness, [&](std::span<Point const> chain) { builder_.addLine(chain); });
        return builder_.uploadLines();
    });
}

MeshCache::Drawable const& MeshCache::lineStrokes(SegmentRecord const& segment, Fineness const& fineness)
{
    return find(segment, {Kind::LineStrokes, numberOf(segment, fineness)}, [&] {
        gatherChains(segment, fineness, [&](std::span<Point const> chain) { builder_.strokes().add(chain); });
        return uploadStrokes();
    });
}

MeshCache::Drawable const& MeshCache::endlessStrokes(SegmentRecord const& segment)
{
    return find(segment, {Kind::EndlessStrokes}, [&] {
        gather(segment, [&](Shown const& shown) {
            if (shown.geometry->type != Type::InfiniteLineKey) return;
            InfiniteLineData line = static_cast<InfiniteLineRecord const*>(shown.geometry)->data;
            if (shown.matrix != nullptr) {
                line.first = shown.matrix->Transform(line.first);
                line.second = shown.matrix->Transform(line.second);
            }
            builder_.strokes().addInfinite(line.first, line.second, line.type == InfiniteLine::Type::Line);
        });
        return uploadStrokes();
    });
}

MeshCache::Drawable const& MeshCache::lineGlyphs(SegmentRecord const& segment, GlyphKit const& glyph,
                                                 ChainPlace where, Fineness const& fineness)
{
    MeshKey const key{Kind::LineGlyphs, numberOf(segment, fineness), glyphs_.of({glyph, 0}),
                      std::uint32_t(where)};
    return find(segment, key, [&] {
        FlatMesh const drawing = drawingOf(glyph);
        gatherChains(segment, fineness,
                     [&](std::span<Point const> chain) { builder_.addGlyphs(drawing, chain, where); });
        return builder_.uploadGlyphs();
    });
}

MeshCache::Drawable const& MeshCache::markers(SegmentRecord const& segment)
{
    return find(segment, {Kind::Markers}, [&] {
        gatherMarkers(segment, [&](Point const& point) { builder_.addMarker(point); });
        return builder_.uploadMarkers();
    });
}

MeshCache::Drawable const& MeshCache::glyphMarkers(SegmentRecord const& segment, GlyphKit const& glyph,
                                                   float rotation)
{
    return find(segment, {Kind::GlyphMarkers, 0, glyphs_.of({glyph, rotation})}, [&] {
        FlatMesh const drawing = turned(drawingOf(glyph), rotation);
        gatherMarkers(segment, [&](Point const& point) { builder_.addGlyph(drawing, point, point); });
        return builder_.uploadGlyphs();
    });
}

MeshCache::Drawable const& MeshCache::vertices(SegmentRecord const& segment, bool plain,
                                               Fineness const& fineness)
{
    return find(segment, {Kind::Vertices, numberOf(segment, fineness), plain}, [&] {
        gatherFaces(segment, fineness,
                    [&](ShellData const& shell, bool) { builder_.addShellVertices(shell, plain); });
        return builder_.uploadMarkers();
    });
}

MeshCache::Drawable const& MeshCache::glyphVertices(SegmentRecord const& segment, GlyphKit const& glyph,
                                                    float rotation, Fineness const& fineness)
{
    MeshKey const key{Kind::GlyphVertices, numberOf(segment, fineness), glyphs_.of({glyph, rotation})};
    return find(segment, key, [&] {
        FlatMesh const drawing = turned(drawingOf(glyph), rotation);
        gatherFaces(segment, fineness, [&](ShellData const& shell, bool) {
            for (Point const& point : shell.points) builder_.addGlyph(drawing, point, point);
        });
        return builder_.uploadGlyphs();
    });
}

MeshCache::Drawable const& MeshCache::contours(SegmentRecord const& segment, ContourLineData const& contours,
                                               std::uint32_t wrap, std::uint32_t number,
                                               Fineness const& fineness)
{
    MeshKey const key{Kind::Contours, numberOf(segment, fineness), contours_.of(contours), number};
    return find(segment, key, [&] {
        gatherFaces(segment, fineness,
                    [&](ShellData const& shell, bool) { builder_.addContours(shell, contours, wrap); });
        builder_.chooseContours(number);
        return builder_.uploadLines();
    });
}

} // namespace HPS::render
