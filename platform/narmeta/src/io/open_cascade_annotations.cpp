// Annotations of a STEP file: read from its own entities, put at the references that they belong to.
#include "open_cascade_guard.h"
#include "open_cascade_model.h"

#include "step_header.h"
#include "step_tessellation.h"

#include <narmeta/infra/ZELDocumentInformation.h>

#include <algorithm>
#include <iterator>

namespace NarMetaInfra
{
namespace
{
// An annotation without an owner belongs to the product that no other one uses.
template <class Products> int rootProduct(StepEntities const& entities, Products const& products)
{
    std::set<int> used;
    for (int const use : entities.ofKind("NEXT_ASSEMBLY_USAGE_OCCURRENCE"))
        used.insert(entities.argument(use, 4).entity());
    for (auto const& [number, reference] : products)
        if (!used.contains(number)) return number;
    return 0;
}

void addPictures(std::shared_ptr<SGContainer> const& container, std::wstring const& pid,
                 std::shared_ptr<NarMetaVisu::Node> pictures)
{
    using NarMetaVisu::Node, NarMetaVisu::NodeType;
    std::vector<std::shared_ptr<Node>> roots;
    if (!container->GetRootNodes(pid, roots) || roots.empty()) {
        roots.push_back(std::make_shared<Node>(NodeType::Root));
        container->AddRootNode(pid, roots.front());
    }
    roots.front()->AddChild(std::move(pictures));
}

template <class Holder> std::shared_ptr<SGContainer> sceneOf(Holder& holder)
{
    if (!holder.GetSG()) holder.SetSG(std::make_shared<SGContainer>());
    return holder.GetSG();
}
} // namespace

void ModelBuilder::tieSources()
{
    for (auto const& source : Document.stepSources) {
        auto& [products, uses] = Ties.emplace_back();
        for (auto const& [number, label] : source.products) {
            if (auto const* const reference = References.Seek(label))
                products.emplace(number, reference->get());
            else if (label == Top)
                products.emplace(number, nullptr);
        }
        for (auto const& [number, component] : source.uses)
            if (auto const* const instance = Instances.Seek(component)) (*instance)->GetPID(uses[number]);
    }
}

void ModelBuilder::readAnnotations()
{
    for (std::size_t i = 0; i < Document.stepSources.size(); ++i) {
        auto const failure = guarded([&] { readAnnotations(i); });
        if (failure) Document.warnings.push_back("the annotations could not be read (" + *failure + ")");
    }
}

void ModelBuilder::readAnnotations(std::size_t source)
{
    auto const* const entities = Document.stepSources[source].entities.get();
    auto const& [products, uses] = Ties[source];
    if (!entities || !hasStepAnnotations(*entities)) return;
    StepTies ties;
    ties.ownerOf = [&, &known = products](int product) -> std::optional<StepOwner> {
        auto const found = known.find(product);
        if (found == known.end()) return std::nullopt;
        std::wstring pid;
        if (found->second)
            found->second->GetPID(pid);
        else
            Model.GetPID(pid);
        // Each file counts its entities from the start.
        auto const id = NarMeta::HashId(pid);
        auto const name = Document.stepSources[source].file.filename().string();
        return StepOwner{source == 0 ? id : NarMeta::HashId(id, name, 0), pid};
    };
    ties.pidOf = [&known = uses](int use) {
        auto const found = known.find(use);
        return found == known.end() ? std::wstring() : found->second;
    };
    auto const root = rootProduct(*entities, products);
    if (root == 0) return;
    for (auto& set : readStepAnnotations(*entities, root, ties)) {
        for (auto const& [product, shapes] : set.linked)
            if (auto const holder = products.find(product); holder != products.end())
                Linked[holder->second].insert(shapes.begin(), shapes.end());
        Annotations.push_back({products.at(set.product), std::move(set)});
    }
}

void ModelBuilder::readProperties()
{
    if (Document.stepSources.empty()) return;
    auto const information = std::make_shared<ZELDocumentInformation>();
    for (auto& [label, value] : stepHeaderLines(Document.stepSources.front().text))
        information->Add(std::move(label), std::move(value));
    for (std::size_t i = 0; i < Document.stepSources.size(); ++i) {
        if (!Document.stepSources[i].entities) continue;
        StepProperties const properties(*Document.stepSources[i].entities);
        for (auto const& [product, reference] : Ties[i].products) {
            auto all = reference ? reference->GetUserProperties() : NarMeta::Properties();
            // The file that refers to another one has named its product already.
            if (all.empty()) all = properties.identityOf(product);
            std::ranges::move(properties.of(product), std::back_inserter(all));
            if (reference)
                reference->SetUserProperties(std::move(all));
            else
                for (auto& [label, value] : all) information->Add(std::move(label), std::move(value));
        }
    }
    if (!information->GetLines().empty()) Model.SetDocumentInformation(information);
}

void ModelBuilder::addTessellated(ZELReference const& reference, std::vector<BrepBody>& bodies) const
{
    bool const hasFaces =
        std::ranges::any_of(bodies, [](BrepBody const& body) { return !body.faces.empty(); });
    if (hasFaces) return;
    for (std::size_t i = 0; i < Document.stepSources.size(); ++i) {
        auto const* const entities = Document.stepSources[i].entities.get();
        if (!entities) continue;
        if (entities->ofKind("TESSELLATED_SOLID").empty() && entities->ofKind("TESSELLATED_SHELL").empty())
            continue;
        for (auto const& [product, owner] : Ties[i].products)
            if (owner == &reference)
                std::ranges::move(stepTessellation(*entities, product, reference.GetUniqueID()),
                                  std::back_inserter(bodies));
    }
}

void ModelBuilder::attachAnnotations()
{
    for (auto& [owner, annotations] : Annotations) {
        std::wstring pid;
        if (owner)
            owner->GetPID(pid);
        else
            Model.GetPID(pid);
        if (pid.empty()) continue;
        if (annotations.pictures)
            addPictures(owner ? sceneOf(*owner) : sceneOf(Model), pid, std::move(annotations.pictures));
        auto container = owner ? owner->GetPmi() : Model.GetPMI();
        if (!container) container = std::make_shared<PMIContainer>();
        container->AddAnnotationSet(pid, annotations.set);
        owner ? owner->SetPmi(std::move(container)) : Model.SetPMI(std::move(container));
    }
}
} // namespace NarMetaInfra
