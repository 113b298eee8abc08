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
int rootProduct(StepEntities const& entities, std::map<int, ZELReference*> const& products)
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

void ModelBuilder::readAnnotations()
{
    if (!Document.stepEntities || !hasStepAnnotations(*Document.stepEntities)) return;
    auto const ownerOf = [&](int product) -> std::optional<StepOwner> {
        auto const found = Products.find(product);
        if (found == Products.end()) return std::nullopt;
        std::wstring pid;
        if (found->second)
            found->second->GetPID(pid);
        else
            Model.GetPID(pid);
        return StepOwner{NarMeta::HashId(pid), pid};
    };
    auto const root = rootProduct(*Document.stepEntities, Products);
    if (root == 0) return;
    auto const failure =
        guarded([&] { Annotations = readStepAnnotations(*Document.stepEntities, root, ownerOf); });
    if (failure) Document.warnings.push_back("the annotations could not be read (" + *failure + ")");
}

std::set<int> const* ModelBuilder::linkedEntities(ZELReference const& reference) const
{
    for (auto const& annotations : Annotations)
        if (Products.at(annotations.product) == &reference && !annotations.linked.empty())
            return &annotations.linked;
    return nullptr;
}

void ModelBuilder::readProperties()
{
    if (!Document.stepEntities) return;
    auto const information = std::make_shared<ZELDocumentInformation>();
    for (auto& [label, value] : stepHeaderLines(Document.stepText))
        information->Add(std::move(label), std::move(value));
    if (!information->GetLines().empty()) Model.SetDocumentInformation(information);
    StepProperties const properties(*Document.stepEntities);
    for (auto const& [product, reference] : Products)
        if (reference) reference->SetUserProperties(properties.of(product));
}

void ModelBuilder::addTessellated(ZELReference const& reference, std::vector<BrepBody>& bodies) const
{
    bool const hasFaces =
        std::ranges::any_of(bodies, [](BrepBody const& body) { return !body.faces.empty(); });
    if (hasFaces || !Document.stepEntities) return;
    auto const& entities = *Document.stepEntities;
    if (entities.ofKind("TESSELLATED_SOLID").empty() && entities.ofKind("TESSELLATED_SHELL").empty()) return;
    for (auto const& [product, owner] : Products)
        if (owner == &reference)
            std::ranges::move(stepTessellation(entities, product, reference.GetUniqueID()),
                              std::back_inserter(bodies));
}

void ModelBuilder::attachAnnotations()
{
    for (auto& [product, set, pictures, linked] : Annotations) {
        auto* const reference = Products.at(product);
        auto container = std::make_shared<PMIContainer>();
        std::wstring pid;
        if (reference) {
            reference->GetPID(pid);
            if (pictures) addPictures(sceneOf(*reference), pid, std::move(pictures));
            container->AddAnnotationSet(pid, set);
            reference->SetPmi(std::move(container));
        } else if (Model.GetPID(pid)) {
            if (pictures) addPictures(sceneOf(Model), pid, std::move(pictures));
            container->AddAnnotationSet(pid, set);
            Model.SetPMI(std::move(container));
        }
    }
}
} // namespace NarMetaInfra
