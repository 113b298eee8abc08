#pragma once
#include "CallList.h"
#include "MeshStore.h"
#include "SplitTriangles.h"
#include "VisibleRecords.h"
#include <optional>

namespace HPS::render
{

/// The triangles of all faces that are seen through, in an order of their own in every view. They are read
/// back from the device once for a draw list.
class SortedTriangles
{
public:
    /// Pushes the calls that draw them from back to front. Gives the buffer of indices that the calls count
    /// in.
    unsigned push(FrameContext const& context, bool split, CallList& calls);

private:
    /// Which record a triangle belongs to, and its corners there.
    struct Source {
        std::uint32_t record;
        std::uint32_t baseVertex;
        std::array<std::uint32_t, 3> corners;
    };
    void gather(DrawList const& list, bool split);
    void cut(std::vector<std::array<FaceVertex, 3>> const& vertices);

    std::uint64_t list_ = 0; ///< version of the draw list that was gathered
    bool split_ = false;
    std::vector<Source> sources_;
    std::vector<Corners> places_; ///< of the sources, in the world; not kept where they are split
    std::optional<SplitTriangles> tree_;
    Mesh pieces_; ///< of split triangles, three vertices each
    std::vector<std::uint32_t> order_, indices_;
    Buffer indexBuffer_;
};

} // namespace HPS::render
