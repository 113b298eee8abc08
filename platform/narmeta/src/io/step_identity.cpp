#include "step_identity.h"

#include "StepVisibility.h"
#include "step_text.h"
#include "text_encoding.h"

#include <deque>
#include <set>

#include <STEPCAFControl_ExternFile.hxx>
#include <STEPConstruct_ExternRefs.hxx>
#include <StepBasic_Product.hxx>
#include <StepBasic_ProductDefinition.hxx>
#include <StepBasic_ProductDefinitionFormation.hxx>
#include <StepData_StepModel.hxx>
#include <StepGeom_GeometricRepresentationItem.hxx>
#include <StepRepr_NextAssemblyUsageOccurrence.hxx>
#include <StepShape_SolidModel.hxx>
#include <StepShape_TopologicalRepresentationItem.hxx>
#include <TColStd_MapTransientHasher.hxx>
#include <TDF_LabelSequence.hxx>
#include <TransferBRep.hxx>
#include <Transfer_TransientProcess.hxx>
#include <XSControl_TransferReader.hxx>
#include <XSControl_WorkSession.hxx>

namespace NarMetaInfra
{
namespace
{
std::wstring textOf(Handle(TCollection_HAsciiString) const& text)
{
    if (text.IsNull()) return {};
    return trimmed(wideFromBytes({text->ToCString(), static_cast<std::size_t>(text->Length())}));
}

struct Occurrence {
    OccurrenceMark mark;
    int child = 0; // number of the product definition that is used
    bool taken = false;
};

// Products and occurrences as the entities of one file have them, by the number of the product definition.
class ProductGraph
{
public:
    explicit ProductGraph(Handle(StepData_StepModel) const& model) : Model(model)
    {
        for (Standard_Integer i = 1; i <= Model->NbEntities(); ++i) {
            auto const entity = Model->Value(i);
            if (auto const definition = Handle(StepBasic_ProductDefinition)::DownCast(entity);
                !definition.IsNull())
                addProduct(definition);
            else if (auto const use = Handle(StepRepr_NextAssemblyUsageOccurrence)::DownCast(entity);
                     !use.IsNull())
                addOccurrence(use);
        }
    }

    std::map<int, ProductMark> Products;
    std::map<int, std::deque<Occurrence>> Children;
    std::set<int> Used;

private:
    void addProduct(Handle(StepBasic_ProductDefinition) const& definition)
    {
        ProductMark mark;
        mark.number = Model->IdentLabel(definition);
        auto const formation = definition->Formation();
        if (auto const product = formation.IsNull() ? nullptr : formation->OfProduct(); !product.IsNull()) {
            mark.id = textOf(product->Id());
            mark.name = textOf(product->Name());
        }
        Products.emplace(mark.number, std::move(mark));
    }

    void addOccurrence(Handle(StepRepr_NextAssemblyUsageOccurrence) const& use)
    {
        auto const parent = use->RelatingProductDefinition();
        auto const child = use->RelatedProductDefinition();
        if (parent.IsNull() || child.IsNull()) return;
        Occurrence occurrence{{textOf(use->Id()), textOf(use->Name()), Model->IdentLabel(use)},
                              Model->IdentLabel(child)};
        Used.insert(occurrence.child);
        Children[Model->IdentLabel(parent)].push_back(std::move(occurrence));
    }

    Handle(StepData_StepModel) Model;
};

// Walks the labels from the roots down. The kernel loses the tie between a rebuilt assembly and its entities,
// so what is not known directly is found by name among the entities that can stand there, and by order in the
// last resort.
class LabelMatcher
{
public:
    LabelMatcher(ProductGraph& graph, StepSource& source, KernelDocument& document)
        : Graph(graph), Source(source), Document(document), Shapes(document.shapes())
    {
    }

    void markLabel(TDF_Label const& label, int number)
    {
        auto const found = Graph.Products.find(number);
        if (found == Graph.Products.end()) return;
        if (!Source.products.emplace(number, label).second || Numbers.IsBound(label)) return;
        Numbers.Bind(label, number);
        // The file that refers to another one has the first word.
        if (!Document.products.IsBound(label)) Document.products.Bind(label, found->second);
    }

    void match(std::vector<TDF_Label> const& roots)
    {
        for (auto const& label : roots) {
            if (!Numbers.IsBound(label)) matchRoot(label);
            matchChildren(label);
        }
    }

private:
    void matchRoot(TDF_Label const& label)
    {
        auto const name = Document.nameOf(label);
        int first = 0;
        for (auto const& [number, mark] : Graph.Products) {
            if (Graph.Used.contains(number) || Source.products.contains(number)) continue;
            if (mark.name == name || mark.id == name) return markLabel(label, number);
            if (first == 0) first = number;
        }
        if (first != 0) markLabel(label, first);
    }

    void matchChildren(TDF_Label const& label)
    {
        if (!Done.Add(label)) return;
        TDF_LabelSequence components;
        if (!Shapes->IsAssembly(label) || !Shapes->GetComponents(label, components)) return;
        auto const* const number = Numbers.Seek(label);
        auto const found = number ? Graph.Children.find(*number) : Graph.Children.end();
        for (auto const& component : components) {
            TDF_Label child;
            if (!Shapes->GetReferredShape(component, child)) continue;
            if (found != Graph.Children.end()) matchComponent(component, child, found->second);
            matchChildren(child);
        }
    }

    void matchComponent(TDF_Label const& component, TDF_Label const& child,
                        std::deque<Occurrence>& candidates)
    {
        auto const* const known = Numbers.Seek(child);
        auto const name = Document.nameOf(component);
        auto const childName = Document.nameOf(child);
        Occurrence* best = nullptr;
        int bestScore = 0;
        while (!candidates.empty() && candidates.front().taken) candidates.pop_front();
        for (auto& candidate : candidates) {
            if (candidate.taken || (known && candidate.child != *known)) continue;
            bool const sameName = !name.empty() && (candidate.mark.name == name || candidate.mark.id == name);
            auto const product = Graph.Products.find(candidate.child);
            bool const sameChild = known || (product != Graph.Products.end() && !childName.empty() &&
                                             product->second.name == childName);
            // A geometry of the assembly's own has neither name nor product and is no occurrence.
            int const score = (sameName ? 2 : 0) + (sameChild ? 1 : 0);
            if (score > bestScore) {
                best = &candidate;
                bestScore = score;
            }
            if (score == 3) break;
        }
        if (!best) return;
        best->taken = true;
        markLabel(child, best->child);
        Source.uses.emplace(best->mark.number, component);
        if (!Document.occurrences.IsBound(component)) Document.occurrences.Bind(component, best->mark);
    }

    ProductGraph& Graph;
    StepSource& Source;
    KernelDocument& Document;
    Handle(XCAFDoc_ShapeTool) Shapes;
    LabelMap<int> Numbers; // of products in this file
    TDF_LabelMap Done;
};

// One file of those that make up the model.
class FileIdentity
{
public:
    FileIdentity(Handle(XSControl_WorkSession) const& session, std::vector<TDF_Label> roots,
                 StepSource& source, KernelDocument& document)
        : Session(session),
          Model(Handle(StepData_StepModel)::DownCast(session->Model())),
          Roots(std::move(roots)),
          Graph(Model),
          Matcher(Graph, source, document)
    {
    }

    void markExternalFiles(STEPCAFControl_Reader const& reader)
    {
        STEPConstruct_ExternRefs references(Session);
        references.LoadExternRefs();
        for (Standard_Integer i = 1; i <= references.NbExternRefs(); ++i) {
            auto const definition = references.ProdDef(i);
            auto const* const fileName = references.FileName(i);
            if (definition.IsNull() || !fileName || !*fileName) continue;
            auto const number = Model->IdentLabel(definition);
            auto& mark = Graph.Products[number];
            mark.storageFile = fileName;
            Handle(STEPCAFControl_ExternFile) file;
            bool const isKnown = reader.ExternFile(fileName, file) && !file.IsNull();
            mark.isMissing =
                !isKnown || file->GetLoadStatus() != IFSelect_RetDone || file->GetLabel().IsNull();
            if (!mark.isMissing) Matcher.markLabel(file->GetLabel(), number);
        }
    }

    void match(STEPCAFControl_Reader& reader)
    {
        auto const process = Session->TransferReader()->TransientProcess();
        for (Standard_Integer i = 1; i <= process->NbMapped(); ++i) {
            auto const definition = Handle(StepBasic_ProductDefinition)::DownCast(process->Mapped(i));
            if (definition.IsNull()) continue;
            auto const shape = TransferBRep::ShapeResult(process, definition);
            if (shape.IsNull()) continue;
            if (auto const* const label = reader.GetShapeLabelMap().Seek(shape))
                Matcher.markLabel(*label, Model->IdentLabel(definition));
        }
        Matcher.match(Roots);
    }

private:
    Handle(XSControl_WorkSession) Session;
    Handle(StepData_StepModel) Model;
    std::vector<TDF_Label> Roots;
    ProductGraph Graph;
    LabelMatcher Matcher;
};

// The entities are parsed for this alone, and only where it is needed: the kernel still has its own.
std::unordered_set<int> hiddenItems(StepSource& source)
{
    if (!hasHiddenItems(source.text)) return {};
    StepEntities const entities(source.text);
    StepProducts const products(entities);
    StepVisibility const visibility(entities, products);
    source.hiddenUses = visibility.uses();
    return visibility.items();
}

bool hasModel(Handle(XSControl_WorkSession) const& session)
{
    return !session.IsNull() && !session->TransferReader().IsNull() &&
           !session->TransferReader()->TransientProcess().IsNull() &&
           session->Model()->IsKind(STANDARD_TYPE(StepData_StepModel));
}
} // namespace

void numberEntities(Handle(XSControl_WorkSession) const& session, KernelDocument& document,
                    std::unordered_set<int> const& hidden)
{
    if (session.IsNull() || session->TransferReader().IsNull() || session->Model().IsNull()) return;
    auto const process = session->TransferReader()->TransientProcess();
    auto const model = session->Model();
    auto const stepModel = Handle(StepData_StepModel)::DownCast(model);
    if (process.IsNull()) return;
    document.entityNumbers.reserve(document.entityNumbers.size() +
                                   static_cast<std::size_t>(process->NbMapped()));
    for (Standard_Integer i = 1; i <= process->NbMapped(); ++i) {
        auto const entity = process->Mapped(i);
        if (entity.IsNull()) continue; // what a fault has cut short leaves holes
        bool const isShape = stepModel.IsNull() ||
                             entity->IsKind(STANDARD_TYPE(StepShape_TopologicalRepresentationItem)) ||
                             entity->IsKind(STANDARD_TYPE(StepGeom_GeometricRepresentationItem));
        if (!isShape) continue;
        auto const shape = TransferBRep::ShapeResult(process, entity);
        if (shape.IsNull()) continue;
        auto const number = stepModel.IsNull() ? model->Number(entity) : stepModel->IdentLabel(entity);
        auto const [entry, isNew] = document.entityNumbers.emplace(shape.TShape().get(), number);
        if (!isNew) entry->second = std::min(entry->second, number);
        if (hidden.contains(number)) document.hiddenShapes.insert(shape.TShape().get());
        if (auto const solid = Handle(StepShape_SolidModel)::DownCast(entity); !solid.IsNull()) {
            auto name = textOf(solid->Name());
            if (!name.empty() && name != L"NONE")
                document.solidNames.emplace(shape.TShape().get(), std::move(name));
        }
    }
}

void identifyStep(STEPCAFControl_Reader& reader, KernelDocument& document)
{
    auto const session = reader.Reader().WS();
    if (!hasModel(session)) return;
    numberEntities(session, document, hiddenItems(document.stepSources.front()));
    std::deque<FileIdentity> files;
    files.emplace_back(session, document.rootLabels(), document.stepSources.front(), document);
    for (auto const& file : reader.ExternFiles()) {
        if (file->GetLabel().IsNull() || !hasModel(file->GetWS())) continue;
        auto& source = document.stepSources.emplace_back();
        source.isReadable = !checkStepFile(file->GetWS()->LoadedFile(), source.text).refusal;
        source.file = file->GetWS()->LoadedFile();
        numberEntities(file->GetWS(), document,
                       source.isReadable ? hiddenItems(source) : std::unordered_set<int>());
        files.emplace_back(file->GetWS(), std::vector{file->GetLabel()}, source, document);
    }
    for (auto& file : files) file.markExternalFiles(reader);
    for (auto& file : files) file.match(reader);
}
} // namespace NarMetaInfra
