#pragma once
#include "Steps.h"
#include "chunks.h"
#include "geometry_codec.h"
#include "portfolio_record.h"
#include <hps/Stream.h>
#include <unordered_map>

namespace HPS::scene
{

// Builds the contents of a stream file in segments and portfolios of its own, which no root leads to, and
// hands them over when all is there. What was built and not handed over goes with the importer. Whatever
// names the first segment or portfolio of the file names from the beginning the one that takes their
// contents.
class SceneImporter
{
public:
    SceneImporter(KeyIndex segment, KeyIndex portfolio);
    ~SceneImporter();
    SceneImporter(SceneImporter const&) = delete;
    SceneImporter& operator=(SceneImporter const&) = delete;

    Steps read(std::istream& in);
    // Throws, with nothing changed, if the segment is gone. A portfolio or other root that is gone, or never
    // was, is replaced by a new one.
    void attach(KeyIndex alternateRoot);

private:
    void readChunk(Chunk const& chunk);
    void readItems(ChunkType type, Bytes const& content);
    void readItem(ChunkType type, Reader& in);
    void readHead(Bytes const& content);
    void readBranch(Reader& in);
    void readDefinition(Reader& in);
    void readSegment(Reader& in);
    Pooled<MatrixKit> readMatrix(Reader& in);
    void readKits(Reader& in, SegmentRecord& segment);
    void readLinks(Reader& in, SegmentRecord& segment);
    void readExtras(Reader& in, SegmentRecord& segment);
    void readGeometryItem(Reader& in);
    void checkWhole() const;
    void checkIncludes() const;
    void link();
    void takeAttributes(SegmentRecord& from, SegmentRecord& to);
    void takeDefinitions(PortfolioRecord& to);
    std::string freeOutsideName(std::string const& name);
    SegmentRecord& segment(FileNumber number) const;
    SegmentRecord& top() const { return *segments_.front(); }

    struct Include {
        FileNumber owner, target;
        std::vector<AttributeLock::Type> filter;
    };
    KeyIndex target_, targetPortfolio_;
    SegmentRecord* outside_; // holds the segments that have no owner in the file
    ReadContext context_;
    std::vector<SegmentRecord*> segments_; // empty once they are handed over
    std::vector<PortfolioRecord*> portfolios_;
    std::vector<SlotIndex> geometry_;
    std::vector<FileNumber> owners_; // of segments, by number less one; 0: none
    std::vector<Include> includes_;
    std::vector<OpenReference> references_;
    std::unordered_map<std::string, std::size_t> outsideNames_;               // how often each was met
    std::uint64_t segmentCount_ = 0, portfolioCount_ = 0, geometryCount_ = 0; // as the file tells
    std::size_t segmentsRead_ = 0;
    std::uint64_t geometriesRead_ = 0; // with those of unknown kinds, which have no slot
    Bytes pending_;                    // the beginning of an item whose end is in a later chunk
    ChunkType pendingType_ = ChunkType::Head;
    std::uint64_t fileSize_ = 0;
    bool hasHead_ = false, ended_ = false;
};

} // namespace HPS::scene
