#include "SceneImporter.h"
#include "definition_kinds.h"
#include "shared_kits.h"
#include "structure.h"
#include "transfer.h"
#include "user_data.h"
#include <algorithm>

namespace HPS::scene
{
namespace
{

// What records and lists may take beyond the size of the file.
constexpr std::uint64_t alwaysAllowed = std::uint64_t(256) << 20;
constexpr std::uint64_t allowedPerByte = 1024;

// Others are passed over.
constexpr std::array knownChunks{ChunkType::Head,     ChunkType::Tree,     ChunkType::Definitions,
                                 ChunkType::Segments, ChunkType::Geometry, ChunkType::End};

// The kit of that name, or Count.
KitKind kitNamed(std::string_view name)
{
    for (unsigned kind = 0; kind < static_cast<unsigned>(KitKind::Count); ++kind)
        if (name == nameOf(static_cast<KitKind>(kind))) return static_cast<KitKind>(kind);
    return KitKind::Count;
}

} // namespace

SceneImporter::SceneImporter(KeyIndex segment, KeyIndex portfolio)
    : target_(segment), targetPortfolio_(portfolio), outside_(&createHiddenRoot())
{
}

SceneImporter::~SceneImporter()
{
    if (!segments_.empty()) remove(top());
    if (outside_) remove(*outside_);
    for (auto* const portfolio : portfolios_) remove(*portfolio);
}

SegmentRecord& SceneImporter::segment(FileNumber number) const
{
    if (number == 0 || number > segments_.size()) Reader::fail("it names a segment that is not there");
    return *segments_[number - 1];
}

Steps SceneImporter::read(std::istream& in)
{
    ChunkReader chunks(in);
    fileSize_ = chunks.fileSize();
    context_.allowance = Allowance(alwaysAllowed + fileSize_ * allowedPerByte);
    Chunk chunk;
    while (chunks.read(chunk)) {
        readChunk(chunk);
        co_yield chunks.progress();
    }
    if (!ended_) throw IOException("is cut off");
    checkWhole();
    checkIncludes();
    link();
}

void SceneImporter::readChunk(Chunk const& chunk)
{
    if (ended_) Reader::fail("something stands behind its end");
    auto const type = static_cast<ChunkType>(chunk.type);
    if (std::find(knownChunks.begin(), knownChunks.end(), type) == knownChunks.end()) return;
    if (chunk.version != chunkVersion) throw IOException("was written by a newer version of this program");
    if (type == ChunkType::Head)
        readHead(chunk.content);
    else if (!hasHead_)
        Reader::fail("its head is missing");
    else if (type == ChunkType::End)
        ended_ = true;
    else
        readItems(type, chunk.content);
}

void SceneImporter::readHead(Bytes const& content)
{
    if (hasHead_) Reader::fail("it has two heads");
    hasHead_ = true;
    Reader in(content, context_);
    segmentCount_ = in.scalar<std::uint64_t>();
    portfolioCount_ = in.scalar<std::uint64_t>();
    geometryCount_ = in.scalar<std::uint64_t>();
    constexpr std::uint64_t most = std::numeric_limits<FileNumber>::max() - 1;
    if (segmentCount_ == 0 || std::max({segmentCount_, portfolioCount_, geometryCount_}) > most)
        Reader::fail("its head makes no sense");
    // Nothing else in the file stands for a portfolio without definitions.
    if (portfolioCount_ > fileSize_) throw IOException("holds far more than a file of its size may");
    context_.allowance.take(static_cast<std::size_t>(portfolioCount_), sizeof(PortfolioRecord));
    for (std::uint64_t i = 0; i < portfolioCount_; ++i) {
        auto& portfolio = store().create<PortfolioRecord>(HPS::Type::PortfolioKey);
        portfolios_.push_back(&portfolio);
        context_.portfolios.push_back(store().indexOf(portfolio));
    }
    if (portfolioCount_ > 0 && store().resolve<PortfolioRecord>(targetPortfolio_))
        context_.portfolios.front() = targetPortfolio_;
}

void SceneImporter::readItems(ChunkType type, Bytes const& content)
{
    if (!pending_.empty() && pendingType_ != type) Reader::fail("an item breaks off");
    pendingType_ = type;
    pending_.insert(pending_.end(), content.begin(), content.end());
    std::size_t done = 0;
    std::uint32_t size = 0;
    while (pending_.size() - done >= sizeof size) {
        std::memcpy(&size, &pending_[done], sizeof size);
        if (pending_.size() - done - sizeof size < size) break;
        Reader item(ByteSpan(pending_).subspan(done + sizeof size, size), context_);
        done += sizeof size + size;
        readItem(type, item);
    }
    pending_.erase(pending_.begin(), pending_.begin() + static_cast<std::ptrdiff_t>(done));
}

void SceneImporter::readItem(ChunkType type, Reader& in)
{
    switch (type) {
    case ChunkType::Tree:
        return readBranch(in);
    case ChunkType::Definitions:
        return readDefinition(in);
    case ChunkType::Segments:
        return readSegment(in);
    case ChunkType::Geometry:
        return readGeometryItem(in);
    case ChunkType::Head:
    case ChunkType::End:
        return;
    }
}

std::string SceneImporter::freeOutsideName(std::string const& name)
{
    if (name.empty()) return name;
    auto& met = ++outsideNames_[name];
    auto free = name;
    while (findChild(*outside_, free)) free = name + " (" + std::to_string(++met) + ')';
    return free;
}

void SceneImporter::readBranch(Reader& in)
{
    auto const ownerNumber = in.scalar<FileNumber>();
    std::string const name(in.text());
    context_.allowance.take(1, sizeof(SegmentRecord) + sizeof(Include));
    if (segments_.empty()) {
        if (ownerNumber != 0) Reader::fail("its first segment has an owner");
        segments_.push_back(&createHiddenRoot());
        context_.segments.push_back(target_);
        owners_.push_back(0);
        return;
    }
    if (ownerNumber != 0 && findChild(segment(ownerNumber), name)) Reader::fail("two segments of one name");
    auto& made = ownerNumber == 0 ? createSegment(outside_, freeOutsideName(name))
                                  : createSegment(&segment(ownerNumber), name);
    segments_.push_back(&made);
    context_.segments.push_back(store().indexOf(made));
    owners_.push_back(ownerNumber);
}

void SceneImporter::readDefinition(Reader& in)
{
    auto const kindName = in.text();
    auto const number = in.scalar<FileNumber>();
    std::string const name(in.text());
    if (number == 0 || number > portfolios_.size() || name.empty())
        Reader::fail("a definition without a portfolio or a name");
    auto& portfolio = *portfolios_[number - 1];
    forEachDefinitionKind([&]<class Value>(DefinitionKind<Value> const& kind) {
        if (kind.name != kindName) return;
        context_.allowance.take(1, sizeof(Value) + sizeof(std::string));
        auto& value = (portfolio.*kind.definitions)[name];
        transfer(in, value);
        if constexpr (isA<Value, std::shared_ptr>)
            if (!value) Reader::fail("a definition of nothing");
    });
}

Pooled<MatrixKit> SceneImporter::readMatrix(Reader& in)
{
    Pooled<MatrixKit> read;
    if (!in.flag()) return read;
    MatrixKit matrix;
    transfer(in, matrix);
    read = matrix;
    return read;
}

void SceneImporter::readSegment(Reader& in)
{
    if (segmentsRead_ >= segments_.size()) Reader::fail("more segments than its tree has");
    auto& made = *segments_[segmentsRead_++];
    made.matrix = readMatrix(in);
    readKits(in, made);
    made.userData = readUserData(in);
    readLinks(in, made);
    if (in.flag()) readExtras(in, made);
    noteChange(made, Change::Attributes | Change::Conditions | Change::Styles | Change::Matrix);
}

void SceneImporter::readKits(Reader& in, SegmentRecord& segment)
{
    for (auto count = in.count(5); count > 0; --count) {
        auto const kind = kitNamed(in.text());
        auto part = in.sized();
        if (kind == KitKind::Count) continue;
        withKit(kind, [&]<class Data>(std::type_identity<Data>) {
            context_.allowance.take(1, sizeof(KitBlockOf<Data>));
            Data data;
            readAspects(part, data);
            if (!isFinite(data)) Reader::fail("an attribute that is no number");
            segment.setKit(kind, sharedKit<Data>(std::move(data)));
        });
        if (kind == KitKind::Bounding) {
            segment.boundsKnown = false;
            invalidateBoundsAbove(segment);
        }
    }
}

void SceneImporter::readLinks(Reader& in, SegmentRecord& segment)
{
    auto& all = store();
    auto const readFilter = [&] {
        Store::Filter filter;
        transfer(in, filter);
        std::sort(filter.begin(), filter.end());
        filter.erase(std::unique(filter.begin(), filter.end()), filter.end());
        return filter;
    };
    auto const includes = in.count(sizeof(FileNumber) + 1);
    context_.allowance.take(includes, sizeof(Include) + sizeof(IncludeRecord));
    for (std::size_t i = 0; i < includes; ++i) {
        auto const target = in.scalar<FileNumber>();
        includes_.push_back({static_cast<FileNumber>(segmentsRead_), target, readFilter()});
    }
    auto const styles = in.count(sizeof(FileNumber) + 3);
    context_.allowance.take(styles, sizeof(StyleRecord));
    for (std::size_t i = 0; i < styles; ++i) {
        auto& style = all.create<StyleRecord>(HPS::Type::StyleKey);
        style.owner = segment.slot;
        segment.rare().styles.push_back(style.slot);
        style.name = in.text();
        style.source = in.segment();
        style.condition = all.conditionId(std::string(in.text()));
        if (auto filter = readFilter(); !filter.empty()) all.filters[style.slot] = std::move(filter);
    }
}

void SceneImporter::readExtras(Reader& in, SegmentRecord& segment)
{
    auto& extras = segment.rare();
    for (auto count = in.count(); count > 0; --count)
        extras.conditions.push_back(store().conditionId(std::string(in.text())));
    std::sort(extras.conditions.begin(), extras.conditions.end());
    extras.conditions.erase(std::unique(extras.conditions.begin(), extras.conditions.end()),
                            extras.conditions.end());
    for (auto count = in.count(sizeof(FileNumber)); count > 0; --count)
        if (auto const portfolio = in.portfolio(); portfolio.slot != 0)
            extras.portfolios.push_back(portfolio);
    extras.materialPalette = in.text();
    extras.textureMatrix = readMatrix(in);
    transfer(in, extras.priority);
}

void SceneImporter::readGeometryItem(Reader& in)
{
    auto const kind = in.text();
    auto& owner = segment(in.scalar<FileNumber>());
    if (++geometriesRead_ > geometryCount_) Reader::fail("more geometry than its head tells of");
    auto const* const made = readGeometry(in, kind, owner, references_);
    geometry_.push_back(made ? made->slot : 0);
}

} // namespace HPS::scene
