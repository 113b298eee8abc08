#include "SceneExporter.h"
#include "definition_kinds.h"
#include "geometry_codec.h"
#include "stored_kit.h"
#include "transfer.h"
#include <algorithm>

namespace HPS::scene
{
namespace
{

// Calls f with each portfolio whose images the definitions of this one use.
template <class F> void forEachImagePortfolio(PortfolioRecord const& portfolio, F&& f)
{
    for (auto const& [name, texture] : portfolio.textures) f(texture.image.Portfolio().Index());
    for (auto const& [name, cubeMap] : portfolio.cubeMaps)
        for (auto const& image : cubeMap.images) f(image.Portfolio().Index());
}

} // namespace

SceneExporter::SceneExporter(std::ostream& out, SegmentRecord const& top,
                             Stream::ExportOptionsKit const& options)
    : chunks_(out)
{
    bool compress = false;
    unsigned bits = 0;
    if (options.ShowColorCompression(compress, bits) && compress) out_.colorBits = bits;
    options.ShowNormalCompression(out_.packsDirections);
    out_.numbers = this;
    collect(top);
    numberGeometry();
}

FileNumber SceneExporter::numberOf(KeyIndex index) const
{
    return store().resolve(index) ? numberOf(index.slot) : 0;
}

bool SceneExporter::flush(ChunkType type, bool all)
{
    auto& bytes = out_.bytes();
    std::size_t at = 0;
    while (bytes.size() - at >= chunkSize || (all && at < bytes.size())) {
        auto const count = std::min(chunkSize, bytes.size() - at);
        chunks_.write(static_cast<std::uint32_t>(type), chunkVersion, ByteSpan(bytes).subspan(at, count));
        at += count;
    }
    bytes.erase(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(at));
    return at > 0;
}

// What is reached: by ownership, includes, styles, portfolios, references and the keys in attributes.
void SceneExporter::collect(SegmentRecord const& top)
{
    auto const& all = store();
    numbers_.assign(all.slotCount(), 0);
    constexpr FileNumber reached = ~FileNumber(0);
    std::vector<SegmentRecord const*> found;
    auto const add = [&](SegmentRecord const* segment) {
        if (!segment || numbers_[segment->slot] != 0) return;
        numbers_[segment->slot] = reached;
        found.push_back(segment);
    };
    auto const usePortfolio = [&](auto const& self, KeyIndex index) -> void {
        auto const* const portfolio = all.resolve<PortfolioRecord>(index);
        if (!portfolio || numbers_[portfolio->slot] != 0) return;
        portfolios_.push_back(portfolio);
        numbers_[portfolio->slot] = static_cast<FileNumber>(portfolios_.size());
        for (auto const& [name, source] : portfolio->styles) add(all.resolve<SegmentRecord>(source));
        forEachImagePortfolio(*portfolio, [&](KeyIndex other) { self(self, other); });
    };
    auto const addOwnerOf = [&](KeyIndex geometry) {
        if (auto const* const target = all.resolve<GeometryRecord>(geometry))
            add(all.at<SegmentRecord>(target->owner));
    };
    add(&top);
    for (std::size_t i = 0; i < found.size(); ++i) {
        auto const& segment = *found[i];
        for (auto const slot : segment.children) add(all.at<SegmentRecord>(slot));
        for (auto const slot : segment.includes)
            add(all.at<SegmentRecord>(all.at<IncludeRecord>(slot)->target));
        for (auto const slot : segment.geometry)
            if (auto const* const reference = all.at<ReferenceRecord>(slot))
                addOwnerOf(reference->data.target);
        if (auto const* const block = segment.kit(KitKind::Subwindow))
            if (auto const& compared = valuesOf<SubwindowData>(block).modelCompareMode) {
                add(all.resolve<SegmentRecord>(std::get<1>(*compared)));
                add(all.resolve<SegmentRecord>(std::get<2>(*compared)));
            }
        if (!segment.extras) continue;
        for (auto const slot : segment.extras->styles)
            add(all.resolve<SegmentRecord>(all.at<StyleRecord>(slot)->source));
        for (auto const index : segment.extras->portfolios) usePortfolio(usePortfolio, index);
    }
    auto const number = [&](SegmentRecord const& segment) {
        segments_.push_back(&segment);
        numbers_[segment.slot] = static_cast<FileNumber>(segments_.size());
    };
    number(top);
    for (auto const* const segment : found)
        if (segment != &top && numberOf(segment->owner) == 0) number(*segment);
    for (std::size_t i = 0; i < segments_.size(); ++i)
        for (auto const slot : segments_[i]->children)
            if (numbers_[slot] == reached) number(*all.at<SegmentRecord>(slot));
}

void SceneExporter::numberGeometry()
{
    for (auto const* const segment : segments_)
        for (auto const slot : segment->geometry) numbers_[slot] = static_cast<FileNumber>(++geometries_);
}

Steps SceneExporter::write()
{
    writeHead();
    for (auto const* const segment : segments_) {
        writeTree(*segment);
        if (flush(ChunkType::Tree)) co_yield 0;
    }
    flush(ChunkType::Tree, true);
    for (auto const* const portfolio : portfolios_) {
        writeDefinitions(*portfolio);
        co_yield 0;
    }
    flush(ChunkType::Definitions, true);
    for (auto const* const segment : segments_) {
        writeSegment(*segment);
        if (flush(ChunkType::Segments)) co_yield 0;
    }
    flush(ChunkType::Segments, true);
    std::uint64_t done = 0;
    for (auto const* const segment : segments_)
        for (auto const slot : segment->geometry) {
            auto const& geometry = *store().at<GeometryRecord>(slot);
            out_.sized([&] {
                out_.text(nameOfGeometry(geometry.type));
                out_.scalar(numberOf(segment->slot));
                writeGeometry(out_, geometry);
            });
            ++done;
            if (flush(ChunkType::Geometry))
                co_yield static_cast<float>(done) / static_cast<float>(geometries_);
        }
    flush(ChunkType::Geometry, true);
    out_.flag(true);
    flush(ChunkType::End, true);
}

void SceneExporter::writeHead()
{
    out_.scalar(static_cast<std::uint64_t>(segments_.size()));
    out_.scalar(static_cast<std::uint64_t>(portfolios_.size()));
    out_.scalar(geometries_);
    flush(ChunkType::Head, true);
}

void SceneExporter::writeTree(SegmentRecord const& segment)
{
    out_.sized([&] {
        out_.scalar(&segment == segments_.front() ? FileNumber(0) : numberOf(segment.owner));
        out_.text(segment.name);
    });
}

void SceneExporter::writeSegment(SegmentRecord const& segment)
{
    auto const writeMatrix = [&](Pooled<MatrixKit> const& matrix) {
        out_.flag(bool(matrix));
        if (matrix) transfer(out_, *matrix);
    };
    out_.sized([&] {
        writeMatrix(segment.matrix);
        out_.size(segment.kits.size());
        for (auto const& block : segment.kits) {
            out_.text(nameOf(block->kind));
            out_.sized([&] {
                withKit(block->kind, [&]<class Data>(std::type_identity<Data>) {
                    writeAspects(out_, valuesOf<Data>(block.get()));
                });
            });
        }
        writeUserData(out_, segment.userData.get());
        writeLinks(segment);
        out_.flag(segment.extras != nullptr);
        if (!segment.extras) return;
        auto const& extras = *segment.extras;
        std::vector<std::string> conditions;
        for (auto const condition : extras.conditions) conditions.push_back(store().conditionName(condition));
        std::sort(conditions.begin(), conditions.end());
        out_.size(conditions.size());
        for (auto const& condition : conditions) out_.text(condition);
        out_.size(extras.portfolios.size());
        for (auto const index : extras.portfolios) out_.scalar(numberOf(index));
        out_.text(extras.materialPalette);
        writeMatrix(extras.textureMatrix);
        transfer(out_, extras.priority);
    });
}

void SceneExporter::writeLinks(SegmentRecord const& segment)
{
    auto const& all = store();
    out_.size(segment.includes.size());
    for (auto const slot : segment.includes) {
        out_.scalar(numberOf(all.at<IncludeRecord>(slot)->target));
        writeFilter(slot);
    }
    std::span<SlotIndex const> styles;
    if (segment.extras) styles = segment.extras->styles;
    out_.size(styles.size());
    for (auto const slot : styles) {
        auto const& style = *all.at<StyleRecord>(slot);
        out_.text(style.name);
        out_.scalar(numberOf(style.source));
        out_.text(all.conditionName(style.condition));
        writeFilter(slot);
    }
}

void SceneExporter::writeFilter(SlotIndex link)
{
    static Store::Filter const none;
    auto const* const filter = store().filterOf(link);
    transferList(out_, filter ? *filter : none);
}

void SceneExporter::writeDefinitions(PortfolioRecord const& portfolio)
{
    forEachDefinitionKind([&](auto const& kind) {
        for (auto const& definition : portfolio.*kind.definitions) {
            out_.sized([&] {
                out_.text(kind.name);
                out_.scalar(numberOf(portfolio.slot));
                out_.text(definition.first);
                transfer(out_, definition.second);
            });
            flush(ChunkType::Definitions);
        }
    });
}

} // namespace HPS::scene
