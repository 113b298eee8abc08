#include <narmeta/infra/ZELProductStructure.h>

#include <algorithm>
#include <cassert>

namespace NarMetaInfra
{

namespace
{

/// Instances and references hold each other; taking the instances out first frees rings, and chains without
/// recursion.
void Release(std::vector<std::shared_ptr<ZELReference>>& references)
{
    for (auto const& reference : references)
        while (reference->GetInstancesCount() > 0)
            reference->RemoveInstance(reference->GetInstancesCount() - 1);
    references.clear();
}

/// An instance inside an assembly that was copied for one use has the PID of the original and, behind this
/// sign, that of the use.
constexpr wchar_t CopySign = L'@';

/// Follows the PIDs of a linked entity through a list of instances at a time.
bool Resolve(std::vector<std::shared_ptr<ZELInstance>> const* level, LinkedEntity const& entity,
             std::vector<std::shared_ptr<ZELInstance>>& instances, std::shared_ptr<ZELReference>& reference)
{
    std::vector<std::shared_ptr<ZELInstance>> path;
    for (auto const& step : entity.first) {
        auto const find = [&](auto const& isMeant) {
            return std::find_if(level->begin(), level->end(), [&](auto const& candidate) {
                std::wstring pid;
                return candidate->GetPID(pid) && isMeant(pid);
            });
        };
        auto found = find([&](std::wstring const& pid) { return pid == step; });
        if (found == level->end())
            found = find([&](std::wstring const& pid) { return pid.starts_with(step + CopySign); });
        if (found == level->end()) return false;
        path.push_back(*found);
        level = &(*found)->GetReference()->GetInstances();
    }
    if (path.empty()) return false;
    reference = path.back()->GetReference();
    instances = std::move(path);
    return true;
}

/// The container that a view or capture must stand in.
PMIContainer const* ContainerOf(ZELProductStructure const& model,
                                std::shared_ptr<ZELReference> const& reference)
{
    return reference ? reference->GetPmi().get() : model.GetPMI().get();
}

bool SetActive(ZELProductStructure const& model, std::shared_ptr<ZELReference> const& reference,
               std::shared_ptr<PMIAnnotationView> const& view, bool active)
{
    auto const* container = ContainerOf(model, reference);
    std::shared_ptr<PMIAnnotationView> own;
    if (!view || !container || !container->GetAnnotationView(view->GetHashedID(), own) || own != view)
        return false;
    view->SetActive(active);
    return true;
}

bool SetActive(ZELProductStructure const& model, std::shared_ptr<ZELReference> const& reference,
               std::shared_ptr<PMICapture> const& capture, bool active)
{
    auto const* container = ContainerOf(model, reference);
    std::shared_ptr<PMICapture> own;
    if (!capture || !container || !container->GetAnnotationCapture(capture->GetHashedID(), own) ||
        own != capture)
        return false;
    capture->SetActive(active);
    return true;
}

} // namespace

ZELProductStructure::ZELProductStructure(std::wstring pid, std::wstring productName)
    : pid_(std::move(pid)), productName_(std::move(productName)), changed_(std::make_shared<bool>(true))
{
}

ZELProductStructure::~ZELProductStructure()
{
    Release(references_);
}

bool ZELProductStructure::ActivateCapture(std::shared_ptr<ZELReference> const& reference,
                                          std::shared_ptr<PMICapture> const& capture)
{
    return SetActive(*this, reference, capture, true);
}

bool ZELProductStructure::DeactivateCapture(std::shared_ptr<ZELReference> const& reference,
                                            std::shared_ptr<PMICapture> const& capture)
{
    return SetActive(*this, reference, capture, false);
}

bool ZELProductStructure::ActivateView(std::shared_ptr<ZELReference> const& reference,
                                       std::shared_ptr<PMIAnnotationView> const& view)
{
    return SetActive(*this, reference, view, true);
}

bool ZELProductStructure::DeactivateView(std::shared_ptr<ZELReference> const& reference,
                                         std::shared_ptr<PMIAnnotationView> const& view)
{
    return SetActive(*this, reference, view, false);
}

bool ZELProductStructure::GetPMIAnnotation(Id id, std::shared_ptr<PMIAnnotation>& annotation,
                                           PMIAnnotationType type) const
{
    return pmi_ && pmi_->GetAnnotation(id, type, annotation);
}

void ZELProductStructure::GetPMIToolTip(Id id, std::wstring& text) const
{
    if (pmi_) text = pmi_->ToolTip(id);
}

bool ZELProductStructure::GetPMIKey(Id id, HPS::Key& key, PMIAnnotationType) const
{
    return findKey_ && findKey_(id, key);
}

bool ZELProductStructure::GetRootInstance(std::size_t position, std::shared_ptr<ZELInstance>& instance) const
{
    if (position >= roots_.size()) return false;
    instance = roots_[position];
    return true;
}

bool ZELProductStructure::GetReference(LinkedEntity const& entity,
                                       std::vector<std::shared_ptr<ZELInstance>>& instances,
                                       std::shared_ptr<ZELReference>& reference) const
{
    return Resolve(&roots_, entity, instances, reference);
}

bool ZELProductStructure::GetReference(std::shared_ptr<ZELReference> const& start, LinkedEntity const& entity,
                                       std::vector<std::shared_ptr<ZELInstance>>& instances,
                                       std::shared_ptr<ZELReference>& reference) const
{
    return start && Resolve(&start->GetInstances(), entity, instances, reference);
}

bool ZELProductStructure::IsAssembly() const
{
    return roots_.size() > 1 || (roots_.size() == 1 && !roots_.front()->GetReference()->IsPart());
}

bool ZELProductStructure::GetPID(std::wstring& pid) const
{
    if (pid_.empty()) return false;
    pid = pid_;
    return true;
}

bool ZELProductStructure::GetActiveView(std::shared_ptr<ZELReference>& holder,
                                        std::shared_ptr<PMIAnnotationView>& view) const
{
    if (pmi_ && pmi_->GetActiveView(view)) {
        holder.reset();
        return true;
    }
    for (auto const& reference : references_) {
        if (!reference->GetPmi() || !reference->GetPmi()->GetActiveView(view)) continue;
        holder = reference;
        return true;
    }
    return false;
}

bool ZELProductStructure::GetActiveCapture(std::shared_ptr<ZELReference>& holder,
                                           std::shared_ptr<PMICapture>& capture) const
{
    if (pmi_ && pmi_->GetActiveCapture(capture)) {
        holder.reset();
        return true;
    }
    for (auto const& reference : references_) {
        if (!reference->GetPmi() || !reference->GetPmi()->GetActiveCapture(capture)) continue;
        holder = reference;
        return true;
    }
    return false;
}

bool ZELProductStructure::MakePartModel(std::shared_ptr<ZELReference> const& part)
{
    if (!part || !part->IsPart() || !holds(part)) return false;
    auto const kept = part;
    std::wstring pid;
    kept->GetPID(pid);
    // The new model's own PID must differ from the part's: both name things in the scene.
    ZELProductStructure made(pid + L".model", kept->GetReferenceName());
    made.information_ = information_;
    std::erase(references_, kept);
    made.AddReference(kept);
    made.AddRootInstance(kept, pid + L".1", kept->GetReferenceName());
    Swap(made);
    return true;
}

void ZELProductStructure::Reset()
{
    ZELProductStructure empty;
    Swap(empty);
}

void ZELProductStructure::Swap(ZELProductStructure& other)
{
    using std::swap;
    swap(pid_, other.pid_);
    swap(productName_, other.productName_);
    swap(information_, other.information_);
    swap(visualisation_, other.visualisation_);
    swap(pmi_, other.pmi_);
    swap(references_, other.references_);
    swap(roots_, other.roots_);
    swap(findKey_, other.findKey_);
    swap(error_, other.error_);
    swap(warnings_, other.warnings_);
    swap(changed_, other.changed_);
    swap(index_, other.index_);
}

std::shared_ptr<ZELReference> ZELProductStructure::AddReference(ZELReference::Kind kind, std::wstring pid,
                                                                std::wstring name)
{
    auto reference = std::make_shared<ZELReference>(kind, std::move(pid), std::move(name));
    AddReference(reference);
    return reference;
}

void ZELProductStructure::AddReference(std::shared_ptr<ZELReference> reference)
{
    assert(reference);
    reference->structureChanged_ = changed_;
    references_.push_back(std::move(reference));
    *changed_ = true;
}

std::shared_ptr<ZELInstance> ZELProductStructure::AddRootInstance(std::shared_ptr<ZELReference> reference,
                                                                  std::wstring pid, std::wstring name)
{
    auto instance = std::make_shared<ZELInstance>(std::move(reference), std::move(pid), std::move(name));
    AddRootInstance(instance);
    return instance;
}

void ZELProductStructure::AddRootInstance(std::shared_ptr<ZELInstance> instance)
{
    assert(instance && instance->GetReference());
    roots_.push_back(std::move(instance));
    *changed_ = true;
}

void ZELProductStructure::RemoveRootInstance(std::size_t position)
{
    assert(position < roots_.size());
    roots_.erase(roots_.begin() + static_cast<std::ptrdiff_t>(position));
    *changed_ = true;
}

BrepCounts ZELProductStructure::GetCounts() const
{
    BrepCounts counts;
    for (auto const& reference : references_) counts += reference->GetCounts();
    return counts;
}

bool ZELProductStructure::holds(std::shared_ptr<ZELReference> const& reference) const
{
    return std::find(references_.begin(), references_.end(), reference) != references_.end();
}

} // namespace NarMetaInfra
