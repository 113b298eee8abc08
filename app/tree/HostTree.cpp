#include "HostTree.h"

namespace zelview
{
namespace
{

/// Tells when a tree is complete.
class TellingBuilder final : public MoraCore::TreeBuilder
{
public:
    explicit TellingBuilder(HostTree& told) : Told(told) {}

    void EndTree() override
    {
        TreeBuilder::EndTree();
        emit Told.rewritten();
    }

private:
    HostTree& Told;
};

} // namespace

// The builder keeps the address alone until this object stands.
HostTree::HostTree() : AViewTree(std::make_unique<TellingBuilder>(*this)) {}

void HostTree::ClearItems()
{
    AViewTree::ClearItems();
    emit rewritten();
}

void HostTree::MarkItem(RenderId const& id, bool visible)
{
    AViewTree::MarkItem(id, visible);
    emit marked(id);
}

void HostTree::HighlightItem(RenderId const& id)
{
    AViewTree::HighlightItem(id);
    emit highlighted(id);
}

void HostTree::ClearHighlight()
{
    AViewTree::ClearHighlight();
    emit highlightCleared();
}

} // namespace zelview
