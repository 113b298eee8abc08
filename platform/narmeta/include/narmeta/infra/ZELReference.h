#pragma once

#include <narmeta/Property.h>
#include <narmeta/infra/BrepBody.h>
#include <narmeta/infra/ZELInstance.h>
#include <narmeta/pmi/PMIContainer.h>
#include <narmeta/visu/SGContainer.h>

#include <functional>
#include <unordered_map>

namespace HPS
{
class Key;
class KeyPath;
} // namespace HPS
namespace ZelVizBase
{
class ZELObjectMapper;
}

namespace NarMetaInfra
{

using NarMetaPmi::LinkedEntity;
using NarMetaPmi::PMIAnnotation;
using NarMetaPmi::PMIAnnotationType;
using NarMetaPmi::PMIAnnotationView;
using NarMetaPmi::PMICapture;
using NarMetaPmi::PMIContainer;
using NarMetaVisu::SGContainer;

/// A shape as the modelling kernel writes it.
struct ExactShape {
    static constexpr Id RemovedFace = ~Id{0};
    std::string bytes;
    /// Ids of its faces in the kernel's own order; RemovedFace: of a body that was removed since.
    std::vector<Id> faces;
};

/// Gives the scene's key of an object by its id. Set by whoever builds the scene, since the model knows of
/// keys no more than that they exist.
using KeyFinder = std::function<bool(Id, HPS::Key&)>;

/// A part or an assembly as such, wherever it is used; or the place of one whose file is missing.
class ZELReference
{
public:
    enum class Kind { Part, Assembly, Missing };

    /// @p pid: as for an instance, unique among the references. The unique id is its hash.
    ZELReference(Kind kind, std::wstring pid, std::wstring name = {});
    virtual ~ZELReference() = default;
    ZELReference(ZELReference const&) = delete;
    ZELReference& operator=(ZELReference const&) = delete;

    virtual bool GetPMIAnnotation(HPS::KeyPath const& path, Id id, std::shared_ptr<PMIAnnotation>& annotation,
                                  PMIAnnotationType type) const;
    virtual bool GetPMIAnnotation(Id id, std::shared_ptr<PMIAnnotation>& annotation,
                                  PMIAnnotationType type) const;
    virtual void GetPMIToolTip(Id id, std::wstring& text) const;
    virtual bool GetPMIKey(Id id, std::shared_ptr<PMIAnnotation>& annotation, HPS::Key& key,
                           PMIAnnotationType type) const;
    virtual bool GetLinkedEntityKey(LinkedEntity const& entity, HPS::Key& key) const;

    Kind GetKind() const { return kind_; }
    bool IsPart() const { return kind_ == Kind::Part; }
    /// The file is missing.
    bool IsEmpty() const { return kind_ == Kind::Missing; }
    /// The contents are visualisation data, not bodies.
    bool IsGraphical() const { return graphical_; }
    bool GetPID(std::wstring& pid) const;
    Id GetUniqueID() const { return id_; }
    std::wstring const& GetReferenceName() const { return name_; }
    /// The file that the reference comes from or should come from; may be empty.
    std::wstring const& GetStorageName() const { return storageName_; }
    /// May be empty, like the next.
    std::shared_ptr<SGContainer> const& GetSG() const { return visualisation_; }
    std::shared_ptr<PMIContainer> const& GetPmi() const { return pmi_; }
    std::size_t GetInstancesCount() const { return instances_.size(); }
    bool GetInstance(std::size_t index, std::shared_ptr<ZELInstance>& instance) const;
    std::vector<std::shared_ptr<ZELInstance>> const& GetInstances() const { return instances_; }
    /// False if there is no such body.
    bool RemoveBodyFromPart(Id bodyId);
    /// Only stored here; made by the plug-in's renderer.
    std::shared_ptr<ZelVizBase::ZELObjectMapper> const& GetObjectMapper() const { return mapper_; }

    /// What the file notes about the part or assembly, and values for checks that its exporter left.
    void SetUserProperties(NarMeta::Properties properties) { properties_ = std::move(properties); }
    NarMeta::Properties const& GetUserProperties() const { return properties_; }

    /// The exact shape in the form of the modelling kernel, for writing and nothing else; empty unless the
    /// reader was asked to keep it.
    void SetExactShape(std::shared_ptr<ExactShape const> shape) { exact_ = std::move(shape); }
    std::shared_ptr<ExactShape const> const& GetExactShape() const { return exact_; }

    std::vector<BrepBody> const& GetBodies() const { return bodies_; }
    BrepBody const* FindBody(Id bodyId) const;
    BrepCounts GetCounts() const;

    void SetReferenceName(std::wstring name) { name_ = std::move(name); }
    void SetStorageName(std::wstring name) { storageName_ = std::move(name); }
    void SetPID(std::wstring pid);
    void SetKind(Kind kind);
    void SetGraphical(bool graphical) { graphical_ = graphical; }
    void SetSG(std::shared_ptr<SGContainer> visualisation) { visualisation_ = std::move(visualisation); }
    void SetPmi(std::shared_ptr<PMIContainer> pmi) { pmi_ = std::move(pmi); }
    void SetObjectMapper(std::shared_ptr<ZelVizBase::ZELObjectMapper> mapper) { mapper_ = std::move(mapper); }
    void SetKeyFinder(KeyFinder finder) { findKey_ = std::move(finder); }
    BrepBody& AddBody(BrepBody body);
    /// For readers and checks that correct bodies in place.
    std::vector<BrepBody>& Bodies() { return bodies_; }
    /// Names a body, face, edge or vertex for LinkedEntity.
    void NameEntity(std::wstring name, Id entityId) { entityNames_[std::move(name)] = entityId; }
    std::unordered_map<std::wstring, Id> const& GetEntityNames() const { return entityNames_; }

    /// Puts @p child into this assembly.
    std::shared_ptr<ZELInstance> AddInstance(std::shared_ptr<ZELReference> child, std::wstring pid,
                                             std::wstring name = {});
    void AddInstance(std::shared_ptr<ZELInstance> instance);
    void RemoveInstance(std::size_t index);

private:
    friend class ZELProductStructure;

    void changed() const
    {
        if (structureChanged_) *structureChanged_ = true;
    }

    Kind kind_;
    std::wstring pid_;
    std::wstring name_;
    std::wstring storageName_;
    Id id_;
    bool graphical_ = false;
    std::shared_ptr<SGContainer> visualisation_;
    std::shared_ptr<PMIContainer> pmi_;
    std::vector<std::shared_ptr<ZELInstance>> instances_;
    std::vector<BrepBody> bodies_;
    std::unordered_map<std::wstring, Id> entityNames_;
    NarMeta::Properties properties_;
    std::shared_ptr<ExactShape const> exact_;
    std::shared_ptr<ZelVizBase::ZELObjectMapper> mapper_;
    KeyFinder findKey_;
    /// The change mark of the structure that lists this reference.
    std::shared_ptr<bool> structureChanged_;
};

} // namespace NarMetaInfra
