// What a product structure derives from its references and instances: order, lookup, counts of use.
#include <narmeta/infra/ZELProductStructure.h>

#include <algorithm>
#include <unordered_set>

namespace NarMetaInfra
{

namespace
{

/// Every reference that can be reached from the roots, children before their parents. An instance that leads
/// back to an assembly on the way to it is not followed. Without recursion: a hostile file may nest as deep
/// as it is long.
std::vector<std::shared_ptr<ZELReference>>
ChildrenFirst(std::vector<std::shared_ptr<ZELInstance>> const& roots)
{
    struct Step {
        std::shared_ptr<ZELReference> reference;
        std::size_t next = 0;
    };
    std::vector<std::shared_ptr<ZELReference>> order;
    std::unordered_set<ZELReference const*> seen;
    std::vector<Step> stack;
    auto const enter = [&](std::shared_ptr<ZELReference> const& reference) {
        if (reference && seen.insert(reference.get()).second) stack.push_back({reference});
    };
    for (auto const& root : roots) {
        enter(root->GetReference());
        while (!stack.empty()) {
            auto& [reference, next] = stack.back();
            if (next < reference->GetInstancesCount()) {
                auto const child = reference->GetInstances()[next++]->GetReference();
                enter(child);
            } else {
                order.push_back(reference);
                stack.pop_back();
            }
        }
    }
    return order;
}

} // namespace

ZELProductStructure::Index const& ZELProductStructure::index() const
{
    if (!*changed_) return index_;
    *changed_ = false;
    index_ = {};

    for (auto const& reference : references_)
        if (reference->IsPart()) index_.parts.push_back(reference);

    for (auto const& root : roots_) {
        index_.instances.try_emplace(root->GetHashedID(), Index::Entry{root, nullptr});
        ++index_.occurrences[root->GetReference().get()];
    }
    auto const order = ChildrenFirst(roots_);
    constexpr std::size_t most = static_cast<std::size_t>(-1);
    for (auto reference = order.rbegin(); reference != order.rend(); ++reference) {
        // All parents stand behind their children in the order, so this count is complete by now.
        auto const uses = index_.occurrences[reference->get()];
        for (auto const& instance : (*reference)->GetInstances()) {
            index_.instances.try_emplace(instance->GetHashedID(), Index::Entry{instance, reference->get()});
            auto& count = index_.occurrences[instance->GetReference().get()];
            count = uses > most - count ? most : count + uses;
        }
    }
    for (auto const& reference : order)
        if (reference->GetKind() == ZELReference::Kind::Assembly) index_.assemblies.push_back(reference);
    return index_;
}

bool ZELProductStructure::GetUniqueReference(std::size_t position,
                                             std::shared_ptr<ZELReference>& reference) const
{
    auto const& parts = index().parts;
    if (position >= parts.size()) return false;
    reference = parts[position];
    return true;
}

bool ZELProductStructure::GetInstance(Id instanceId, std::shared_ptr<ZELInstance>& instance) const
{
    auto const found = index().instances.find(instanceId);
    if (found == index_.instances.end()) return false;
    instance = found->second.instance;
    return true;
}

bool ZELProductStructure::IsRootInstance(Id instanceId) const
{
    auto const found = index().instances.find(instanceId);
    return found != index_.instances.end() && !found->second.owner;
}

bool ZELProductStructure::IsInstanceReferencedFromSubAssembly(Id instanceId) const
{
    auto const found = index().instances.find(instanceId);
    return found != index_.instances.end() && found->second.owner &&
           index_.occurrences.at(found->second.owner) > 1;
}

bool ZELProductStructure::GetPartReference(Id id, std::shared_ptr<ZELReference>& reference) const
{
    auto const& known = index();
    if (auto const found = known.instances.find(id); found != known.instances.end()) {
        if (!found->second.instance->GetReference()->IsPart()) return false;
        reference = found->second.instance->GetReference();
        return true;
    }
    auto const part = std::find_if(known.parts.begin(), known.parts.end(),
                                   [id](auto const& candidate) { return candidate->GetUniqueID() == id; });
    if (part == known.parts.end()) return false;
    reference = *part;
    return true;
}

std::size_t ZELProductStructure::GetOccurrencesCount(ZELReference const& reference) const
{
    auto const found = index().occurrences.find(&reference);
    return found == index_.occurrences.end() ? 0 : found->second;
}

} // namespace NarMetaInfra
