#include "open_cascade_guard.h"
#include "open_cascade_step_reader.h"
#include "stage_clock.h"
#include "step_identity.h"
#include "step_text.h"

#include <Interface_Static.hxx>
#include <Message_ProgressScope.hxx>
#include <STEPCAFControl_Controller.hxx>

namespace NarMetaInfra
{
namespace
{
char const* kernelCodePage(TextEncoding encoding)
{
    switch (encoding) {
    case TextEncoding::Utf8:
        return "UTF8";
    case TextEncoding::Gbk:
        return "GB";
    case TextEncoding::Windows1252:
        return "CP1252";
    }
    return "UTF8";
}

LoadOutcome parse(std::filesystem::path const& file, StepReader& reader, KernelDocument& document)
{
    auto& source = document.stepSources.emplace_back();
    source.file = file;
    auto const report = checkStepFile(file, source.text);
    if (report.refusal) return LoadFailure{IoOutcome::Damaged, *report.refusal};
    if (report.danglingCount > 0) {
        document.warnings.push_back("the STEP file refers to entities that it does not define (" +
                                    std::to_string(report.danglingCount) +
                                    "); what depends on them is left out");
    }
    if (report.duplicateCount > 0) {
        document.warnings.push_back("the STEP file defines entity numbers more than once (" +
                                    std::to_string(report.duplicateCount) + ")");
    }
    Interface_Static::SetCVal("read.step.codepage", kernelCodePage(report.encoding));
    auto status = IFSelect_RetVoid;
    auto const failure = guarded([&] { status = reader.ReadFile(file.c_str()); });
    auto const message = std::string("the STEP file is damaged: its data can't be parsed");
    if (failure) return LoadFailure{IoOutcome::Damaged, message + " (" + *failure + ")"};
    if (status != IFSelect_RetDone) return LoadFailure{IoOutcome::Damaged, message};
    return std::nullopt;
}

LoadOutcome translate(std::filesystem::path const& file, KernelDocument& document, LoadSupport const& support,
                      Message_ProgressRange const& range)
{
    STEPCAFControl_Controller::Init();
    Interface_Static::SetCVal("xstep.cascade.unit", "MM");
    StepReader reader;
    {
        StageClock const clock(support.times.parse);
        if (auto failure = parse(file, reader, document)) return failure;
    }
    StageClock const clock(support.times.transfer);
    std::string refusal;
    if (auto const fault = guarded([&] { refusal = reader.refusal(); })) refusal = *fault;
    if (!refusal.empty()) return LoadFailure{IoOutcome::Damaged, "the STEP file can't be shown: " + refusal};
    auto failure = guarded([&] {
        if (reader.NbRootsForTransfer() == 0) return;
        Message_ProgressScope scope(range, "transfer", 100);
        reader.refuseFiles(document, file.parent_path());
        reader.translateAhead(document, support.mesher, file.parent_path(), scope.Next(90));
        reader.Transfer(document.document, scope.Next(10));
    });
    if (range.UserBreak()) return std::nullopt;
    if (!document.hasShapes()) {
        if (failure)
            return LoadFailure{IoOutcome::Damaged,
                               "the STEP file could not be translated (" + *failure + ")"};
        return LoadFailure{IoOutcome::NothingToShow, "the STEP file holds nothing to show"};
    }
    if (failure)
        document.warnings.push_back("part of the STEP file could not be translated (" + *failure + ")");
    document.otherFiles = reader.partFiles(file.parent_path());
    failure = guarded([&] { identifyStep(reader, document); });
    if (failure)
        document.warnings.push_back("entities of the STEP file could not be identified (" + *failure + ")");
    return std::nullopt;
}
} // namespace

LoadOutcome loadStep(std::filesystem::path const& file, KernelDocument& document, LoadSupport const& support,
                     Message_ProgressRange const& range)
{
    auto outcome = translate(file, document, support, range);
    // Only now that the kernel has let go of its own entities: both at once would take the most memory.
    StageClock const clock(support.times.transfer);
    if (outcome || range.UserBreak()) return outcome;
    for (auto& source : document.stepSources)
        if (source.isReadable) source.entities = std::make_unique<StepEntities>(source.text);
    return outcome;
}
} // namespace NarMetaInfra
