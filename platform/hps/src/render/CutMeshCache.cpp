#include "CutMeshCache.h"
#include "store.h"
#include <bit>
#include <utility>

namespace HPS::render
{
namespace
{

/// Gathers triangles of the mesh cache into one mesh.
struct Gathering {
    std::vector<CutMesh::Position> points;
    std::vector<std::uint32_t> corners;

    void add(MeshCache::Triangles const& from, std::size_t first, std::size_t count, Mat4 const& matrix)
    {
        auto const base = std::uint32_t(points.size());
        for (FaceVertex const& vertex : from.vertices) {
            auto const& p = vertex.position;
            Vec3 const at = transformPoint({p[0], p[1], p[2]}, matrix);
            points.push_back({float(at.x), float(at.y), float(at.z)});
        }
        for (std::size_t i = first; i < first + count; ++i) corners.push_back(base + from.indices[i]);
    }
};

/// Two showings of one tree differ by rounding alone.
std::uint64_t rounded(double value)
{
    return std::bit_cast<std::uint32_t>(float(std::round(value * 1e4)) + 0.0f);
}

} // namespace

CutMeshCache& CutMeshCache::instance()
{
    static CutMeshCache cache;
    return cache;
}

template <class Make> CutMeshCache::Meshes const& CutMeshCache::find(Key const& key, Make&& make)
{
    auto const [found, isNew] = entries_.try_emplace(key);
    Entry& entry = found->second;
    entry.used = true;
    if (isNew) {
        entry.meshes.serial = ++serials_;
        entry.meshes.meshes = make();
    }
    return entry.meshes;
}

CutMeshCache::Meshes const& CutMeshCache::ofSegment(scene::SegmentRecord const& segment,
                                                    Fineness const& fineness, bool perGeometry,
                                                    double tolerance)
{
    MeshCache& meshes = MeshCache::instance();
    Key const key{meshes.version(segment), meshes.numberOf(segment, fineness), perGeometry,
                  std::bit_cast<std::uint64_t>(tolerance)};
    return find(key, [&] {
        MeshCache::Triangles const triangles = meshes.triangles(segment, fineness);
        std::vector<CutMesh> result;
        auto add = [&](std::size_t first, std::size_t count) {
            Gathering gathering;
            gathering.add(triangles, first, count, identity);
            result.emplace_back(std::move(gathering.points), std::move(gathering.corners), tolerance);
        };
        if (perGeometry)
            for (MeshCache::Part const& part : triangles.parts) add(part.firstIndex, part.indexCount);
        else
            add(0, triangles.indices.size());
        return result;
    });
}

CutMeshCache::Meshes const& CutMeshCache::ofTree(std::span<Member const> members, Fineness const& fineness,
                                                 double tolerance)
{
    MeshCache& meshes = MeshCache::instance();
    Key key{std::bit_cast<std::uint64_t>(tolerance)};
    for (Member const& member : members) {
        auto const* const segment = scene::store().at<scene::SegmentRecord>(member.segment);
        key.push_back(segment != nullptr ? meshes.version(*segment) : 0);
        key.push_back(segment != nullptr ? meshes.numberOf(*segment, fineness) : 0);
        for (double element : member.matrix) key.push_back(rounded(element));
    }
    return find(key, [&] {
        Gathering gathering;
        for (Member const& member : members) {
            auto const* const segment = scene::store().at<scene::SegmentRecord>(member.segment);
            if (segment == nullptr) continue;
            MeshCache::Triangles const triangles = meshes.triangles(*segment, fineness);
            gathering.add(triangles, 0, triangles.indices.size(), member.matrix);
        }
        std::vector<CutMesh> result;
        result.emplace_back(std::move(gathering.points), std::move(gathering.corners), tolerance);
        return result;
    });
}

void CutMeshCache::trim()
{
    for (auto i = entries_.begin(); i != entries_.end();)
        i = std::exchange(i->second.used, false) ? std::next(i) : entries_.erase(i);
}

} // namespace HPS::render
