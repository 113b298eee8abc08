#pragma once
#include "FrameContext.h"
#include <array>

namespace HPS::render
{

/// What of a draw list a frame shows. Groups are looked at, and single records only in those that lie across
/// the window's border or hold something too small. Memory is kept from frame to frame.
class VisibleRecords
{
public:
    struct Entry {
        double depth; ///< of the box's middle, larger towards the viewer
        std::uint32_t record;
        bool fine = false; ///< the record's fine range is drawn
        bool cut = false; ///< sections run through it
    };

    void choose(FrameContext const& context);

    /// What is to be drawn of an entry.
    static MeshRange const& rangeOf(DrawList const& list, Entry const& entry)
    {
        Record const& record = list.records[entry.record];
        return entry.fine ? record.fine : record.range;
    }

    /// By pipeline, and from front to back in each, so that what is hidden costs a depth test and no shading.
    std::vector<RecordRun> const& opaque() const { return opaque_; }
    /// What is drawn over the rest; transparent parts stand among the others.
    std::vector<RecordRun> const& overlay(Drawing::Overlay kind) const
    {
        return overlays_[std::size_t(kind)];
    }
    /// From back to front.
    std::vector<Entry> const& transparent() const { return transparent_; }

private:
    /// Runs of one group.
    struct Part {
        std::uint32_t pipeline; ///< rank
        std::uint32_t order;    ///< of the group in the list
        double depth;
        RecordRun const* runs;
        std::uint32_t count;
    };
    void choose(FrameContext const& context, RecordGroup const& group);
    void chooseSingly(FrameContext const& context, RecordGroup const& group, double smallest, bool cut);
    void distribute(DrawList const& list, FrameCounts& counts);
    std::vector<Part> parts_;
    std::vector<RecordRun> single_; ///< runs of groups of which a part is drawn
    std::vector<RecordRun> opaque_;
    std::array<std::vector<RecordRun>, 4> overlays_; ///< by Drawing::Overlay; the first one stays empty
    std::vector<Entry> transparent_;
};

} // namespace HPS::render
