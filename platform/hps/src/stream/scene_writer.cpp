#include "scene_writer.h"
#include "kit_values.h"
#include "stored_kit.h"
#include "user_data.h"
#include <array>
#include <charconv>
#include <cmath>
#include <ostream>

namespace HPS::scene
{
namespace
{

// Writes one part of a value behind a blank.
struct PartWriter {
    std::ostream& out;

    void operator()(bool value) const { out << (value ? " 1" : " 0"); }
    void operator()(UTF8 const& text) const
    {
        out << " \"";
        for (char const c : text.Str())
            if (c == '\n')
                out << "\\n";
            else if (c == '"' || c == '\\')
                out << '\\' << c;
            else
                out << c;
        out << '"';
    }
    template <class T>
    requires std::is_arithmetic_v<T>
    void operator()(T value) const
    {
        std::array<char, 32> digits{};
        auto const end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
        out << ' ';
        out.write(digits.data(), end - digits.data());
    }
};

std::span<float const, 16> elements(MatrixKit const& matrix)
{
    return std::span<float const, 16>(matrix.Data(), 16);
}

} // namespace

SceneWriter::SceneWriter(std::ostream& out, Stream::ExportOptionsKit const& options) : out_(out)
{
    bool compress = false;
    unsigned bits = 0;
    options.ShowColorCompression(compress, bits);
    if (compress && bits > 0 && bits < 24) colorSteps_ = static_cast<float>((1u << bits) - 1);
}

template <class T> void SceneWriter::put(T const& value)
{
    PartWriter part{out_};
    if constexpr (std::is_same_v<T, std::size_t>)
        part(value);
    else if constexpr (std::is_same_v<T, std::string>)
        part(UTF8(value));
    else
        visitParts(part, value);
}

template <class... T> void SceneWriter::line(char const* word, T const&... values)
{
    out_ << word;
    (put(values), ...);
    out_ << '\n';
}

template <class Data> void SceneWriter::writeAspects(Data const& data)
{
    forEachAspect<Data>([&](auto const& aspect) {
        auto const& value = aspect.get(data);
        if (!value) return;
        out_ << aspect.name;
        put(*value);
        out_ << '\n';
    });
}

RGBAColor SceneWriter::stored(RGBAColor const& color) const
{
    if (colorSteps_ == 0) return color;
    auto const round = [&](float channel) { return std::round(channel * colorSteps_) / colorSteps_; };
    return {round(color.red), round(color.green), round(color.blue), round(color.alpha)};
}

template <class T> void SceneWriter::writeElements(char const* word, ElementValues<T> const& all)
{
    if (all.Empty()) return;
    out_ << word;
    put(all.values.size());
    if (all.isSet.empty()) out_ << " *";
    for (bool const isSet : all.isSet) put(isSet);
    for (auto const& value : all.values)
        if constexpr (std::is_same_v<T, RGBAColor>)
            put(stored(value));
        else
            put(value);
    out_ << '\n';
}

// Numbers everything that is written. Owners come before what they own.
void SceneWriter::collect(SegmentRecord const& top)
{
    auto const& all = store();
    auto const add = [&](SegmentRecord const* segment) {
        if (!segment || !numbers_.try_emplace(segment->slot, segments_.size() + 1).second) return;
        segments_.push_back(segment);
    };
    auto const usePortfolio = [&](KeyIndex index) {
        auto const* const portfolio = all.resolve<PortfolioRecord>(index);
        if (!portfolio || !numbers_.try_emplace(portfolio->slot, portfolios_.size() + 1).second) return;
        portfolios_.push_back(portfolio);
        for (auto const& [name, source] : portfolio->styles) add(all.resolve<SegmentRecord>(source));
    };
    add(&top);
    for (std::size_t i = 0; i < segments_.size(); ++i) {
        auto const& segment = *segments_[i];
        for (auto const slot : segment.children) add(all.at<SegmentRecord>(slot));
        for (auto const slot : segment.includes)
            add(all.at<SegmentRecord>(all.at<IncludeRecord>(slot)->target));
        if (!segment.extras) continue;
        for (auto const slot : segment.extras->styles)
            add(all.resolve<SegmentRecord>(all.at<StyleRecord>(slot)->source));
        for (auto const index : segment.extras->portfolios) usePortfolio(index);
    }
}

void SceneWriter::write(SegmentRecord const& top)
{
    collect(top);
    line("scene", std::size_t(1));
    for (auto const* const segment : segments_) writeSegment(*segment);
    for (auto const* const portfolio : portfolios_) writePortfolio(*portfolio);
    line("end");
}

void SceneWriter::writeSegment(SegmentRecord const& segment)
{
    auto const owner = numbers_.find(segment.owner);
    line("segment", numbers_.at(segment.slot), owner == numbers_.end() ? std::size_t(0) : owner->second,
         segment.name);
    if (segment.matrix) {
        out_ << "matrix";
        for (auto const element : elements(*segment.matrix)) put(element);
        out_ << '\n';
    }
    for (auto const& block : segment.kits) {
        out_ << "kit " << nameOf(block->kind) << '\n';
        withKit(block->kind,
                [&]<class Data>(std::type_identity<Data>) { writeAspects(valuesOf<Data>(block.get())); });
    }
    if (segment.extras) writeRare(*segment.extras);
    writeUserData(segment.userData.get());
    for (auto const slot : segment.includes)
        line("include", numbers_.at(store().at<IncludeRecord>(slot)->target));
    for (auto const slot : segment.geometry) writeGeometry(*store().at<GeometryRecord>(slot));
}

void SceneWriter::writeRare(SegmentExtras const& extras)
{
    auto const& all = store();
    for (auto const condition : extras.conditions) line("condition", all.conditionName(condition));
    for (auto const slot : extras.styles) {
        auto const& style = *all.at<StyleRecord>(slot);
        auto const& condition = all.conditionName(style.condition);
        auto const* const source = all.resolve<SegmentRecord>(style.source);
        if (!style.name.empty())
            line("style", style.name, condition);
        else
            line("style-segment", source ? numbers_.at(source->slot) : std::size_t(0), condition);
    }
    for (auto const index : extras.portfolios)
        if (auto const* const portfolio = all.resolve<PortfolioRecord>(index))
            line("uses-portfolio", numbers_.at(portfolio->slot));
    if (!extras.materialPalette.empty()) line("palette", extras.materialPalette);
}

void SceneWriter::writeUserData(UserData const* data)
{
    constexpr char digits[] = "0123456789abcdef";
    if (!data) return;
    data->forEach([&](UserData::Entry const& entry) {
        out_ << "data";
        put(entry.index);
        out_ << ' ';
        for (auto const value : entry.bytes) out_ << digits[value >> 4] << digits[value & 15];
        out_ << '\n';
    });
}

void SceneWriter::writeGeometry(GeometryRecord const& geometry)
{
    auto const putAll = [&](auto const& values) {
        for (auto const& value : values) put(value);
    };
    visitGeometry(geometry, [&]<class R>(R const& record) {
        if constexpr (std::is_same_v<R, ShellRecord>) {
            writeShell(record.data);
        } else if constexpr (std::is_same_v<R, LineRecord> || std::is_same_v<R, PolygonRecord>) {
            out_ << (std::is_same_v<R, LineRecord> ? "line" : "polygon");
            put(record.data.points.size());
            putAll(record.data.points);
            out_ << '\n';
        } else if constexpr (std::is_same_v<R, MarkerRecord>) {
            line("marker", record.data.point);
        } else if constexpr (std::is_same_v<R, TextRecord>) {
            writeText(record.data);
        } else if constexpr (std::is_same_v<R, DistantLightRecord>) {
            line("distant-light", record.data.direction, record.data.cameraRelative);
            if (record.data.color) line("color", *record.data.color);
        } else {
            line(nameOfGeometry(R::family), record.data);
        }
    });
    if (geometry.hasPriority) line("priority", geometry.priority);
    writeUserData(geometry.userData.get());
}

void SceneWriter::writeShell(ShellData const& data)
{
    line("shell", data.points.size(), data.facelist.size());
    out_ << "points";
    for (auto const& point : data.points) put(point);
    out_ << "\nfacelist";
    for (auto const value : data.facelist) put(value);
    out_ << '\n';
    writeElements("normals", data.vertexNormals);
    if (!data.colors) return;
    writeElements("face-colors", data.colors->faces);
    writeElements("vertex-face-colors", data.colors->vertexFaces);
    writeElements("vertex-edge-colors", data.colors->vertexEdges);
    writeElements("vertex-colors", data.colors->vertexMarkers);
}

void SceneWriter::writeText(TextData const& data)
{
    line("text", data.position, data.text);
    writeAspects(data.attributes);
    if (data.color) line("color", *data.color);
    if (data.modellingMatrix) {
        out_ << "text-matrix";
        for (auto const element : elements(*data.modellingMatrix)) put(element);
        out_ << '\n';
    }
    if (data.leaderLines) line("leader-lines", *data.leaderLines);
    if (auto const& region = data.region)
        line("region", region->points, region->alignment, region->fitting, region->adjustDirection,
             region->relativeCoordinates, region->windowSpace);
}

void SceneWriter::writePortfolio(PortfolioRecord const& portfolio)
{
    line("portfolio", numbers_.at(portfolio.slot));
    for (auto const& [name, source] : portfolio.styles) {
        auto const* const segment = store().resolve<SegmentRecord>(source);
        line("named-style", name, segment ? numbers_.at(segment->slot) : std::size_t(0));
    }
    for (auto const& [name, pattern] : portfolio.linePatterns) {
        out_ << "line-pattern";
        put(name);
        put(pattern.parallels().size());
        for (auto const& parallel : pattern.parallels()) {
            put(parallel.offset);
            put(parallel.elements.size());
            for (auto const& element : parallel.elements) {
                put(element.kind);
                put(element.length);
            }
        }
        out_ << '\n';
        if (LinePattern::Join join; pattern.ShowJoin(join)) line("join", join);
    }
    for (auto const& [name, palette] : portfolio.palettes) {
        line("material-palette", name, palette->size());
        for (auto const& material : *palette) {
            line("material");
            writeAspects(material.data());
        }
    }
}

} // namespace HPS::scene
