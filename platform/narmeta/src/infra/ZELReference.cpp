#include <narmeta/infra/ZELReference.h>

#include <algorithm>
#include <cassert>

namespace NarMetaInfra
{

ZELReference::ZELReference(Kind kind, std::wstring pid, std::wstring name)
    : kind_(kind), pid_(std::move(pid)), name_(std::move(name)), id_(NarMeta::HashId(pid_))
{
}

bool ZELReference::GetPMIAnnotation(HPS::KeyPath const&, Id id, std::shared_ptr<PMIAnnotation>& annotation,
                                    PMIAnnotationType type) const
{
    // An annotation belongs to the reference, and so is the same on every path to it.
    return GetPMIAnnotation(id, annotation, type);
}

bool ZELReference::GetPMIAnnotation(Id id, std::shared_ptr<PMIAnnotation>& annotation,
                                    PMIAnnotationType type) const
{
    return pmi_ && pmi_->GetAnnotation(id, type, annotation);
}

void ZELReference::GetPMIToolTip(Id id, std::wstring& text) const
{
    if (pmi_) text = pmi_->ToolTip(id);
}

bool ZELReference::GetPMIKey(Id id, std::shared_ptr<PMIAnnotation>& annotation, HPS::Key& key,
                             PMIAnnotationType type) const
{
    GetPMIAnnotation(id, annotation, type);
    return findKey_ && findKey_(id, key);
}

bool ZELReference::GetLinkedEntityKey(LinkedEntity const& entity, HPS::Key& key) const
{
    auto const found = entityNames_.find(entity.second);
    return found != entityNames_.end() && findKey_ && findKey_(found->second, key);
}

bool ZELReference::GetPID(std::wstring& pid) const
{
    if (pid_.empty()) return false;
    pid = pid_;
    return true;
}

bool ZELReference::GetInstance(std::size_t index, std::shared_ptr<ZELInstance>& instance) const
{
    if (index >= instances_.size()) return false;
    instance = instances_[index];
    return true;
}

bool ZELReference::RemoveBodyFromPart(Id bodyId)
{
    auto const removed = std::ranges::find(bodies_, bodyId, &BrepBody::id);
    if (removed == bodies_.end()) return false;
    if (exact_) {
        ExactShape exact = *exact_;
        for (BrepFace const& face : removed->faces)
            std::ranges::replace(exact.faces, face.id, ExactShape::RemovedFace);
        exact_ = std::make_shared<ExactShape const>(std::move(exact));
    }
    bodies_.erase(removed);
    return true;
}

BrepBody const* ZELReference::FindBody(Id bodyId) const
{
    auto const found = std::find_if(bodies_.begin(), bodies_.end(),
                                    [bodyId](BrepBody const& body) { return body.id == bodyId; });
    return found == bodies_.end() ? nullptr : &*found;
}

BrepCounts ZELReference::GetCounts() const
{
    BrepCounts counts;
    for (auto const& body : bodies_) counts += CountsOf(body);
    return counts;
}

void ZELReference::SetPID(std::wstring pid)
{
    pid_ = std::move(pid);
    id_ = NarMeta::HashId(pid_);
    changed();
}

void ZELReference::SetKind(Kind kind)
{
    kind_ = kind;
    changed();
}

BrepBody& ZELReference::AddBody(BrepBody body)
{
    return bodies_.emplace_back(std::move(body));
}

std::shared_ptr<ZELInstance> ZELReference::AddInstance(std::shared_ptr<ZELReference> child, std::wstring pid,
                                                       std::wstring name)
{
    auto instance = std::make_shared<ZELInstance>(std::move(child), std::move(pid), std::move(name));
    AddInstance(instance);
    return instance;
}

void ZELReference::AddInstance(std::shared_ptr<ZELInstance> instance)
{
    assert(instance);
    instances_.push_back(std::move(instance));
    changed();
}

void ZELReference::RemoveInstance(std::size_t index)
{
    assert(index < instances_.size());
    instances_.erase(instances_.begin() + static_cast<std::ptrdiff_t>(index));
    changed();
}

} // namespace NarMetaInfra
