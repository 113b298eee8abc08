#pragma once

#include <narmeta/infra/ZELDocumentInformation.h>
#include <narmeta/infra/ZELReference.h>

namespace NarMetaInfra
{

/// The model. It stands for the top product itself: its root instances are the components of the top
/// assembly, or the one part of a part file. Filled by hand or by a reader:
///
///     ZELProductStructure model(L"gearbox", L"Gear box");
///     auto shaft = model.AddReference(ZELReference::Kind::Part, L"shaft", L"Shaft");
///     shaft->AddBody(...);
///     auto instance = model.AddRootInstance(shaft, L"gearbox.shaft.1", L"Shaft.1");
///     instance->SetTransform(...);
///
/// A getter with an out argument gives false, and writes nothing, when there is nothing to give.
class ZELProductStructure
{
public:
    explicit ZELProductStructure(std::wstring pid = {}, std::wstring productName = {});
    virtual ~ZELProductStructure();
    ZELProductStructure(ZELProductStructure const&) = delete;
    ZELProductStructure& operator=(ZELProductStructure const&) = delete;

    virtual bool ActivateCapture(std::shared_ptr<ZELReference> const& reference,
                                 std::shared_ptr<PMICapture> const& capture);
    virtual bool DeactivateCapture(std::shared_ptr<ZELReference> const& reference,
                                   std::shared_ptr<PMICapture> const& capture);
    virtual bool ActivateView(std::shared_ptr<ZELReference> const& reference,
                              std::shared_ptr<PMIAnnotationView> const& view);
    virtual bool DeactivateView(std::shared_ptr<ZELReference> const& reference,
                                std::shared_ptr<PMIAnnotationView> const& view);

    /// Annotations of the product itself.
    virtual bool GetPMIAnnotation(Id id, std::shared_ptr<PMIAnnotation>& annotation,
                                  PMIAnnotationType type) const;
    virtual void GetPMIToolTip(Id id, std::wstring& text) const;
    virtual bool GetPMIKey(Id id, HPS::Key& key, PMIAnnotationType type) const;

    std::size_t GetRootInstancesCount() const { return roots_.size(); }
    bool GetRootInstance(std::size_t index, std::shared_ptr<ZELInstance>& instance) const;
    /// Unique references are the parts whose contents are there, in the order in which they were added.
    std::size_t GetUniqueReferencesCount() const { return index().parts.size(); }
    bool GetUniqueReference(std::size_t index, std::shared_ptr<ZELReference>& reference) const;
    /// All assemblies that are in use, each behind those that it contains.
    std::vector<std::shared_ptr<ZELReference>> const& GetSubAssemblyReferences() const
    {
        return index().assemblies;
    }
    bool GetInstance(Id instanceId, std::shared_ptr<ZELInstance>& instance) const;
    /// The part with this unique id, or the part that the instance with this id places.
    bool GetPartReference(Id id, std::shared_ptr<ZELReference>& reference) const;
    /// The holder of a linked entity and the instances down to it.
    bool GetReference(LinkedEntity const& entity, std::vector<std::shared_ptr<ZELInstance>>& instances,
                      std::shared_ptr<ZELReference>& reference) const;
    /// The same with an instance path that starts inside @p start.
    bool GetReference(std::shared_ptr<ZELReference> const& start, LinkedEntity const& entity,
                      std::vector<std::shared_ptr<ZELInstance>>& instances,
                      std::shared_ptr<ZELReference>& reference) const;
    bool IsRootInstance(Id instanceId) const;
    /// The instance is inside an assembly that is used in more than one place, so that its segment is shared.
    bool IsInstanceReferencedFromSubAssembly(Id instanceId) const;
    /// More than the one part of a part file.
    bool IsAssembly() const;
    bool GetPID(std::wstring& pid) const;
    std::wstring const& GetProductName() const { return productName_; }
    /// The following three may be empty.
    std::shared_ptr<ZELDocumentInformation> const& GetDocumentInformation() const { return information_; }
    std::shared_ptr<SGContainer> const& GetSG() const { return visualisation_; }
    std::shared_ptr<PMIContainer> const& GetPMI() const { return pmi_; }
    /// The holder is empty for a view of the product itself.
    bool GetActiveView(std::shared_ptr<ZELReference>& holder, std::shared_ptr<PMIAnnotationView>& view) const;
    bool GetActiveCapture(std::shared_ptr<ZELReference>& holder, std::shared_ptr<PMICapture>& capture) const;
    /// Leaves nothing but @p part, placed once at the origin. False, and nothing changed, if it is no part of
    /// this model.
    bool MakePartModel(std::shared_ptr<ZELReference> const& part);
    std::wstring const& GetErrorMessage() const { return error_; }
    std::vector<std::wstring> const& GetWarningMessages() const { return warnings_; }

    /// Back to the empty model.
    void Reset();
    /// Exchanges the whole contents: a reader fills a model of its own and hands it over only when all went
    /// well.
    void Swap(ZELProductStructure& other);

    void SetPID(std::wstring pid) { pid_ = std::move(pid); }
    void SetProductName(std::wstring name) { productName_ = std::move(name); }
    void SetDocumentInformation(std::shared_ptr<ZELDocumentInformation> info)
    {
        information_ = std::move(info);
    }
    void SetSG(std::shared_ptr<SGContainer> visualisation) { visualisation_ = std::move(visualisation); }
    void SetPMI(std::shared_ptr<PMIContainer> pmi) { pmi_ = std::move(pmi); }
    void SetKeyFinder(KeyFinder finder) { findKey_ = std::move(finder); }
    void SetErrorMessage(std::wstring text) { error_ = std::move(text); }
    void AddWarningMessage(std::wstring text) { warnings_.push_back(std::move(text)); }

    std::shared_ptr<ZELReference> AddReference(ZELReference::Kind kind, std::wstring pid,
                                               std::wstring name = {});
    void AddReference(std::shared_ptr<ZELReference> reference);
    std::shared_ptr<ZELInstance> AddRootInstance(std::shared_ptr<ZELReference> reference, std::wstring pid,
                                                 std::wstring name = {});
    void AddRootInstance(std::shared_ptr<ZELInstance> instance);
    void RemoveRootInstance(std::size_t index);
    /// To be called when an instance that is already placed got another PID.
    void NoteNewPids() { *changed_ = true; }
    /// Every reference, missing ones and those in no use included.
    std::vector<std::shared_ptr<ZELReference>> const& GetReferences() const { return references_; }
    std::vector<std::shared_ptr<ZELInstance>> const& GetRootInstances() const { return roots_; }
    /// What the references hold, each counted once.
    BrepCounts GetCounts() const;
    /// How often a reference is placed in the whole product, all uses of its assemblies counted.
    std::size_t GetOccurrencesCount(ZELReference const& reference) const;

private:
    /// What follows from the references and instances; made when it is first asked for after a change.
    struct Index {
        std::vector<std::shared_ptr<ZELReference>> parts;
        std::vector<std::shared_ptr<ZELReference>> assemblies;
        struct Entry {
            std::shared_ptr<ZELInstance> instance;
            ZELReference const* owner = nullptr; ///< null for a root instance
        };
        std::unordered_map<Id, Entry> instances;
        std::unordered_map<ZELReference const*, std::size_t> occurrences;
    };
    Index const& index() const;
    bool holds(std::shared_ptr<ZELReference> const& reference) const;

    std::wstring pid_;
    std::wstring productName_;
    std::shared_ptr<ZELDocumentInformation> information_;
    std::shared_ptr<SGContainer> visualisation_;
    std::shared_ptr<PMIContainer> pmi_;
    std::vector<std::shared_ptr<ZELReference>> references_;
    std::vector<std::shared_ptr<ZELInstance>> roots_;
    KeyFinder findKey_;
    std::wstring error_;
    std::vector<std::wstring> warnings_;
    /// Shared with the references listed here, so that an instance added to one of them is noticed.
    std::shared_ptr<bool> changed_;
    mutable Index index_;
};

} // namespace NarMetaInfra
