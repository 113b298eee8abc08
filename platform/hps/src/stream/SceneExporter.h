#pragma once
#include "Steps.h"
#include "chunks.h"
#include "portfolio_record.h"
#include <hps/Stream.h>

namespace HPS::scene
{

// Writes a segment with all that is reached from it as a stream file. The scene must not change meanwhile.
class SceneExporter final : public FileNumbers
{
public:
    SceneExporter(std::ostream& out, SegmentRecord const& top, Stream::ExportOptionsKit const& options);
    Steps write();

    FileNumber numberOf(KeyIndex index) const override;

private:
    FileNumber numberOf(SlotIndex slot) const { return slot < numbers_.size() ? numbers_[slot] : 0; }
    void collect(SegmentRecord const& top);
    void numberGeometry();
    void writeHead();
    void writeTree(SegmentRecord const& segment);
    void writeSegment(SegmentRecord const& segment);
    void writeLinks(SegmentRecord const& segment);
    void writeFilter(SlotIndex link);
    void writeDefinitions(PortfolioRecord const& portfolio);
    // Writes what has come together as chunks, once it is enough for one. True if it was.
    bool flush(ChunkType type, bool all = false);

    ChunkWriter chunks_;
    Writer out_;
    std::vector<SegmentRecord const*> segments_; // owners before what they own, the exported one first
    std::vector<PortfolioRecord const*> portfolios_;
    std::vector<FileNumber> numbers_; // of segments, portfolios and geometry, by slot
    std::uint64_t geometries_ = 0;
};

} // namespace HPS::scene
