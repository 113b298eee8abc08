#include "MeshCache.h"
#include "Stopwatch.h"
#include "geometry_records.h"
#include "store.h"

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
        Type const type = geometry->type;
        content.faces = content.faces || type == Type::ShellKey || type == Type::PolygonKey;
        content.chains = content.chains || type == Type::LineKey;
        content.markers = content.markers || type == Type::MarkerKey;
        if (type == Type::DistantLightKey || type == Type::SpotlightKey) content.scenery.push_back(slot);
    }
    return content;
}

} // namespace

MeshCache& MeshCache::instance()
{
    static MeshCache* const cache = new MeshCache; // as long-lived as the device, see there
    return *cache;
}

void MeshCache::refresh()
{
    if (!cursor_.pending()) return;
    if (!cursor_.read(marks_)) {
        entries_.clear();
        return;
    }
    for (ChangeMark const& mark : marks_) {
        if (has(mark.changes, Change::Geometry))
            if (auto const* const geometry = store().at<GeometryRecord>(mark.slot)) drop(geometry->owner);
        if (has(mark.changes, Change::Structure | Change::Removed)) drop(mark.slot);
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
        slot->content = contentOf(segment);
    }
    return *slot;
}

/// Calls add(data) for all geometry of a type in a segment, in the order of insertion.
template <class Record, class Add> void MeshCache::gather(SegmentRecord const& segment, Add const& add)
{
    for (SlotIndex slot : segment.geometry) {
        auto const* const geometry = store().at<Record>(slot);
        if (geometry == nullptr) continue;
        std::uint32_t const first = builder_.indexCount();
        add(geometry->data);
        if (std::uint32_t const count = builder_.indexCount() - first; count > 0)
            parts_.push_back({slot, first, count});
    }
}

template <class Gather>
MeshCache::Drawable& MeshCache::find(SegmentRecord const& segment, std::uint8_t kind, Gather gather)
{
    Entry& holder = entry(segment);
    for (auto const& [known, drawable] : holder.drawables)
        if (known == kind) return *drawable;
    Stopwatch stopwatch;
    builder_.clear();
    parts_.clear();
    auto drawable = std::make_unique<Drawable>();
    drawable->mesh = gather();
    drawable->parts = std::move(parts_);
    drawable->groups = builder_.groups();
    drawable->indexed = builder_.indexed();
    drawable->translucent = builder_.translucent();
    drawable->closed = (kind == Faces || kind == PlainFaces) && builder_.closed();
    if (!drawable->mesh.empty()) ++uploads_;
    uploadMilliseconds_ += stopwatch.milliseconds();
    return *holder.drawables.emplace_back(kind, std::move(drawable)).second;
}

MeshCache::Drawable const& MeshCache::faces(SegmentRecord const& segment, bool plain)
{
    return find(segment, plain ? PlainFaces : Faces, [&] {
        gatherFaces(segment, plain);
        return builder_.uploadFaces();
    });
}

void MeshCache::gatherFaces(SegmentRecord const& segment, bool plain)
{
    gather<ShellRecord>(segment, [&](ShellData const& shell) { builder_.addShellFaces(shell, plain); });
    gather<PolygonRecord>(segment, [&](PointChain const& chain) { builder_.addPolygonFace(chain); });
}

MeshCache::Drawable const& MeshCache::withParameters(SegmentRecord const& segment, bool plain)
{
    faces(segment, plain);
    Drawable& drawable = find(segment, plain ? PlainFaces : Faces, [] { return Mesh(); });
    if (drawable.parametersKnown) return drawable;
    builder_.clear(true);
    parts_.clear();
    gatherFaces(segment, plain);
    builder_.uploadParameters(drawable.mesh);
    drawable.parametersComplete = drawable.mesh.parameters() && builder_.parametersComplete();
    drawable.parametersKnown = true;
    return drawable;
}

MeshCache::Drawable const& MeshCache::edges(SegmentRecord const& segment, EdgeChoice const& choice)
{
    int const bits = (choice.all ? 1 : 0) + (choice.perimeter ? 2 : 0) + (choice.hard ? 4 : 0);
    return find(segment, std::uint8_t(FirstEdges + bits), [&] {
        gather<ShellRecord>(segment, [&](ShellData const& shell) { builder_.addShellEdges(shell, choice); });
        if (choice.all || choice.perimeter)
            gather<PolygonRecord>(segment, [&](PointChain const& chain) { builder_.addPolygonEdge(chain); });
        return builder_.uploadLines();
    });
}

MeshCache::Drawable const& MeshCache::lines(SegmentRecord const& segment)
{
    return find(segment, Lines, [&] {
        gather<LineRecord>(segment, [&](PointChain const& chain) { builder_.addLine(chain); });
        return builder_.uploadLines();
    });
}

MeshCache::Drawable const& MeshCache::markers(SegmentRecord const& segment)
{
    return find(segment, Markers, [&] {
        gather<MarkerRecord>(segment, [&](MarkerData const& marker) { builder_.addMarker(marker.point); });
        return builder_.uploadMarkers();
    });
}

MeshCache::Drawable const& MeshCache::vertices(SegmentRecord const& segment)
{
    return find(segment, Vertices, [&] {
        gather<ShellRecord>(segment, [&](ShellData const& shell) { builder_.addShellVertices(shell); });
        return builder_.uploadMarkers();
    });
}

} // namespace HPS::render
