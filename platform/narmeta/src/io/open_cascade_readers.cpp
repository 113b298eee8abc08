#include "open_cascade_readers.h"

#include "ReaderRegistry.h"
#include "file_signature.h"
#include "open_cascade_document.h"
#include "open_cascade_guard.h"
#include "open_cascade_model.h"
#include "open_cascade_progress.h"
#include "open_cascade_tessellation.h"
#include "stage_clock.h"
#include "text_encoding.h"

#include <algorithm>
#include <numbers>

#include <Message_ProgressScope.hxx>

namespace NarMetaInfra
{
namespace
{
using LoadFunction = LoadOutcome (*)(std::filesystem::path const&, KernelDocument&, LoadSupport const&,
                                     Message_ProgressRange const&);

struct FormatEntry {
    ModelFormat format;
    wchar_t const* name;
    std::vector<std::wstring> extensions;
    LoadFunction load;
    /// How sure a look at the start of a file is.
    Confidence confidence;
};

std::vector<FormatEntry> const& formats()
{
    static std::vector<FormatEntry> const entries = {
        {ModelFormat::Step, L"STEP", {L"stp", L"step", L"p21"}, loadStep, Confidence::Certain},
        {ModelFormat::Iges, L"IGES", {L"igs", L"iges"}, loadIges, Confidence::Certain},
        {ModelFormat::Brep, L"Open CASCADE BREP", {L"brep", L"brp"}, loadBrep, Confidence::Certain},
        {ModelFormat::Gltf, L"glTF", {L"gltf", L"glb"}, loadGltf, Confidence::Certain},
        {ModelFormat::Vrml, L"VRML", {L"wrl", L"vrml"}, loadVrml, Confidence::Certain},
        {ModelFormat::Stl, L"STL", {L"stl"}, loadStl, Confidence::Likely},
        {ModelFormat::Obj, L"Wavefront OBJ", {L"obj"}, loadObj, Confidence::Likely},
    };
    return entries;
}

class OpenCascadeReader : public ModelReader
{
public:
    explicit OpenCascadeReader(FormatEntry const& entry) : Entry(entry) {}

    FileFormat Format() const override { return {Entry.name, Entry.extensions}; }
    Confidence Recognise(std::string_view head, std::string_view extension) const override;
    ReadResult Read(ReadRequest const& request, ZELProductStructure& model) const override;

private:
    ReadResult readInSession(ReadRequest const& request, ZELProductStructure& model) const;

    FormatEntry const& Entry;
};

Confidence OpenCascadeReader::Recognise(std::string_view head, std::string_view extension) const
{
    auto const found = recogniseFormat(head, head.size() < ReaderRegistry::HeadSize);
    if (found == Entry.format) return Entry.confidence;
    bool const isNamed = std::ranges::any_of(
        Entry.extensions, [&](std::wstring const& own) { return std::ranges::equal(own, extension); });
    return found == ModelFormat::Unknown && isNamed ? Confidence::ByName : Confidence::No;
}

void addWarnings(ReadResult& result, KernelDocument const& document)
{
    for (auto const& warning : document.warnings) result.warnings.push_back(wideFromBytes(warning));
}

ReadResult cancelled()
{
    return ReadResult::Failure(IoOutcome::Cancelled, L"reading was stopped");
}

ReadResult OpenCascadeReader::Read(ReadRequest const& request, ZELProductStructure& model) const
{
    KernelSession const session;
    ReadResult result;
    auto const failure = guarded([&] { result = readInSession(request, model); });
    if (failure)
        return ReadResult::Failure(IoOutcome::Damaged, wideFromBytes("the file can't be read: " + *failure));
    return result;
}

ReadResult OpenCascadeReader::readInSession(ReadRequest const& request, ZELProductStructure& model) const
{
    setKernelThreads(request.processors);
    Handle(ReadProgress) const progress = new ReadProgress(request);
    Message_ProgressScope stages(progress->Start(), "read", 100);
    KernelDocument document;
    auto const& options = request.options;
    TessellationFineness const fineness{options.distanceShare, options.angle * std::numbers::pi / 180.0};
    PartMesher mesher(request.processors, fineness);
    document.title = wideFromBytes(request.path.stem().string());
    LoadTimes loadTimes;
    BuildTimes buildTimes;
    ReadResult result;

    progress->report(0.0);
    if (progress->isCancelled()) return cancelled();
    std::error_code error;
    auto const path = std::filesystem::absolute(request.path, error);
    LoadSupport const support{mesher, fineness, loadTimes};
    auto const loaded = Entry.load(error ? request.path : path, document, support, stages.Next(50));
    if (progress->isCancelled()) return cancelled();
    if (loaded) return ReadResult::Failure(loaded->outcome, wideFromBytes(loaded->cause));

    document.hideInvisibleLayers();
    result.graphical = options.graphical || document.isMesh;
    ModelBuilder builder(
        document, mesher,
        {result.graphical, options.persistentNames, options.exactShapes, options.occurrenceData}, model);
    {
        StageClock const clock(buildTimes.convert);
        builder.buildStructure();
        builder.readAnnotations();
    }
    builder.buildParts(buildTimes, stages.Next(50));
    if (progress->isCancelled()) return cancelled();
    builder.attachAnnotations();
    builder.readProperties();
    builder.readLayers();
    if (options.occurrenceData) builder.applyOverrides();
    if (!builder.hasContents())
        return ReadResult::Failure(IoOutcome::NothingToShow, L"the file holds nothing to show");
    builder.addMaterials(result.materials);
    result.otherFiles = std::move(document.otherFiles);
    progress->report(1.0);
    addWarnings(result, document);
    using Seconds = std::chrono::duration<double>;
    result.timings = {{L"Parsing", Seconds(loadTimes.parse), true},
                      {L"Transfer", Seconds(loadTimes.transfer), true},
                      {L"Meshing", Seconds(buildTimes.mesh), true},
                      {L"Conversion", Seconds(buildTimes.convert), false}};
    return result;
}
} // namespace

void RegisterOpenCascadeReaders(ReaderRegistry& registry)
{
    for (auto const& entry : formats()) registry.Add(std::make_unique<OpenCascadeReader>(entry));
}
} // namespace NarMetaInfra
