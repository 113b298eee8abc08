#include "model_block.h"

#include "XmlSink.h"
#include "XmlSource.h"
#include "ZelXmlFormat.h"

#include <cstring>

#include <QFile>

namespace NarMetaInfra
{
namespace
{
/// To be raised whenever the layout of a record in the block changes.
constexpr std::uint64_t Version = 2;

struct Header {
    char mark[8] = {'Z', 'E', 'L', 'B', 'L', 'O', 'C', 'K'};
    std::uint64_t version = Version;
    std::uint64_t resultSize = 0;
    std::uint64_t textSize = 0;
    std::uint64_t blockSize = 0;
    std::uint64_t checksums[3] = {}; // of the report, the text and the block
};

// Eight bytes at a time: what it guards is as large as the model.
std::uint64_t checksumOf(std::string_view bytes)
{
    std::uint64_t sum = 0xcbf29ce484222325ULL;
    for (; bytes.size() >= 8; bytes.remove_prefix(8)) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes.data(), 8);
        sum = (sum ^ word) * 0x100000001b3ULL;
        sum ^= sum >> 29;
    }
    for (char const c : bytes) sum = (sum ^ static_cast<unsigned char>(c)) * 0x100000001b3ULL;
    return sum;
}

QByteArray resultText(ReadResult const& result)
{
    QByteArray text;
    XmlSink sink(&text);
    auto const element = sink.Open("result");
    sink.Attribute("outcome", static_cast<int>(result.outcome));
    sink.Attribute("error", result.error);
    sink.Flag("graphical", result.graphical);
    sink.Flag("knows_files", result.otherFiles.has_value());
    for (auto const& warning : result.warnings) sink.Text("warning", warning);
    for (auto const& file : result.otherFiles.value_or(std::vector<std::filesystem::path>()))
        sink.Text("file", QFile::decodeName(file.c_str()).toStdWString());
    for (auto const& stage : result.timings) {
        auto const child = sink.Open("stage");
        sink.Attribute("name", stage.name);
        sink.Attribute("seconds", stage.seconds.count());
        sink.Flag("kernel", stage.inKernel);
    }
    return text;
}

ReadResult resultOf(std::string_view text)
{
    ReadResult result;
    auto const bytes = QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size()));
    XmlSource source(bytes);
    source.Children(
        {{"result", [&] {
              result.outcome =
                  source.Choice("outcome", 0, static_cast<int>(IoOutcome::CannotWrite), IoOutcome::Damaged);
              result.error = source.Text("error");
              result.graphical = source.Flag("graphical");
              if (source.Flag("knows_files")) result.otherFiles.emplace();
              source.Children({{"warning", [&] { result.warnings.push_back(source.TextContent()); }},
                               {"file",
                                [&] {
                                    auto const name = QString::fromStdWString(source.TextContent());
                                    if (result.otherFiles)
                                        result.otherFiles->push_back(QFile::encodeName(name).toStdString());
                                }},
                               {"stage", [&] {
                                    using Seconds = std::chrono::duration<double>;
                                    result.timings.push_back(
                                        {source.Text("name"),
                                         Seconds(source.NumberOf<double>("seconds").value_or(0)),
                                         source.Flag("kernel")});
                                }}});
          }}});
    return result;
}
} // namespace

PackedModel packModel(ReadResult const& result, ZELProductStructure const& model)
{
    PackedModel packed;
    auto const report = resultText(result);
    if (result.outcome == IoOutcome::Done)
        packed.text = ZelXmlText(model, nullptr, &packed.block).value_or(std::string());
    Header header;
    header.resultSize = static_cast<std::uint64_t>(report.size());
    header.textSize = packed.text.size();
    header.blockSize = packed.block.size();
    header.checksums[0] = checksumOf({report.constData(), header.resultSize});
    header.checksums[1] = checksumOf(packed.text);
    header.checksums[2] = checksumOf(packed.block);
    packed.head.assign(reinterpret_cast<char const*>(&header), sizeof header);
    packed.head.append(report.constData(), header.resultSize);
    return packed;
}

ReadResult unpackModel(std::string_view piece, ReadRequest const& request, ZELProductStructure& model)
{
    auto const damaged = ReadResult::Failure(IoOutcome::Damaged, L"the stored model is damaged");
    Header header;
    if (piece.size() < sizeof header) return damaged;
    std::memcpy(&header, piece.data(), sizeof header);
    piece.remove_prefix(sizeof header);
    Header const ours;
    bool const fits = header.resultSize <= piece.size() &&
                      header.textSize <= piece.size() - header.resultSize &&
                      header.blockSize == piece.size() - header.resultSize - header.textSize;
    if (std::memcmp(header.mark, ours.mark, sizeof ours.mark) != 0 || header.version != ours.version || !fits)
        return damaged;
    auto const report = piece.substr(0, header.resultSize);
    auto const text = piece.substr(header.resultSize, header.textSize);
    auto const block = piece.substr(header.resultSize + header.textSize);
    if (checksumOf(report) != header.checksums[0] || checksumOf(text) != header.checksums[1] ||
        checksumOf(block) != header.checksums[2])
        return damaged;
    auto result = resultOf(report);
    if (result.outcome != IoOutcome::Done) return result;
    auto read = ReadZelXml(text, request, model, block);
    if (read.outcome != IoOutcome::Done) return read;
    result.materials = std::move(read.materials);
    return result;
}
} // namespace NarMetaInfra
