#include "TestTree.h"

void TestTree::renderPartContent(std::shared_ptr<ZELReference> const& reference, RenderId&)
{
    for (auto const& body : reference->GetBodies()) {
        getTreeBuilder().BeginItem(body.id, L"body " + body.name, TreeItemStyles::Body);
        getTreeBuilder().EndItem();
    }
}

std::wstring TestTree::Text() const
{
    std::wstring text = L"\n";
    auto const& items = Items().Items();
    for (std::size_t i = 1; i < items.size(); ++i) {
        for (auto above = items[i].parent; above > 0; above = items[above].parent) text += L"  ";
        text += items[i].name + (items[i].visible ? L"\n" : L" -\n");
    }
    return text;
}

TestTree::RenderId TestTree::Path(std::wstring const& name) const
{
    auto const& items = Items().Items();
    for (std::size_t i = 0; i < items.size(); ++i)
        if (items[i].name == name) return Items().GetPath(static_cast<std::int32_t>(i));
    return {};
}
