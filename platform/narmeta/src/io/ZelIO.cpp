#include <narmeta/io/ZelIO.h>

#include "ModelCache.h"
#include "ReadProcess.h"
#include "ReaderRegistry.h"
#include "SourceFile.h"
#include "ZelXmlFormat.h"
#include "model_check.h"
#include "open_cascade_export.h"

#include <cassert>
#include <cwchar>

namespace NarMetaInfra
{

namespace
{

class Stopwatch
{
public:
    std::chrono::duration<double> Lap()
    {
        auto const now = std::chrono::steady_clock::now();
        auto const elapsed = now - start_;
        start_ = now;
        return elapsed;
    }

private:
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

bool HasVisualisation(ZELProductStructure const& model)
{
    if (model.GetSG() && model.GetSG()->HasData()) return true;
    for (auto const& reference : model.GetReferences())
        if (reference->GetSG() && reference->GetSG()->HasData()) return true;
    return false;
}

} // namespace

void ZelIO::Reset()
{
    graphical_ = false;
    forgetResult();
}

void ZelIO::forgetResult()
{
    outcome_ = IoOutcome::Done;
    error_.clear();
    warnings_.clear();
    timings_.clear();
}

bool ZelIO::fail(IoOutcome outcome, std::wstring cause)
{
    outcome_ = outcome;
    error_ = std::move(cause);
    return false;
}

bool ZelIO::Read(wchar_t const* path, ZELProductStructure* structure, Progress progress)
{
    assert(path && "ZelIO::Read: path is null");
    assert(structure && "ZelIO::Read: structure is null");
    forgetResult();
    Stopwatch stopwatch;
    auto const source = SourceFile::Open(path);
    if (!source.error.empty()) return fail(IoOutcome::CannotRead, source.error);
    if (source.size == 0) return fail(IoOutcome::Damaged, source.quoted + L" is empty");
    auto const* reader = ReaderRegistry::BuiltIn().Find(source.head, source.extension);
    timings_.push_back({L"Recognition", stopwatch.Lap()});
    if (!reader) return fail(IoOutcome::Damaged, source.quoted + L" is of no known kind");

    ZELProductStructure model;
    ReadRequest const request{source.path, options_, processors_, progress};
    auto result = readOrTake(*reader, request, model);
    auto const spent = stopwatch.Lap();
    if (result.timings.empty()) result.timings.push_back({L"Reading", spent, false});
    timings_.insert(timings_.end(), result.timings.begin(), result.timings.end());
    if (result.outcome != IoOutcome::Done) {
        warnings_ = std::move(result.warnings);
        return fail(result.outcome, source.quoted + L": " + result.error);
    }
    CheckModel(model, result.warnings);
    timings_.push_back({L"Checking", stopwatch.Lap()});
    warnings_ = std::move(result.warnings);
    if (model.GetRootInstancesCount() == 0 && !HasVisualisation(model))
        return fail(IoOutcome::NothingToShow, source.quoted + L" holds nothing that can be shown");

    graphical_ = result.graphical;
    structure->Swap(model);
    materials_ = std::move(result.materials);
    if (!publishesLater_) PublishMaterials();
    return true;
}

ReadResult ZelIO::readOrTake(ModelReader const& reader, ReadRequest const& request,
                             ZELProductStructure& model) const
{
    ModelCache const cache(ModelCache::userFolder(), cacheLimit_);
    ModelCache::Key key;
    bool const isKept = cacheLimit_ > 0 && !reader.IsQuick();
    if (isKept) {
        key = ModelCache::keyOf(request);
        if (auto kept = cache.load(key, request, model)) {
            kept->timings.clear();
            return std::move(*kept);
        }
    }
    if (isIsolated_ || reader.IsFragile()) {
        return readInProcess(request, {secondsLimit_, bytesLimit_}, model,
                             [&](ReadResult const& result, std::string_view packed) {
                                 if (isKept && result.otherFiles)
                                     cache.store(key, *result.otherFiles, {packed});
                             });
    }
    auto result = reader.Read(request, model);
    if (isKept && result.outcome == IoOutcome::Done && result.otherFiles)
        cache.store(key, *result.otherFiles, packModel(result, model).pieces());
    return result;
}

void ZelIO::PublishMaterials()
{
    auto& known = NarMetaVisu::MaterialContainer::Instance();
    for (auto const& [name, texture] : materials_.GetTextures()) known.Add(texture);
    for (auto const& [name, material] : materials_.GetMaterials()) known.Add(material);
    materials_.Clear();
}

bool ZelIO::Write(wchar_t const* path, ZELProductStructure const* structure, Progress progress)
{
    assert(path && "ZelIO::Write: path is null");
    std::string const extension = LowerExtension(path);
    if (extension == "zel_xml" || extension == "xkrm") return WriteXml(path, structure, progress);
    return writeKernel(path, structure, nullptr, progress);
}

bool ZelIO::WriteReference(wchar_t const* path, ZELProductStructure const* structure,
                           ZELReference const* reference, Progress progress)
{
    assert(path && "ZelIO::WriteReference: path is null");
    assert(reference && "ZelIO::WriteReference: reference is null");
    return writeKernel(path, structure, reference, progress);
}

bool ZelIO::writeKernel(wchar_t const* path, ZELProductStructure const* structure, ZELReference const* only,
                        Progress progress)
{
    assert(structure && "ZelIO::Write: structure is null");
    forgetResult();
    bool cancel = false;
    if (progress) progress(0.0, cancel);
    if (cancel) return fail(IoOutcome::Cancelled, Quoted(path) + L": writing was stopped");
    auto const* const entry = exportFormatOf(LowerExtension(path));
    if (!entry)
        return fail(IoOutcome::CannotWrite, Quoted(path) + L": models are not written in this format");
    auto const cause = writeWithKernel(std::filesystem::path(path), *entry, *structure, only);
    if (progress) progress(1.0, cancel);
    return cause.empty() ? true : fail(IoOutcome::CannotWrite, Quoted(path) + L": " + cause);
}

bool ZelIO::WriteXml(wchar_t const* path, ZELProductStructure const* structure, Progress progress)
{
    assert(path && "ZelIO::WriteXml: path is null");
    assert(structure && "ZelIO::WriteXml: structure is null");
    forgetResult();
    auto const text = ZelXmlText(*structure, progress);
    if (!text) return fail(IoOutcome::Cancelled, Quoted(path) + L": writing was stopped");
    auto const cause = ReplaceFile(path, *text);
    return cause.empty() ? true : fail(IoOutcome::CannotWrite, cause);
}

void ZelIO::GetTimerReport(std::wstring& report) const
{
    report.clear();
    for (StageTiming const& stage : timings_) {
        wchar_t line[256];
        std::swprintf(line, std::size(line), L"\t%-26.200ls %f [s].\n", stage.name.c_str(),
                      stage.seconds.count());
        report += line;
    }
}

std::vector<FileFormat> ZelIO::ImportFormats()
{
    std::vector<FileFormat> formats;
    for (auto const& reader : ReaderRegistry::BuiltIn().GetReaders()) formats.push_back(reader->Format());
    return formats;
}

std::vector<FileFormat> ZelIO::ExportFormats()
{
    std::vector<FileFormat> formats{ZelXmlReader().Format()};
    for (auto const& entry : exportFormats()) formats.push_back(entry.kind);
    return formats;
}

} // namespace NarMetaInfra
