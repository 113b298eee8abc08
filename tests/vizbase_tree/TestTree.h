#pragma once

#include "ZELRenderTree.h"

/// A tree whose parts hold their bodies by name, and the host's view that it writes into.
class TestTree : public ZelVizBase::ZELRenderTree
{
public:
    using EntityId = ZELVizCore::EntityId;
    using RenderId = ZELVizCore::RenderId;
    using EntityType = ZELVizCore::EntityType;

    explicit TestTree(ZELProductStructure& model) : ZELRenderTree(&model) { SetView(&view); }

    std::wstring GetRendererName() const override { return L"test tree"; }
    using ZELRenderTree::addToLinkMap;
    using ZELRenderTree::BodyRenderIds;
    using ZELRenderTree::EntityReferenceIds;
    using ZELRenderTree::EntityRenderIds;
    using ZELRenderTree::getTreeItemStyle;
    using ZELRenderTree::RootId;
    using ZELRenderTree::SuppressedBranch;
    using ZELRenderTree::ToolTips;

    /// The tree below "ROOT", a line per node: two blanks per level, the name, " -" for a node that isn't
    /// visible.
    std::wstring Text() const;
    /// The first node of that name, the path of its ids; empty if there is none.
    RenderId Path(std::wstring const& name) const;
    /// The items of the view.
    MoraCore::TreeBuilder const& Items() const { return view.GetTreeBuilder(); }

    MoraCore::AViewTree view;

protected:
    bool hasPartContent(std::shared_ptr<ZELReference> const& reference) const override
    {
        return !reference->GetBodies().empty();
    }
    void renderPartContent(std::shared_ptr<ZELReference> const& reference, RenderId& id) override;
};

/// An id as the tree makes it.
inline ZELVizCore::RenderId path(std::vector<unsigned long long> const& values)
{
    return {values, ZELVizCore::RenderId::OriginEnum::Visualisation};
}
