#pragma once
#include "BoxTree.h"
#include "change_log.h"
#include "segment_record.h"
#include <memory>
#include <span>

namespace HPS::selection
{

/// What is found in a segment or below it, as bits.
enum Content : std::uint8_t {
    HasFaces = 1, ///< with their edges and vertices
    HasLines = 2,
    HasMarkers = 4,
    HasBoundless = 8,    ///< may be anywhere, whatever boxes say: texts, lines without end, subwindows
    DrawsOtherwise = 16, ///< says how wide lines and markers are drawn, or that they are drawn over the rest
};

/// For every segment what stands directly in it, with a hierarchy of boxes: its geometry, its children and
/// what it includes, each as it stands in the segment's own coordinates. So a part is indexed once, wherever
/// it is shown. Follows the change marks; what they do not reach stays.
class SegmentIndex
{
public:
    struct Entry {
        Box bounds; ///< of all but what is boundless
        std::uint8_t content = 0;
        bool known = false;
        bool sections = false;       ///< the segment's own geometry has cutting sections
        bool window = false;         ///< is a part of the window of its own
        bool drawsOtherwise = false; ///< the segment itself, or may by a style
        std::uint32_t bounded = 0;
        std::vector<scene::SlotIndex>
            parts;                     ///< geometry, children, includes; from `bounded` on the boundless
        std::unique_ptr<BoxTree> tree; ///< over the bounded ones; null for a few
    };

    /// A segment's entry, and those of all below it, brought up to date. Valid until the next `apply`.
    Entry const& of(scene::SegmentRecord const& segment);
    /// In the coordinates of the segment that the part stands in.
    Box boxOf(scene::SlotIndex part) const;
    std::uint8_t contentOf(scene::SlotIndex part) const;

    void apply(std::span<scene::ChangeMark const> marks);
    void clear() { entries_.clear(); }
    std::size_t bytes() const;

private:
    Entry& entry(scene::SlotIndex segment);
    void compute(scene::SegmentRecord const& segment, Entry& entry);
    void forget(scene::SegmentRecord const& segment);

    std::vector<std::unique_ptr<Entry>> entries_; ///< by the segments' slots; null until searched
};

} // namespace HPS::selection
