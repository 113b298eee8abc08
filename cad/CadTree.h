#pragma once

#include "ZELRenderTree.h"

#include <chrono>

namespace ZelCad
{

/// Adds the bodies of a part below the number 80000, if the settings ask for them, below each its faces,
/// edges and vertices (81000, then a number for the kind) if they ask for features, too, and answers
/// questions about the written tree.
class CadTree : public ZelVizBase::ZELRenderTree
{
public:
    using Seconds = std::chrono::duration<double>;
    using ZELRenderTree::ZELRenderTree;

    std::wstring GetRendererName() const override { return L"Product structure"; }
    bool Render() override;
    /// Bodies that the tree shows, and those of a model that is one part; false if there is none.
    bool GetBodyList(std::vector<EntityId>& bodies) override;
    /// Of one face, edge or vertex, or of all of a kind.
    void GetTopoIds(RenderId const& id, std::vector<u64>& ids) override;

    /// Nodes whose name contains `text` without regard to case, in tree order; false if there is none.
    bool FindNodes(std::wstring const& text, std::vector<RenderId>& out) const;
    /// The node with this path, null if the tree has none.
    MoraCore::TreeBuilder::Item const* FindNode(RenderId const& id) const;
    /// Of the last Render.
    Seconds GetRenderTime() const { return RenderTime; }

protected:
    bool hasPartContent(std::shared_ptr<ZELReference> const& reference) const override;
    void renderPartContent(std::shared_ptr<ZELReference> const& reference, RenderId& id) override;

private:
    void renderTopology(NarMetaInfra::BrepBody const& body);
    template <class Part> void renderTopology(EntityType type, std::vector<Part> const& parts);
    void enterBody(ZELReference const& reference, NarMetaInfra::BrepBody const& body, RenderId const& path);

    Seconds RenderTime{};
};

} // namespace ZelCad
