#pragma once
#include <memory>
#include <mora/TreeBuilder.h>
#include <optional>

namespace MoraCore
{

/// The host's view of a tree: owns the tree and remembers what is highlighted in it. A host derives from it
/// to show both, or reads them where nothing is shown.
class AViewTree
{
public:
    using RenderId = ZELVizCore::RenderId;

    AViewTree() : AViewTree(std::make_unique<TreeBuilder>()) {}
    explicit AViewTree(std::unique_ptr<TreeBuilder> builder);
    AViewTree(AViewTree const&) = delete;
    AViewTree& operator=(AViewTree const&) = delete;

    virtual ~AViewTree() = default;
    /// Empties the tree and forgets the highlight.
    virtual void ClearItems();
    /// The object of a node was hidden or shown since the tree was written.
    virtual void MarkItem(RenderId const& id, bool visible);
    virtual void HighlightItem(RenderId const& id);
    virtual void ClearHighlight();

    TreeBuilder& GetTreeBuilder() { return *builder_; }
    TreeBuilder const& GetTreeBuilder() const { return *builder_; }
    std::optional<RenderId> const& GetHighlighted() const { return highlighted_; }

private:
    std::unique_ptr<TreeBuilder> builder_;
    std::optional<RenderId> highlighted_;
};

} // namespace MoraCore
