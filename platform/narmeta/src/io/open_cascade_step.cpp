#include "PartMesher.h"
#include "open_cascade_document.h"
#include "open_cascade_guard.h"
#include "stage_clock.h"
#include "step_identity.h"
#include "step_text.h"

#include <Interface_Static.hxx>
#include <Message_ProgressScope.hxx>
#include <STEPCAFControl_Controller.hxx>
#include <STEPCAFControl_Reader.hxx>
#include <StepBasic_ProductDefinition.hxx>
#include <StepData_StepModel.hxx>
#include <StepRepr_NextAssemblyUsageOccurrence.hxx>
#include <TColStd_MapOfTransient.hxx>
#include <TDF_LabelSequence.hxx>

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

LoadOutcome parse(std::filesystem::path const& file, STEPCAFControl_Reader& reader, KernelDocument& document)
{
    auto const report = checkStepFile(file, document.stepText);
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

// Products that consist of no others but stand in an assembly.
std::vector<Handle(StepBasic_ProductDefinition)> leafProducts(Interface_InterfaceModel const& model)
{
    std::vector<Handle(StepBasic_ProductDefinition)> leaves;
    TColStd_MapOfTransient assemblies, seen;
    std::vector<Handle(StepRepr_NextAssemblyUsageOccurrence)> uses;
    for (Standard_Integer i = 1; i <= model.NbEntities(); ++i) {
        auto const use = Handle(StepRepr_NextAssemblyUsageOccurrence)::DownCast(model.Value(i));
        if (use.IsNull()) continue;
        uses.push_back(use);
        assemblies.Add(use->RelatingProductDefinition());
    }
    for (auto const& use : uses) {
        auto const product = use->RelatedProductDefinition();
        if (!product.IsNull() && !assemblies.Contains(product) && seen.Add(product))
            leaves.push_back(product);
    }
    return leaves;
}

// The parts of assemblies first, one by one: while the next is translated, the last is meshed. The
// translation of the whole finds them done.
void translateParts(STEPControl_Reader& reader, PartMesher& mesher, Message_ProgressRange const& range)
{
    auto const parts = leafProducts(*reader.Model());
    if (parts.size() < 2 || mesher.threads() < 2) return;
    Message_ProgressScope scope(range, "parts", static_cast<double>(parts.size()));
    for (auto const& part : parts) {
        if (!scope.More()) return;
        // What fails here fails again with the whole, which reports it.
        bool isDone = false;
        static_cast<void>(guarded([&] { isDone = reader.TransferEntity(part, scope.Next()); }));
        if (isDone) mesher.add(reader.Shape(reader.NbShapes()));
    }
}
} // namespace

LoadOutcome loadStep(std::filesystem::path const& file, KernelDocument& document, LoadSupport const& support,
                     Message_ProgressRange const& range)
{
    STEPCAFControl_Controller::Init();
    Interface_Static::SetCVal("xstep.cascade.unit", "MM");
    STEPCAFControl_Reader reader;
    reader.SetNameMode(true);
    reader.SetColorMode(true);
    reader.SetLayerMode(true);
    reader.SetSHUOMode(true);
    // These fail as a whole on files whose shapes are good.
    reader.SetGDTMode(false);
    reader.SetViewMode(false);
    reader.SetMatMode(false);
    reader.SetPropsMode(false);
    {
        StageClock const clock(support.times.parse);
        if (auto failure = parse(file, reader, document)) return failure;
    }
    StageClock const clock(support.times.transfer);
    auto failure = guarded([&] {
        if (reader.NbRootsForTransfer() == 0) return;
        Message_ProgressScope scope(range, "transfer", 100);
        translateParts(reader.ChangeReader(), support.mesher, scope.Next(90));
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
    document.stepEntities = std::make_unique<StepEntities>(document.stepText);
    failure = guarded([&] { identifyStep(reader, document); });
    if (failure)
        document.warnings.push_back("entities of the STEP file could not be identified (" + *failure + ")");
    return std::nullopt;
}
} // namespace NarMetaInfra
