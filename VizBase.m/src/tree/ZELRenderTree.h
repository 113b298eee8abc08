#pragma once

#include "host_api.h"
#include "model_api.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace ZelVizBase
{

/// Writes the model tree into the host's tree view: the product, its assemblies and parts, their annotations
/// and visualisation data. Meanwhile it keeps the tables that lead from a tree node to a model entity and
/// back. A concrete tree adds what a part's B-rep holds.
///
/// The product structure and the view are not owned. Every step that the model can't answer is left out; a
/// tree without a view isn't rendered. Limits: an assembly inside itself, more than MaxDepth levels or more
/// than MaxNodes instances are cut off there, with one warning to the session for each cause.
class ZELRenderTree : public MoraCore::ARendererTree
{
public:
    using u64 = unsigned long long;
    using ZELProductStructure = NarMetaInfra::ZELProductStructure;
    using ZELReference = NarMetaInfra::ZELReference;
    using InstancePtr = std::shared_ptr<NarMetaInfra::ZELInstance>;
    using AContent = MoraCore::AContent;
    using AViewTree = MoraCore::AViewTree;
    using TreeItemStyles = MoraCore::TreeItemStyles;
    using EntityType = ZELVizCore::EntityType;
    using EntityMap = std::map<EntityId, RenderId>;

    /// Every level of the model is a few frames of the stack.
    static constexpr unsigned MaxDepth = 500;
    /// A few shared assemblies inside each other can stand for more nodes than any memory holds.
    static constexpr u64 MaxNodes = 2'000'000;

    explicit ZELRenderTree(ZELProductStructure* structure = nullptr, AViewTree* view = nullptr);
    ~ZELRenderTree() override;

    bool Render() override;
    bool CanRenderType(AContent* content) override;
    /// By the shape of the id; needs two values. Leaves the PID of what stands above the node for
    /// GetInstancePID.
    bool Convert(RenderId const& id, EntityId& entity) override;
    bool Convert(EntityId const& entity, RenderId& id) override;
    /// True for ids of fewer than four values.
    bool Activate(RenderId& id) override;
    bool ConvertToHighlight(RenderId const& id, std::vector<RenderId>& ids) override;
    std::wstring GetToolTip(RenderId const& id) override;
    bool GetBodyList(std::vector<EntityId>& bodies) override;

    std::wstring GetInstancePID() const { return CurrentPid; }
    /// Leaves the PID as Convert does.
    bool IsInPmiTree(RenderId const& id);
    bool IsInFeatureTree(RenderId const& id) const;
    bool IsInTopologyTree(RenderId const& id) const;
    bool IsBrepDisplayedInTree() const;
    bool IsFeaturesDisplayedInTree() const;
    EntityMap const& GetBodyMap() const { return BodyMap; }

    /// Marks the node above `id` in the view, unless the tree shows bodies or features.
    void Highlight(RenderId const& id);
    void UnHighlight();
    /// The object of a node was hidden or shown since the tree was written.
    void Mark(RenderId const& id, bool visible);
    /// Marks the node that a pick in the scene led to. `values`: the ids from the root instance down; they
    /// are completed to the whole path.
    void ReverseHighlight(std::vector<u64>& values);

protected:
    void ClearAllImpl() override;
    bool preRender() override;
    void postRender() override;
    /// Whether renderPartContent would add a node.
    virtual bool hasPartContent(std::shared_ptr<ZELReference> const& reference) const = 0;

public:
    /// Ids of the B-rep entities that belong to a feature or topology node; none in this class.
    virtual void GetFeatureIds(RenderId const& id, std::vector<u64>& ids);
    virtual void GetTopoIds(RenderId const& id, std::vector<u64>& ids);

protected:
    /// Writes the bodies and features of a part below the open node. `id` is free for the concrete tree.
    virtual void renderPartContent(std::shared_ptr<ZELReference> const& reference, RenderId& id) = 0;

    void renderRootInstances();
    /// The children of an assembly instance.
    void renderInstance(InstancePtr const& instance, bool suppressed);
    void renderAssemblyInstance(InstancePtr const& instance, u64 const& id, u64 const& referenceId,
                                std::wstring const& instanceName, std::wstring const& referenceName);
    void renderPartInstance(InstancePtr const& instance, u64 const& id, u64 const& referenceId,
                            std::wstring const& instanceName, std::wstring const& referenceName);
    void renderMissingPartInstance(InstancePtr const& instance, u64 const& id, std::wstring storageName,
                                   std::wstring const& instanceName, std::wstring const& referenceName);
    void renderPmi(std::wstring const& pid, NarMetaPmi::PMIContainer const* container);
    /// A null instance stands for the product.
    void renderVisu(InstancePtr const& instance, u64 const& referenceId, std::wstring const& pid,
                    std::shared_ptr<NarMetaVisu::SGContainer> const& container);

    TreeItemStyles getTreeItemStyle(std::shared_ptr<NarMetaPmi::PMIGDT> const& tolerance) const;
    TreeItemStyles getTreeItemStyle(std::shared_ptr<NarMetaPmi::PMIDimension> const& dimension) const;

    void makeNameFromTag(u64 const& tag, std::wstring& name) const;
    /// Appends to the name of what isn't shown; a null instance isn't shown.
    void makeNameFromHidden(InstancePtr const& instance, std::wstring& name) const;
    void makeReferenceAndInstanceName(InstancePtr const& instance, std::wstring& referenceName,
                                      std::wstring& instanceName) const;

    /// Enter a node as an instance or as the data of a part; an entry that exists stays. False for a path of
    /// fewer than two values.
    bool addToLinkMap(InstancePtr const& instance, u64 const& referenceId, u64 const& id,
                      RenderId const& path, EntityId& entity);
    bool addToPartMap(InstancePtr const& instance, u64 const& referenceId, u64 const& id,
                      RenderId const& path, EntityId& entity);
    bool addToTooltipMap(EntityId const& entity, std::wstring toolTip);
    bool convertPmi(RenderId const& id, EntityId& entity) const;

    ZELProductStructure* ProductStructure; ///< not owned
    u64 RootId = 0;                        ///< second value of every path; 0 until the first Render
    EntityMap EntityRenderIds;
    std::map<EntityId, u64> EntityReferenceIds; ///< same keys: the unique id of the reference
    EntityMap BodyMap;                          ///< this and the next are the concrete tree's
    std::map<std::string, EntityMap> BodyRenderIds;
    std::map<EntityId, std::wstring> ToolTips;
    std::map<u64, std::wstring> ItemPids; ///< the product and the root instances
    std::wstring CurrentPid;

    // For the concrete tree; emptied here.
    std::map<u64, std::wstring> FeatureNames;
    std::map<RenderId, std::vector<u64>> FeatureIds;
    std::map<RenderId, std::vector<u64>> TopoIds;
    std::map<EntityId, std::wstring> BodyNames;
    std::map<u64, RenderId> PartRenderIds; ///< by the unique id of the reference

    unsigned Depth = 0;
    bool SuppressedBranch = false; ///< the walk stands below a suppressed instance

private:
    enum class Limit {
        Cycle,
        Depth,
        Nodes,
    };

    /// True if the child is an assembly.
    bool dispatch(InstancePtr const& instance);
    /// Tables, tool tip and mark of the open assembly or part node.
    void enterInstance(InstancePtr const& instance, u64 const& id, u64 const& referenceId,
                       std::wstring const& toolTip);
    bool addEntity(EntityType type, InstancePtr const& instance, u64 const& referenceId, u64 const& id,
                   RenderId const& path, EntityId& entity);
    bool mayDescend(ZELReference const& reference);
    void warnOnce(Limit limit, std::wstring const& text);
    void setOpenNodeVisible(bool visible);
    void renderView(NarMetaPmi::PMIAnnotationView const& view);
    void renderCapture(NarMetaPmi::PMICapture const& capture);
    template <class Rep, class Kind> void renderReps(InstancePtr const& instance, bool visible,
                                                     std::vector<std::shared_ptr<Rep>> const& reps,
                                                     Kind const& kind);
    void renderDrawingSheet(InstancePtr const& instance, bool visible, NarMetaVisu::Node const& sheet);
    void enterPart(InstancePtr const& instance, u64 const& referenceId, std::wstring const& toolTip);
    std::wstring itemPid(u64 id) const;

    std::vector<ZELReference const*> openAssemblies_; ///< from the root down to where the walk stands
    u64 nodes_ = 0;
    unsigned warned_ = 0; ///< a bit per Limit
};

} // namespace ZelVizBase
