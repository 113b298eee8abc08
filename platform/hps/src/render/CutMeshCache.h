#pragma once
#include "CutMesh.h"
#include "MeshCache.h"
#include <map>

namespace HPS::render
{

/// The faces of segments, made ready for planes when one first meets them. Follows the mesh cache.
class CutMeshCache
{
public:
    static CutMeshCache& instance();

    struct Meshes {
        std::uint64_t serial = 0; ///< differs from that of all others that ever were
        std::vector<CutMesh> meshes;
    };
    /// One mesh for each piece of geometry, or one of all that the segment holds; in its own coordinates.
    Meshes const& ofSegment(scene::SegmentRecord const& segment, Fineness const& fineness, bool perGeometry,
                            double tolerance);

    struct Member {
        scene::SlotIndex segment;
        Mat4 matrix; ///< to the coordinates of what the members make up
    };
    /// One mesh of all members.
    Meshes const& ofTree(std::span<Member const> members, Fineness const& fineness, double tolerance);

    /// Drops what nobody asked for since the last call.
    void trim();

private:
    using Key = std::vector<std::uint64_t>;
    struct Entry {
        Meshes meshes;
        bool used = true;
    };
    CutMeshCache() = default;
    /// Calls make() if there is nothing for the key.
    template <class Make> Meshes const& find(Key const& key, Make&& make);

    std::map<Key, Entry> entries_;
    std::uint64_t serials_ = 0;
};

} // namespace HPS::render
