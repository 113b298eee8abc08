#include "step_identity.h"

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
    LabelMatcher(ProductGraph& graph, KernelDocument& document)
        : Graph(graph), Document(document), Shapes(document.shapes())
    {
    }

    void markLabel(TDF_Label const& label, int number)
    {
        auto const found = Graph.Products.find(number);
        if (found != Graph.Products.end() && !Document.products.IsBound(label)) {
            Document.products.Bind(label, found->second);
            MarkedNumbers.insert(number);
        }
    }

    void matchRoots()
    {
        for (auto const& label : Document.rootLabels()) {
            if (!Document.products.IsBound(label)) matchRoot(label);
            matchChildren(label);
        }
    }

private:
    void matchRoot(TDF_Label const& label)
    {
        auto const name = Document.nameOf(label);
        int first = 0;
        for (auto const& [number, mark] : Graph.Products) {
            if (Graph.Used.contains(number) || MarkedNumbers.contains(number)) continue;
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
        auto const* const product = Document.products.Seek(label);
        auto const found = product ? Graph.Children.find(product->number) : Graph.Children.end();
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
        auto const* const known = Document.products.Seek(child);
        auto const name = Document.nameOf(component);
        auto const childName = Document.nameOf(child);
        Occurrence* best = nullptr;
        int bestScore = 0;
        while (!candidates.empty() && candidates.front().taken) candidates.pop_front();
        for (auto& candidate : candidates) {
            if (candidate.taken || (known && candidate.child != known->number)) continue;
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
        Document.occurrences.Bind(component, best->mark);
    }

    ProductGraph& Graph;
    KernelDocument& Document;
    Handle(XCAFDoc_ShapeTool) Shapes;
    std::set<int> MarkedNumbers;
    TDF_LabelMap Done;
};

void markExternalFiles(STEPCAFControl_Reader& reader, ProductGraph& graph, LabelMatcher& matcher,
                       Handle(StepData_StepModel) const& model)
{
    STEPConstruct_ExternRefs references(reader.Reader().WS());
    references.LoadExternRefs();
    for (Standard_Integer i = 1; i <= references.NbExternRefs(); ++i) {
        auto const definition = references.ProdDef(i);
        auto const* const fileName = references.FileName(i);
        if (definition.IsNull() || !fileName || !*fileName) continue;
        auto const number = model->IdentLabel(definition);
        auto& mark = graph.Products[number];
        mark.storageFile = fileName;
        Handle(STEPCAFControl_ExternFile) file;
        bool const isKnown = reader.ExternFile(fileName, file) && !file.IsNull();
        mark.isMissing = !isKnown || file->GetLoadStatus() != IFSelect_RetDone || file->GetLabel().IsNull();
        if (!mark.isMissing) matcher.markLabel(file->GetLabel(), number);
    }
}
} // namespace

void numberEntities(Handle(XSControl_WorkSession) const& session, KernelDocument& document)
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
    auto const model = Handle(StepData_StepModel)::DownCast(session->Model());
    if (model.IsNull()) return;
    numberEntities(session, document);
    for (auto const& file : reader.ExternFiles()) numberEntities(file->GetWS(), document);

    ProductGraph graph(model);
    LabelMatcher matcher(graph, document);
    markExternalFiles(reader, graph, matcher, model);
    auto const process = session->TransferReader()->TransientProcess();
    for (Standard_Integer i = 1; i <= process->NbMapped(); ++i) {
        auto const definition = Handle(StepBasic_ProductDefinition)::DownCast(process->Mapped(i));
        if (definition.IsNull()) continue;
        auto const shape = TransferBRep::ShapeResult(process, definition);
        if (shape.IsNull()) continue;
        if (auto const* const label = reader.GetShapeLabelMap().Seek(shape))
            matcher.markLabel(*label, model->IdentLabel(definition));
    }
    matcher.matchRoots();
}
} // namespace NarMetaInfra
