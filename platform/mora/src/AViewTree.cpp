#include <mora/AViewTree.h>

namespace MoraCore
{

AViewTree::AViewTree(std::unique_ptr<TreeBuilder> builder)
    : builder_(builder ? std::move(builder) : std::make_unique<TreeBuilder>())
{
}

void AViewTree::MarkItem(RenderId const& id, bool visible)
{
    builder_->MarkItem(builder_->Find(id), visible);
}

void AViewTree::ClearItems()
{
    builder_->Clear();
    highlighted_.reset();
}

void AViewTree::HighlightItem(RenderId const& id)
{
    highlighted_ = id;
}

void AViewTree::ClearHighlight()
{
    highlighted_.reset();
}

} // namespace MoraCore
